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

// "Penlowe's Bible Names Dictionary": every name of "names.dat" in a list that follows what is
// typed, and the meaning of the name looked up. Unlike the dictionary it tests its file as it
// opens and says so when the file is missing. It keeps its place in the section "biblenames" of
// "window.ini". Closing it deletes it, so the next opening reads the list afresh.
class frmBibleNames : public QWidget
{
    Q_OBJECT

public:
    // The names window sends nothing to the main window; it takes the link as the other reference
    // windows do.
    frmBibleNames(MainWindowLink &main, QWidget *parent = nullptr);

    // The passage context menu's look-up: the name, trimmed of blanks, into the word box, then
    // pending window events run and the name is looked up.
    void FindWord(const QString &word);

private slots:
    void cmdFind_Click();
    void txtWord_Change();
    void lstNames_DblClick();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void Form_Click();

    WordList m_names;
    QStringList m_headwords; // what lstNames shows, for the selection that follows typing

    QLineEdit *txtWord = nullptr;
    QPushButton *cmdFind = nullptr;
    QListWidget *lstNames = nullptr;
    QPlainTextEdit *txtDefinition = nullptr;
    QLabel *lblStatus = nullptr;
    WindowPlacement *m_placement = nullptr;
};
