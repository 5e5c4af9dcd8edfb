#pragma once

#include "library/StrongsLexicon.h"
#include "library/ToolWindow.h"

class MainWindowLink;
class QCheckBox;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QTabWidget;
class WindowPlacement;

// "Strong's Lexicon": Hebrew (tab 0) and Greek (tab 1) entries found by number or by the beginning
// of the word. Each tab's list is read when the tab is first shown; an entry is read from the data
// file when it is shown. "Find All Occurrences" asks the main window for every verse that carries
// the selected entry's number. The window keeps its tab, place and "highlightword" in the section
// "strong" of "window.ini". Closing it deletes it.
class frmStrongLexicon : public ToolWindow
{
    Q_OBJECT

public:
    frmStrongLexicon(MainWindowLink &main, QWidget *parent = nullptr);

    // The passage context menu's look-up of a Strong's number: "H430" shows the Hebrew tab with
    // 430 in its word box and runs its Find; any other text the Greek tab with the text after its
    // first character.
    void ShowNumber(const QString &strongNumber);

private slots:
    void SSTab1_Click();
    void cmdFind_Click();
    void cmdFindGreek_Click();
    void lstHebrewWords_DblClick();
    void lstGreekWords_DblClick();
    void txtHebrewWord_Change();
    void txtGreekWord_Change();
    void cmdFindAllHeb_Click();
    void cmdFindAllGreek_Click();

protected:
    void hideEvent(QHideEvent *event) override;

private:
    using Language = StrongsLexicon::Language;

    // The controls of one tab.
    struct Tab
    {
        QLineEdit *word = nullptr;
        QPushButton *find = nullptr;
        QListWidget *list = nullptr;
        QPlainTextEdit *definition = nullptr;
        QPushButton *findAll = nullptr;
    };

    QWidget *buildTab(Tab &tab, const char *word, const char *find, const char *list,
                      const char *definition, const char *findAll);
    Tab &tab(Language language) { return language == Language::Hebrew ? m_hebrew : m_greek; }
    int selectedRow(Language language);
    void fillList(Language language);
    void showEntry(Language language);
    void find(Language language);
    void highlight(Language language);
    void findAll(Language language);
    void txtHebrewDefinition_DblClick(const QString &selected);

    MainWindowLink &m_main;
    StrongsLexicon m_lexicon;
    Tab m_hebrew;
    Tab m_greek;
    QTabWidget *SSTab1 = nullptr;
    QCheckBox *chkHighlightWord = nullptr;
    WindowPlacement *m_placement = nullptr;
};
