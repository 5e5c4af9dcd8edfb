// A file that is not rich text, of any bytes, opened into the rich-text view: it loads, the view's
// text is the file's text with each line break as CR LF, and finding a piece of the last line
// selects exactly that piece.
#include "FuzzApplication.h"
#include "FuzzSupport.h"
#include "platform/RichTextBox.h"
#include "platform/TextCodec.h"

#include <QApplication>

#include <cstdint>

namespace {

// The text as the view gives it back: every line break, of whichever kind, is CR LF.
QString withCrLf(const QString &text)
{
    QString out;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == u'\r' || c == u'\n' || c == QChar::LineSeparator ||
            c == QChar::ParagraphSeparator) {
            out += QStringLiteral("\r\n");
            if (c == u'\r' && i + 1 < text.size() && text.at(i + 1) == u'\n')
                ++i;
        } else {
            out += c;
        }
    }
    return out;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::quietMessages();
    fuzz::ensureApplication<QApplication>();
    if (size > 65536)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    if (bytes.trimmed().startsWith("{\\rtf"))
        return 0;
    const QString path = fuzz::freshFolder(QStringLiteral("text")) + QStringLiteral("/Notes.txt");
    fuzz::write(path, bytes);

    platform::RichTextBox view;
    FUZZ_CHECK(view.LoadFile(path));
    const QString text = view.Text();
    FUZZ_CHECK(text == withCrLf(platform::DecodeText(bytes).text));

    const qsizetype lastBreak = text.lastIndexOf(QStringLiteral("\r\n"));
    const QString piece = (lastBreak < 0 ? text : text.mid(lastBreak + 2)).right(4);
    if (!piece.isEmpty()) {
        const int found = view.Find(piece, 0, platform::RichTextBox::rtfMatchCase);
        FUZZ_CHECK(found == text.indexOf(piece));
        FUZZ_CHECK(view.SelStart() == found && view.SelLength() == piece.size());
        FUZZ_CHECK(view.SelText() == piece);
    }
    return 0;
}
