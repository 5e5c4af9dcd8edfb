#include "SettingsCommand.h"

#include "CliOutput.h"
#include "platform/WinColor.h"
#include "scripture/basStrings.h"
#include "settings/SettingsRecords.h"

namespace cli {

namespace {

QString ColorText(qint32 value)
{
    const QString name = platform::SystemColorName(value);
    if (!name.isEmpty())
        return name;
    // A system colour without a name is shown as the value the file holds.
    if (static_cast<quint32>(value) & 0x80000000u)
        return QStringLiteral("0x%1").arg(static_cast<quint32>(value), 8, 16, QLatin1Char('0'));
    return platform::WindowsColorHexName(value);
}

QString Flag(qint16 value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

void Line(const QString &key, const QString &value)
{
    out(key + u'=' + value + u'\n');
}

void StyleLines(const QString &area, TextStyle style)
{
    Line(area + QStringLiteral(".font"), style.trimFontName());
    Line(area + QStringLiteral(".size"), QString::number(style.FontSize));
    Line(area + QStringLiteral(".bold"), Flag(style.FontBold));
    Line(area + QStringLiteral(".italic"), Flag(style.FontItalic));
    Line(area + QStringLiteral(".forecolor"), ColorText(style.ForeColor));
    Line(area + QStringLiteral(".backcolor"), ColorText(style.BackColor));
}

} // namespace

int SettingsCommand(const QString &programFolder)
{
    GeneralSettings general;
    if (!general.read(basStrings::JoinPath(programFolder, QStringLiteral("general.cfg"))))
        err(QStringLiteral(
            "'general.cfg' is missing or too short: the general options are the defaults."));
    DisplaySettings display;
    if (!display.read(basStrings::JoinPath(programFolder, QStringLiteral("display.cfg"))))
        err(QStringLiteral("'display.cfg' is missing or too short: the look is the default one."));

    Line(QStringLiteral("linebreaks"), Flag(general.lineBreaks));
    Line(QStringLiteral("maxsearchresults"), QString::number(general.maxSearchResults));
    StyleLines(QStringLiteral("navigation"), display.navigation);
    StyleLines(QStringLiteral("passage"), display.passage);
    StyleLines(QStringLiteral("title"), display.title);
    Line(QStringLiteral("rightclickcolor"), ColorText(display.RightClickColor));
    return Ok;
}

} // namespace cli
