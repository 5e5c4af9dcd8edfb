#include "settings/basSettings.h"

#include "platform/WinQColor.h"
#include "settings/Look.h"

#include <QApplication>
#include <QStyle>

#include <QFont>
#include <QPalette>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextEdit>
#include <QWidget>

#include <optional>

namespace {

QPalette darkPalette()
{
    const QColor window(0x2B, 0x2B, 0x2B);
    const QColor base(0x1E, 0x1E, 0x1E);
    const QColor text(0xE3, 0xE3, 0xE3);
    const QColor dimmed(0x8C, 0x8C, 0x8C);
    QPalette p;
    p.setColor(QPalette::Window, window);
    p.setColor(QPalette::WindowText, text);
    p.setColor(QPalette::Base, base);
    p.setColor(QPalette::AlternateBase, QColor(0x26, 0x26, 0x26));
    p.setColor(QPalette::ToolTipBase, QColor(0x3A, 0x3A, 0x3A));
    p.setColor(QPalette::ToolTipText, text);
    p.setColor(QPalette::PlaceholderText, dimmed);
    p.setColor(QPalette::Text, text);
    p.setColor(QPalette::Button, QColor(0x35, 0x35, 0x35));
    p.setColor(QPalette::ButtonText, text);
    p.setColor(QPalette::BrightText, QColor(0xFF, 0x80, 0x80));
    p.setColor(QPalette::Light, QColor(0x4A, 0x4A, 0x4A));
    p.setColor(QPalette::Midlight, QColor(0x3F, 0x3F, 0x3F));
    p.setColor(QPalette::Mid, QColor(0x30, 0x30, 0x30));
    p.setColor(QPalette::Dark, QColor(0x1A, 0x1A, 0x1A));
    p.setColor(QPalette::Shadow, QColor(0x0A, 0x0A, 0x0A));
    p.setColor(QPalette::Highlight, QColor(0x3A, 0x6E, 0xA5));
    p.setColor(QPalette::HighlightedText, QColor(0xFF, 0xFF, 0xFF));
    p.setColor(QPalette::Link, QColor(0x8A, 0xB4, 0xF8));
    p.setColor(QPalette::LinkVisited, QColor(0xC5, 0x8A, 0xF9));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        p.setColor(QPalette::Disabled, role, dimmed);
    return p;
}

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
    const TextStyle shown = Look::Shown(style);
    setBackground(control, platform::WindowsColorToQColor(shown.BackColor));
    setForeground(control, platform::WindowsColorToQColor(shown.ForeColor));
    setFont(control, style);
}

void ApplyRichTextStyle(QTextEdit *view, TextStyle &style)
{
    if (!view)
        return;
    const TextStyle shown = Look::Shown(style);
    const QColor foreColor = platform::WindowsColorToQColor(shown.ForeColor);

    // Background.
    QPalette palette = view->palette();
    palette.setColor(QPalette::Base, platform::WindowsColorToQColor(shown.BackColor));
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

bool ApplyLookScheme(int setting)
{
    // The desktop's own palette, as the program found it before putting a look of its own on.
    static std::optional<QPalette> system;
    if (!system)
        system = QApplication::palette();
    const QRgb window = system->color(QPalette::Window).rgb() & 0xFFFFFF;
    const Look::Scheme scheme = Look::SchemeFromSetting(setting);
    const bool dark = Look::IsDark(scheme, window);
    Look::SetDarkShown(dark);
    QPalette palette = *system;
    if (scheme != Look::Scheme::FollowSystem &&
        dark != Look::IsDark(Look::Scheme::FollowSystem, window))
        palette = dark ? darkPalette() : QApplication::style()->standardPalette();
    // Setting the palette repaints every window; the same one again is spared.
    if (QApplication::palette() != palette)
        QApplication::setPalette(palette);
    return dark;
}
