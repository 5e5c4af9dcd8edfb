#pragma once

#include "library/ReferenceLists.h"

#include <QRandomGenerator>
#include <QString>
#include <QWidget>

class MainWindowLink;
class QCheckBox;
class QPlainTextEdit;
class QPushButton;

// "Verse of the Day": one verse drawn at random from the references of "verses.dat", fetched from
// the open translation; "Next Verse" draws another (the same one may come twice). The list is read
// each time the window opens. The check box decides whether the window opens after a translation
// has been loaded ("show" of the section "verseofday"). Closing the window deletes it.
class frmVerseOfDay : public QWidget
{
    Q_OBJECT

public:
    // showAtStartup: the saved "show" value the check box is set from (non-zero: checked).
    frmVerseOfDay(MainWindowLink &main, int showAtStartup, QWidget *parent = nullptr);

    // Reads the list and shows a first random verse; false when the file is not there.
    bool LoadVerses(const QString &path);
    // Draws a line of the list and shows it.
    void NextVerse();
    // Shows the current line; nothing happens when the list is empty.
    void ShowVerse();

    // The line shown, counted from 1.
    int CurrentIndex() const { return m_index; }

private slots:
    void chkLoadVerseAtStartup_Click();

private:
    void Form_Load();

    MainWindowLink &m_main;
    VerseList m_verses;
    int m_index = 1;
    QRandomGenerator m_random;

    QPlainTextEdit *txtVerse = nullptr;
    QCheckBox *chkLoadVerseAtStartup = nullptr;
    QPushButton *cmdNextverse = nullptr;
    QPushButton *cmdOK = nullptr;
};
