#include "library/ToolWindow.h"

#include "settings/ProgramSettings.h"
#include "settings/WindowPlacement.h"

ToolWindow::ToolWindow(const QString &objectName, const QString &caption, QWidget *parent)
    : QWidget(parent, Qt::Window)
{
    setObjectName(objectName);
    if (!caption.isEmpty())
        setWindowTitle(caption);
    setAttribute(Qt::WA_DeleteOnClose);
}

DisplaySettings &ToolWindow::look()
{
    return ProgramSettings::instance().display;
}

void ToolWindow::reportMissing(const QString &path)
{
    DataFiles::ReportMissing(path);
}

void ToolWindow::reportMissing(DataFiles::File file)
{
    DataFiles::ReportMissing(QLatin1Char('\'') + DataFiles::Name(file) + QLatin1Char('\''));
}

WindowPlacement *ToolWindow::keepPlace(const QString &section, int parts)
{
    auto *placement = new WindowPlacement(this, section, parts);
    if (!(parts & WindowPlacement::Position))
        WindowPlacement::CentreOver(this, parentWidget());
    return placement;
}
