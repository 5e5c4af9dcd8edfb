#pragma once

#include "library/ReferenceLists.h"
#include "library/ToolWindow.h"

class MainWindowLink;
class QListWidget;
class WindowPlacement;
namespace platform {
class RichTextBox;
}

// The prophecies of the Old Testament, each shown beside its fulfilment in the New. The window
// keeps its place in the section "prophecy" of "window.ini". Closing it deletes it.
class frmProphecies : public ToolWindow
{
    Q_OBJECT

public:
    frmProphecies(MainWindowLink &main, QWidget *parent = nullptr);

private slots:
    void lstProphecies_Click();

private:
    void Form_Load();

    MainWindowLink &m_main;
    Prophecies m_list;

    QListWidget *lstProphecies = nullptr;
    platform::RichTextBox *rtfOld = nullptr;
    platform::RichTextBox *rtfNew = nullptr;
};
