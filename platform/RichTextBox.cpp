#include "platform/RichTextBox.h"

#include "platform/FileSystem.h"
#include "platform/RtfReader.h"
#include "platform/RtfWriter.h"
#include "platform/TextCodec.h"

#include <QPalette>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include <algorithm>
#include <optional>

namespace platform {

namespace {

constexpr char16_t kBeginningOfFrame = 0xFDD0;
constexpr char16_t kEndOfFrame = 0xFDD1;

bool IsStructureChar(char16_t u)
{
    return u == QChar::ParagraphSeparator || u == QChar::LineSeparator || u == kBeginningOfFrame ||
           u == kEndOfFrame;
}

// Plain text with any line-break convention becomes text the document splits into paragraphs.
QString ToParagraphs(const QString &text)
{
    QString out = text;
    out.replace(QStringLiteral("\r\n"), QString(QChar::ParagraphSeparator));
    out.replace(u'\r', QChar::ParagraphSeparator);
    out.replace(u'\n', QChar::ParagraphSeparator);
    return out;
}

bool IsWordChar(QChar c)
{
    return c.isLetterOrNumber();
}

} // namespace

RichTextBox::RichTextBox(QWidget *parent) : QTextEdit(parent)
{
    setAcceptRichText(true);
}

void RichTextBox::mousePressEvent(QMouseEvent *event)
{
    // Window managers activate a window clicked into, but not every platform has one (offscreen,
    // VNC, a bare frame buffer): there a tool window such as Find, once active, would keep the
    // keyboard while the reader clicks into the main window's notes and types.
    if (!isActiveWindow())
        activateWindow();
    QTextEdit::mousePressEvent(event);
}

RichTextBox::PlainView RichTextBox::plainView() const
{
    const QTextDocument *doc = document();
    const QString raw = doc->toRawText();
    PlainView view;
    view.text.reserve(raw.size() + raw.size() / 16 + 2);
    for (qsizetype i = 0; i < raw.size(); ++i) {
        const char16_t u = raw.at(i).unicode();
        if (u == kBeginningOfFrame) {
            // The start of a table cell: a new row begins a line, a further cell follows a tab.
            QTextCursor cursor(const_cast<QTextDocument *>(doc));
            cursor.setPosition(int(i) + 1);
            const QTextTable *table = cursor.currentTable();
            if (table && table->cellAt(int(i) + 1).column() > 0) {
                view.text += u'\t';
                continue;
            }
        }
        if (IsStructureChar(u)) {
            view.text += QStringLiteral("\r\n");
            view.doubles.push_back(int(i));
            continue;
        }
        view.text += raw.at(i);
    }
    return view;
}

int RichTextBox::toText(const PlainView &view, int documentPosition)
{
    const auto before =
        std::lower_bound(view.doubles.begin(), view.doubles.end(), documentPosition);
    return documentPosition + int(before - view.doubles.begin());
}

int RichTextBox::toDocument(const PlainView &view, int textPosition, bool roundUp)
{
    const int t = std::clamp(textPosition, 0, int(view.text.size()));
    // The k-th break (from 0) starts at text position doubles[k] + k and takes two units.
    int low = 0;
    int high = int(view.doubles.size());
    while (low < high) {
        const int mid = (low + high) / 2;
        if (view.doubles[size_t(mid)] + mid + 2 <= t)
            low = mid + 1;
        else
            high = mid;
    }
    const int fullBefore = low;
    if (fullBefore < int(view.doubles.size())) {
        const int breakStart = view.doubles[size_t(fullBefore)] + fullBefore;
        if (t == breakStart + 1) // between CR and LF
            return view.doubles[size_t(fullBefore)] + (roundUp ? 1 : 0);
    }
    return t - fullBefore;
}

int RichTextBox::textPosition(int documentPosition) const
{
    return toText(plainView(), documentPosition);
}

int RichTextBox::documentPosition(int textPosition) const
{
    return toDocument(plainView(), textPosition, false);
}

void RichTextBox::selectDocumentRange(int anchor, int position)
{
    const int last = document()->characterCount() - 1;
    QTextCursor cursor(document());
    cursor.setPosition(std::clamp(anchor, 0, last));
    cursor.setPosition(std::clamp(position, 0, last), QTextCursor::KeepAnchor);
    // Setting the caret makes the view lay out the text up to it; where nothing changes, a long
    // text just filled in is left to be laid out as it is read.
    const QTextCursor current = textCursor();
    if (current.anchor() == cursor.anchor() && current.position() == cursor.position())
        return;
    setTextCursor(cursor);
}

QString RichTextBox::TextRTF() const
{
    return RtfWriter::write(*document());
}

void RichTextBox::setTextRTF(const QString &rtf)
{
    if (!RtfReader::looksLikeRtf(rtf)) {
        setText(rtf);
        return;
    }
    clear();
    QTextCursor cursor(document());
    RtfReader::insert(QStringView(rtf), cursor);
    setTextCursor(QTextCursor(document()));
}

QString RichTextBox::SelRTF() const
{
    return RtfWriter::write(textCursor());
}

void RichTextBox::setSelRTF(const QString &rtf)
{
    if (!RtfReader::looksLikeRtf(rtf)) {
        setSelText(rtf);
        return;
    }
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    RtfReader::insert(QStringView(rtf), cursor);
    cursor.endEditBlock();
    setTextCursor(cursor);
}

QString RichTextBox::Text() const
{
    return plainView().text;
}

void RichTextBox::setText(const QString &text)
{
    // The view's own replacement of its text leaves the caret at the top without laying out the
    // whole text first, so tens of thousands of lines appear at once; the text takes the view's
    // plain look, not the formatting the caret had. Marks laid over the old text mean nothing in
    // the new one, and each of their cursors would be moved at every line put in: they go first.
    setExtraSelections({});
    setCurrentCharFormat(QTextCharFormat());
    setPlainText(ToParagraphs(text));
}

int RichTextBox::SelStart() const
{
    return textPosition(textCursor().selectionStart());
}

void RichTextBox::setSelStart(int start)
{
    const int position = toDocument(plainView(), start, false);
    selectDocumentRange(position, position);
}

int RichTextBox::SelLength() const
{
    const QTextCursor cursor = textCursor();
    const PlainView view = plainView();
    return toText(view, cursor.selectionEnd()) - toText(view, cursor.selectionStart());
}

void RichTextBox::setSelLength(int length)
{
    const PlainView view = plainView();
    const int start = textCursor().selectionStart();
    const int end = toText(view, start) + std::max(length, 0);
    selectDocumentRange(start, toDocument(view, end, true));
}

QString RichTextBox::SelText() const
{
    const QTextCursor cursor = textCursor();
    const PlainView view = plainView();
    const int start = toText(view, cursor.selectionStart());
    return view.text.mid(start, toText(view, cursor.selectionEnd()) - start);
}

void RichTextBox::setSelText(const QString &text)
{
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    cursor.insertText(ToParagraphs(text));
    cursor.endEditBlock();
    setTextCursor(cursor);
}

template <typename Test> bool RichTextBox::wholeSelection(Test test) const
{
    const QTextCursor cursor = textCursor();
    if (!cursor.hasSelection())
        return test(currentCharFormat());
    const int start = cursor.selectionStart();
    const int end = cursor.selectionEnd();
    bool any = false;
    for (QTextBlock block = document()->findBlock(start); block.isValid() && block.position() < end;
         block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            if (fragment.position() + fragment.length() <= start || fragment.position() >= end)
                continue;
            any = true;
            if (!test(fragment.charFormat()))
                return false;
        }
    }
    return any;
}

void RichTextBox::mergeSelectionFormat(const QTextCharFormat &format)
{
    // Formats the selection, or with none the caret's format for what is typed next.
    mergeCurrentCharFormat(format);
}

bool RichTextBox::SelBold() const
{
    return wholeSelection(
        [](const QTextCharFormat &f) { return f.fontWeight() >= QFont::DemiBold; });
}

void RichTextBox::setSelBold(bool on)
{
    QTextCharFormat format;
    format.setFontWeight(on ? QFont::Bold : QFont::Normal);
    mergeSelectionFormat(format);
}

bool RichTextBox::SelItalic() const
{
    return wholeSelection([](const QTextCharFormat &f) { return f.fontItalic(); });
}

void RichTextBox::setSelItalic(bool on)
{
    QTextCharFormat format;
    format.setFontItalic(on);
    mergeSelectionFormat(format);
}

bool RichTextBox::SelUnderline() const
{
    return wholeSelection([](const QTextCharFormat &f) { return f.fontUnderline(); });
}

void RichTextBox::setSelUnderline(bool on)
{
    QTextCharFormat format;
    format.setFontUnderline(on);
    mergeSelectionFormat(format);
}

bool RichTextBox::SelStrikeThru() const
{
    return wholeSelection([](const QTextCharFormat &f) { return f.fontStrikeOut(); });
}

void RichTextBox::setSelStrikeThru(bool on)
{
    QTextCharFormat format;
    format.setFontStrikeOut(on);
    mergeSelectionFormat(format);
}

QColor RichTextBox::SelColor() const
{
    const QColor viewColor = palette().color(QPalette::Text);
    const auto colorOf = [&viewColor](const QTextCharFormat &f) {
        return f.hasProperty(QTextFormat::ForegroundBrush) && f.foreground().style() != Qt::NoBrush
                   ? f.foreground().color()
                   : viewColor;
    };
    std::optional<QColor> first;
    const bool same = wholeSelection([&](const QTextCharFormat &f) {
        const QColor c = colorOf(f);
        if (!first)
            first = c;
        return c == *first;
    });
    if (!first)
        return colorOf(currentCharFormat());
    return same ? *first : QColor();
}

void RichTextBox::setSelColor(const QColor &color)
{
    QTextCharFormat format;
    format.setForeground(color);
    mergeSelectionFormat(format);
}

int RichTextBox::Find(const QString &text, int start, int options, int end)
{
    if (text.isEmpty())
        return -1;
    const PlainView view = plainView();
    const int size = int(view.text.size());
    const int to = end < 0 ? size : std::clamp(end, 0, size);
    const Qt::CaseSensitivity sensitivity =
        (options & rtfMatchCase) ? Qt::CaseSensitive : Qt::CaseInsensitive;
    qsizetype from = std::clamp(start, 0, size);
    while (from <= size) {
        const qsizetype found = view.text.indexOf(text, from, sensitivity);
        if (found < 0 || found + text.size() > to)
            return -1;
        const qsizetype after = found + text.size();
        if ((options & rtfWholeWord) && ((found > 0 && IsWordChar(view.text.at(found - 1))) ||
                                         (after < size && IsWordChar(view.text.at(after))))) {
            from = found + 1;
            continue;
        }
        if (!(options & rtfNoHighlight))
            selectDocumentRange(toDocument(view, int(found), false),
                                toDocument(view, int(after), true));
        return int(found);
    }
    return -1;
}

namespace {
// Whether the document character belongs to the span. A paragraph break belongs only to a
// span whose set names "\r", so a negated span stops at the end of its paragraph.
bool InSpanSet(QChar c, const QString &set, bool negate)
{
    if (IsStructureChar(c.unicode()))
        return !negate && set.contains(u'\r');
    return set.contains(c) != negate;
}
} // namespace

void RichTextBox::Span(const QString &characterSet, bool forward, bool negate)
{
    const QTextDocument *doc = document();
    const int last = doc->characterCount() - 1;
    const QTextCursor cursor = textCursor();
    int start = cursor.selectionStart();
    int end = cursor.selectionEnd();
    if (forward) {
        while (end < last && InSpanSet(doc->characterAt(end), characterSet, negate))
            ++end;
        selectDocumentRange(start, end);
    } else {
        while (start > 0 && InSpanSet(doc->characterAt(start - 1), characterSet, negate))
            --start;
        selectDocumentRange(end, start);
    }
}

void RichTextBox::UpTo(const QString &characterSet, bool forward, bool negate)
{
    const QTextDocument *doc = document();
    const int last = doc->characterCount() - 1;
    const QTextCursor cursor = textCursor();
    if (forward) {
        int position = cursor.selectionEnd();
        while (position < last && !InSpanSet(doc->characterAt(position), characterSet, negate))
            ++position;
        selectDocumentRange(position, position);
    } else {
        int position = cursor.selectionStart();
        while (position > 0 && !InSpanSet(doc->characterAt(position - 1), characterSet, negate))
            --position;
        selectDocumentRange(position, position);
    }
}

bool RichTextBox::Locked() const
{
    return isReadOnly();
}

void RichTextBox::setLocked(bool locked)
{
    setReadOnly(locked);
    if (locked)
        setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

QString RichTextBox::FontName() const
{
    return font().family();
}

void RichTextBox::setFontName(const QString &name)
{
    QFont f = font();
    f.setFamily(name);
    setFont(f);
}

double RichTextBox::FontSize() const
{
    return font().pointSizeF();
}

void RichTextBox::setFontSize(double points)
{
    if (points <= 0)
        return;
    QFont f = font();
    f.setPointSizeF(points);
    setFont(f);
}

bool RichTextBox::FontBold() const
{
    return font().bold();
}

void RichTextBox::setFontBold(bool on)
{
    QFont f = font();
    f.setBold(on);
    setFont(f);
}

bool RichTextBox::FontItalic() const
{
    return font().italic();
}

void RichTextBox::setFontItalic(bool on)
{
    QFont f = font();
    f.setItalic(on);
    setFont(f);
}

QColor RichTextBox::BackColor() const
{
    return palette().color(QPalette::Base);
}

void RichTextBox::setBackColor(const QColor &color)
{
    QPalette p = palette();
    p.setColor(QPalette::Base, color);
    setPalette(p);
}

QColor RichTextBox::ForeColor() const
{
    return palette().color(QPalette::Text);
}

void RichTextBox::setForeColor(const QColor &color)
{
    QPalette p = palette();
    p.setColor(QPalette::Text, color);
    setPalette(p);
}

bool RichTextBox::LoadFile(const QString &path)
{
    const std::optional<QByteArray> bytes = ReadFileBytes(ResolvePath(path));
    if (!bytes)
        return false;
    if (bytes->trimmed().startsWith("{\\rtf")) {
        clear();
        QTextCursor cursor(document());
        RtfReader::insert(*bytes, cursor);
        setTextCursor(QTextCursor(document()));
    } else {
        setText(DecodeText(*bytes).text);
    }
    return true;
}

} // namespace platform
