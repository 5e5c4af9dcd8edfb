#pragma once

#include "library/ReferenceListWindow.h"

// "Famous Bible Stories": every story of "stories.dat", browsed or searched by name. Selecting a
// story lists its references beside the tabs; clicking one shows that passage in the main window
// under the title "story - reference". The window keeps its tab and place in the section
// "stories" of "window.ini".
class frmStories : public ReferenceListWindow
{
    Q_OBJECT

public:
    frmStories(MainWindowLink &main, QWidget *parent = nullptr);

protected:
    void nameSelected(int record) override;

private slots:
    void lstReferences_Click();

private:
    QListWidget *lstReferences = nullptr;
};
