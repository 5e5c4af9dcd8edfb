#pragma once

#include "library/DataFiles.h"
#include "library/ReferenceLists.h"
#include "library/ToolWindow.h"

#include <QString>

class MainWindowLink;
class QHBoxLayout;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTabWidget;
class WindowPlacement;

// What tells the topics window from the stories window: its file, its names and what it keeps.
struct ReferenceListWindowTexts
{
    DataFiles::File file;
    QString objectName; // the window's own name, e.g. "frmTopics"
    QString caption;
    QString section;    // its section of "window.ini"
    int placementParts; // what it keeps besides its tab (WindowPlacement::Part flags)
    QString listName;   // the object name of the list of names
    QString listTip;
    QString queryTip;      // the query box's tooltip
    QString browseCaption; // the first tab's caption
};

// A window over a list of named references: a tab strip "SSTab1" with the whole list of names on
// its first tab and a search of the names on its second (query box, Search, results). A result
// selects its entry in the list, which runs the list's own click; what that click does is the
// window's own. Closing it deletes it, so the next opening reads the file afresh.
class ReferenceListWindow : public ToolWindow
{
    Q_OBJECT

protected:
    ReferenceListWindow(const ReferenceListWindowTexts &texts, MainWindowLink &main,
                        QWidget *parent);

    // The entry selected in the list of names, counted from 1 as the file counts its records;
    // 0 when none is.
    int selectedRecord() const;
    // What selecting an entry does; record counts from 1.
    virtual void nameSelected(int record) = 0;

    // Lays a control to the right of the tab strip, so that it shows whichever tab is up.
    void addBesideTabs(QWidget *pane);

    MainWindowLink &main() { return m_main; }
    const NamedReferences &entries() const { return m_entries; }
    QListWidget *nameList() const { return m_names; }

private slots:
    void cmdSearch_Click();
    void lstResults_Click();
    void nameList_Click();

private:
    void Form_Load();

    const ReferenceListWindowTexts m_texts;
    MainWindowLink &m_main;
    NamedReferences m_entries;

    QTabWidget *SSTab1 = nullptr;
    QListWidget *m_names = nullptr;
    QLineEdit *txtQuery = nullptr;
    QPushButton *cmdSearch = nullptr;
    QListWidget *lstResults = nullptr;
    QHBoxLayout *m_layout = nullptr;
    WindowPlacement *m_placement = nullptr;
};
