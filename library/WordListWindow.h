#pragma once

#include "library/ToolWindow.h"
#include "library/WordList.h"

#include <QSize>
#include <QString>
#include <QStringList>

class QGridLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class WindowPlacement;

// What tells one word-list window from another: its file, its words and where it keeps its place.
struct WordListWindowTexts
{
    WordList::Kind kind;
    QString objectName; // the window's own name, e.g. "frmDictionary"
    QString caption;
    QString section;     // its section of "window.ini"
    QString wordLabel;   // the label over the word box, with its access key
    QString wordTip;     // the word box's tooltip
    QString listName;    // the object name of the list of headwords
    QString listTip;     // the list's tooltip
    QString notFound;    // the status after a look-up that found nothing
    QString countedWord; // what the background click counts: "There are N <word> in the database"
    QSize size;          // the first size, before any saved place
    // Whether a window whose file is missing still takes its saved place.
    bool placedWithoutFile = true;
};

// A window over one keyed word list: a word box with Find, every headword in a list that follows
// what is typed, the definition of the word looked up and a status line. Enter or a double-clicked
// headword looks the word up; a click on the bare background counts the headwords. Closing it
// deletes it, so the next opening reads the list afresh.
class WordListWindow : public ToolWindow
{
    Q_OBJECT

public:
    // The passage context menu's look-up: the word, trimmed of blanks, into the word box, then
    // pending window events run and the word is looked up.
    void FindWord(const QString &word);

protected:
    WordListWindow(const WordListWindowTexts &texts, QWidget *parent);

    // Shows a look-up's references; called with none as each look-up starts. Only the dictionary
    // has references to show.
    virtual void showReferences(const QStringList &references);
    // Lays a pane under the definition: the headword list then reaches down beside it, and the
    // status line moves below both.
    void addUnderDefinition(QWidget *pane);
    // Looks up the headword selected in the list, as a double-click on it does.
    void lookUpSelected();

    QLineEdit *wordBox() const { return txtWord; }
    QListWidget *headwordList() const { return m_list; }

    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

protected slots:
    void cmdFind_Click();
    void txtWord_Change();

private:
    void Form_Load();
    void Form_Click();

    const WordListWindowTexts m_texts;
    WordList m_words;
    QStringList m_headwords; // what the list shows, for the selection that follows typing

    QLineEdit *txtWord = nullptr;
    QPushButton *cmdFind = nullptr;
    QListWidget *m_list = nullptr;
    QPlainTextEdit *txtDefinition = nullptr;
    QLabel *lblStatus = nullptr;
    QGridLayout *m_layout = nullptr;
    WindowPlacement *m_placement = nullptr;
};
