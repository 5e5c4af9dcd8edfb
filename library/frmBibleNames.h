#pragma once

#include "library/WordListWindow.h"

class MainWindowLink;

// "Penlowe's Bible Names Dictionary": every name of "names.dat" in a list that follows what is
// typed, and the meaning of the name looked up. Without its file it says so as it opens and opens
// empty, without its saved place. It keeps its place in the section "biblenames" of "window.ini".
class frmBibleNames : public WordListWindow
{
    Q_OBJECT

public:
    // The names window sends nothing to the main window; it takes the link as the other reference
    // windows do.
    frmBibleNames(MainWindowLink &main, QWidget *parent = nullptr);

private slots:
    void lstNames_DblClick();
};
