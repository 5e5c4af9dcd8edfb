#pragma once

#include <QColor>
#include <QString>
#include <QTextEdit>

#include <vector>

namespace platform {

// The rich-text view every window uses, with the operations of a classic rich-text control.
//
// Text() gives the plain text with CR LF between paragraphs, and every position (SelStart,
// SelLength, Find) counts in those same units, so a position found in Text() selects the right
// characters however many paragraphs come before it. Table cells are separated by a tab and
// table rows by CR LF in that plain text.
class RichTextBox : public QTextEdit
{
    Q_OBJECT

public:
    // Options of Find, with the values of the classic control.
    enum FindOption
    {
        rtfWholeWord = 2,
        rtfMatchCase = 4,
        rtfNoHighlight = 8,
    };

    explicit RichTextBox(QWidget *parent = nullptr);

    // The whole document as rich text. Setting text that is not rich text shows it as plain text.
    QString TextRTF() const;
    void setTextRTF(const QString &rtf);
    // The selection as rich text; setting it replaces the selection with the rich text.
    QString SelRTF() const;
    void setSelRTF(const QString &rtf);

    // Plain text, CR LF between paragraphs. Setting it accepts CR LF, CR or LF as paragraph
    // breaks and leaves the caret at the start.
    QString Text() const;
    void setText(const QString &text);

    // Setting SelStart moves the caret and empties the selection; SelLength then extends the
    // selection from there. Values beyond the text are clamped to its end.
    int SelStart() const;
    void setSelStart(int start);
    int SelLength() const;
    void setSelLength(int length);
    // Selected text in Text() form. Setting it replaces the selection (or inserts at the caret)
    // as plain text in the caret's formatting and leaves the caret after the insertion.
    QString SelText() const;
    void setSelText(const QString &text);

    // A getter is true only when every selected character has the attribute (with no selection,
    // when the caret's formatting has it). A setter formats the selection, or the caret's
    // formatting for what is typed next.
    bool SelBold() const;
    void setSelBold(bool on);
    bool SelItalic() const;
    void setSelItalic(bool on);
    bool SelUnderline() const;
    void setSelUnderline(bool on);
    bool SelStrikeThru() const;
    void setSelStrikeThru(bool on);
    // The colour of the selection, or an invalid colour when it mixes colours.
    QColor SelColor() const;
    void setSelColor(const QColor &color);

    // Finds text from start (a Text() position) up to end (-1: the end of the text); returns the
    // position of the match or -1. A match is selected unless rtfNoHighlight is given. The search
    // ignores case unless rtfMatchCase is given; rtfWholeWord wants no letter or digit on either
    // side of the match.
    int Find(const QString &text, int start = 0, int options = 0, int end = -1);

    // Extends the selection over the characters in the set (or, negated, over those not in it):
    // forward from its end, or backward from its start. A span crosses a paragraph break only
    // when the set names "\r" and is not negated.
    void Span(const QString &characterSet, bool forward = true, bool negate = false);
    // Moves the caret forward or backward up to the first character in the set (or not in it).
    void UpTo(const QString &characterSet, bool forward = true, bool negate = false);

    // A locked view cannot be edited but its text can still be selected and copied.
    bool Locked() const;
    void setLocked(bool locked);

    // The view's default font and colours, used by text that carries no font of its own.
    QString FontName() const;
    void setFontName(const QString &name);
    double FontSize() const;
    void setFontSize(double points);
    bool FontBold() const;
    void setFontBold(bool on);
    bool FontItalic() const;
    void setFontItalic(bool on);
    QColor BackColor() const;
    void setBackColor(const QColor &color);
    QColor ForeColor() const;
    void setForeColor(const QColor &color);

    // Loads a rich-text or plain-text file into the view; false when it cannot be read.
    bool LoadFile(const QString &path);

    // Conversions between Text() positions and document positions.
    int textPosition(int documentPosition) const;
    int documentPosition(int textPosition) const;

protected:
    // A click makes the view's window the active one, so that what is typed next goes where the
    // reader clicked.
    void mousePressEvent(QMouseEvent *event) override;

private:
    struct PlainView
    {
        QString text;
        // Document positions of the characters shown as CR LF (two units instead of one).
        std::vector<int> doubles;
    };
    PlainView plainView() const;
    static int toText(const PlainView &view, int documentPosition);
    static int toDocument(const PlainView &view, int textPosition, bool roundUp);
    void selectDocumentRange(int anchor, int position);
    template <typename Test> bool wholeSelection(Test test) const;
    void mergeSelectionFormat(const QTextCharFormat &format);
};

} // namespace platform
