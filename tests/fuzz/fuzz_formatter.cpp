// Book text of any content, fetched as the main window fetches it, formatted and shown in the
// rich-text view: nothing crashes or hangs, and where the passage holds only characters a view can
// show, the view shows the passage's words: a Strong's number in braces follows an apostrophe of
// size 0 and is superscript, words in square brackets lose their brackets and the blank after them,
// and every line is a paragraph. The input is the book file of a one-book translation.
#include "FuzzApplication.h"
#include "FuzzSupport.h"
#include "platform/RichTextBox.h"
#include "scripture/BookFiles.h"
#include "scripture/PassageFormatter.h"
#include "scripture/clsBible.h"

#include <QApplication>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

// What the view should show for a passage, with the superscript characters marked, or nothing
// when the passage holds what rich text would read as markup of its own (a backslash, a closing
// brace with no opening one) or characters a view does not show as themselves.
struct Shown
{
    QString text;
    QString superscript; // 'S' under each superscript character, '.' under the others, and '?'
                         // under the apostrophe of size 0, which shows nothing either way
};

std::optional<Shown> expected(const QString &passage)
{
    Shown shown;
    int depth = 0;
    bool blankTaken = false;
    for (qsizetype i = 0; i < passage.size(); ++i) {
        const QChar c = passage.at(i);
        const char16_t u = c.unicode();
        if (u == u'\r' && i + 1 < passage.size() && passage.at(i + 1) == u'\n') {
            shown.text += QStringLiteral("\r\n");
            shown.superscript += QStringLiteral("..");
            ++i;
            continue;
        }
        if (u < 0x20 || u == 0x7F || u == u'\\' || c.isSurrogate() || u == 0x2028 || u == 0x2029 ||
            u == 0xFDD0 || u == 0xFDD1 || u == 0xFFFC)
            return std::nullopt;
        if (u == u'{') {
            ++depth;
            shown.text += u'\'';
            shown.superscript += u'?';
        } else if (u == u'}') {
            if (--depth < 0)
                return std::nullopt;
        } else if (u == u']') {
            // The formatter's blank before the control word shows; the control word takes the
            // blank after it, the text's own or the next bracket's.
            if (!blankTaken) {
                shown.text += u' ';
                shown.superscript += depth > 0 ? u'S' : u'.';
            }
            const QChar next = i + 1 < passage.size() ? passage.at(i + 1) : QChar();
            if (next == u' ')
                ++i;
            blankTaken = next == u']';
            continue;
        } else if (u != u'[') {
            shown.text += c;
            shown.superscript += depth > 0 ? u'S' : u'.';
        }
    }
    return shown;
}

// The superscript marks of the view's document, with two marks for each paragraph break as
// Text() has CR LF there.
QString superscriptMarks(const QTextDocument &document)
{
    QString marks;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block != document.begin())
            marks += QStringLiteral("..");
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const bool super =
                fragment.charFormat().verticalAlignment() == QTextCharFormat::AlignSuperScript;
            marks += QString(fragment.length(), super ? u'S' : u'.');
        }
    }
    return marks;
}

void show(const QString &passage)
{
    platform::RichTextBox view;
    view.setTextRTF(PassageFormatter::ToRichText(passage, true));
    const std::optional<Shown> wanted = expected(passage);
    if (!wanted)
        return;
    QString marks = superscriptMarks(*view.document());
    for (qsizetype i = 0; i < marks.size() && i < wanted->superscript.size(); ++i) {
        if (wanted->superscript.at(i) == u'?')
            marks[i] = u'?';
    }
    if (view.Text() != wanted->text || marks != wanted->superscript) {
        std::fprintf(stderr,
                     "passage:  %s\nshown:    %s\nexpected: %s\nmarks:    %s\nexpected: %s\n",
                     qPrintable(passage), qPrintable(view.Text()), qPrintable(wanted->text),
                     qPrintable(marks), qPrintable(wanted->superscript));
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::quietMessages();
    fuzz::ensureApplication<QApplication>();
    if (size > 16384)
        return 0;
    BookFiles::clear();
    const QString root = fuzz::freshFolder(QStringLiteral("FORMAT"));
    fuzz::write(root + QStringLiteral("/bible.dat"), "Fuzz\r\nOld\r\nNew\r\n");
    fuzz::write(root + QStringLiteral("/oldtest/map.dat"), "\"Genesis\",3\r\n");
    fuzz::write(root + QStringLiteral("/newtest/map.dat"), "");
    fuzz::write(root + QStringLiteral("/oldtest/GENESIS.dat"),
                QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));

    clsBible bible;
    bible.setVersionPath(root);
    for (const bool inText : {true, false}) {
        bible.setInTextReference(inText);
        for (const QString &reference :
             {QStringLiteral("Genesis 1"), QStringLiteral("Genesis 1:2-2:3")})
            show(bible.Fetch(reference).text);
    }
    return 0;
}
