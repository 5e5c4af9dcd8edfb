#include "settings/basSettings.h"

#include "platform/WinQColor.h"

#include <QFont>
#include <QPalette>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextEdit>
#include <QWidget>

namespace {

void setBackground(QWidget *control, const QColor &color)
{
    QPalette palette = control->palette();
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button})
        palette.setColor(role, color);
    control->setPalette(palette);
    // A label paints no background of its own unless asked to.
    control->setAutoFillBackground(true);
}

void setForeground(QWidget *control, const QColor &color)
{
    QPalette palette = control->palette();
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, color);
    control->setPalette(palette);
}

// Name, size, bold and italic in that order. Qt ignores a size of 0 or less with a warning, so
// such a size leaves the control's size as it is; an empty name likewise leaves the family.
void setFont(QWidget *control, TextStyle &style)
{
    QFont font = control->font();
    const QString name = style.trimFontName();
    if (!name.isEmpty())
        font.setFamily(name);
    if (style.FontSize > 0)
        font.setPointSize(style.FontSize);
    font.setBold(style.FontBold != 0);
    font.setItalic(style.FontItalic != 0);
    control->setFont(font);
}

} // namespace

void ApplyStyle(QWidget *control, TextStyle &style)
{
    if (!control)
        return;
    setBackground(control, platform::WindowsColorToQColor(style.BackColor));
    setForeground(control, platform::WindowsColorToQColor(style.ForeColor));
    setFont(control, style);
}

void ApplyRichTextStyle(QTextEdit *view, TextStyle &style)
{
    if (!view)
        return;
    const QColor foreColor = platform::WindowsColorToQColor(style.ForeColor);

    // Background.
    QPalette palette = view->palette();
    palette.setColor(QPalette::Base, platform::WindowsColorToQColor(style.BackColor));
    // Text loaded later without a colour of its own shows in the chosen colour too.
    palette.setColor(QPalette::Text, foreColor);
    view->setPalette(palette);

    // Font name, size, bold, italic.
    setFont(view, style);

    // An empty view gets one blank so that the colour has something to hold on to.
    QTextCursor cursor(view->document());
    if (view->document()->isEmpty())
        cursor.insertText(QStringLiteral(" "));

    // Select everything and colour it.
    QTextCharFormat color;
    color.setForeground(foreColor);
    cursor.select(QTextCursor::Document);
    cursor.mergeCharFormat(color);

    // Take the blank out again; the colour stays with the empty paragraph and the caret.
    if (view->document()->toPlainText() == QStringLiteral(" ")) {
        cursor.removeSelectedText();
        cursor.mergeBlockCharFormat(color);
        view->setTextCursor(cursor);
    }
}
