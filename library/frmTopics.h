#pragma once

#include "library/ReferenceListWindow.h"

// "Bible Topics": every topic of "topics.dat", browsed or searched by name. Selecting a topic
// shows the text of all its references, one after another, in the main window under the title
// "name - references". The window keeps only its tab, in the section "topics" of "window.ini".
class frmTopics : public ReferenceListWindow
{
    Q_OBJECT

public:
    frmTopics(MainWindowLink &main, QWidget *parent = nullptr);

protected:
    void nameSelected(int record) override;
};
