#pragma once

#include "library/WordList.h"

#include <QStringList>
#include <QWidget>

class MainWindowLink;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class WindowPlacement;

// "Dictionary": every headword of "Dictionary.dat" in a list that follows what is typed, the
// definition of the word looked up and the passages it is found in; a double-clicked passage is
// shown in the main window, and this window stays open. It keeps its place in the section
// "dictionary" of "window.ini". Closing it deletes it, so the next opening reads the list afresh.
class frmDictionary : public QWidget
{
    Q_OBJECT

public:
    frmDictionary(MainWindowLink &main, QWidget *parent = nullptr);

    // The passage context menu's look-up: the word, trimmed of blanks, into the word box, then
    // pending window events run and the word is looked up.
    void FindWord(const QString &word);

private slots:
    void cmdFind_Click();
    void txtWord_Change();
    void lstWords_DblClick();
    void lstReferences_DblClick();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void Form_Click();
    void txtWord_KeyDown(int key);

    MainWindowLink &m_main;
    WordList m_words;
    QStringList m_headwords; // what lstWords shows, for the selection that follows typing

    QLineEdit *txtWord = nullptr;
    QPushButton *cmdFind = nullptr;
    QListWidget *lstWords = nullptr;
    QPlainTextEdit *txtDefinition = nullptr;
    QListWidget *lstReferences = nullptr;
    QLabel *lblStatus = nullptr;
    WindowPlacement *m_placement = nullptr;
};
