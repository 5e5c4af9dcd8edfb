#pragma once

#include "library/DataFiles.h"

#include <QString>
#include <QWidget>

class WindowPlacement;
struct DisplaySettings;

// The frame every tool window of the main window shares: a window of its own over the main
// window, named and captioned, deleted when it is closed so that the next opening reads its data
// afresh. Each window loads in the same order: the look of the options on its controls, then its
// data file (a missing one is told once and the window opens empty), then its saved place.
class ToolWindow : public QWidget
{
    Q_OBJECT

protected:
    ToolWindow(const QString &objectName, const QString &caption, QWidget *parent);

    // The look of the options, to style the controls with.
    static DisplaySettings &look();
    // Tells the user a data file is missing: by its path, or by its quoted name.
    static void reportMissing(const QString &path);
    static void reportMissing(DataFiles::File file);

    // Keeps the window's place (the parts given) in its section of "window.ini". A window that
    // keeps no position of its own opens centred over the main window instead of wherever the
    // window manager puts it. The saved place is taken by restore(), once everything else it
    // keeps (tabs, splitters) has been added.
    WindowPlacement *keepPlace(const QString &section, int parts);
};
