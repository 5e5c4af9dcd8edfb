#pragma once

#include "scripture/BookScan.h"

#include <QStringList>
#include <QWidget>

class MainWindowLink;
class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QRadioButton;
class WindowPlacement;

// "Search": the advanced search over the books the reader chooses, by any word, all words or the
// exact phrase. A result is shown in the main window by "Show Verse" (or a double click); "Show
// All" shows every result's verse there one after another. The window keeps its place and the
// books chosen in the section "search" of "window.ini". Closing it deletes it.
class frmSearch : public QWidget
{
    Q_OBJECT

public:
    frmSearch(MainWindowLink &main, QWidget *parent = nullptr);

public slots:
    void cmdSearch_Click();
    void cmdShowVerse_Click();
    void cmdShowAll_Click();

protected:
    void closeEvent(QCloseEvent *event) override;

private slots:
    void chkOldTestament_Click();
    void chkNewTestament_Click();

private:
    void Form_Load();
    // Chooses or clears every book of one testament (0 or 1).
    void chooseTestament(int testament, bool chosen);
    // Whether every book of the testament is chosen, for its check box.
    void showTestamentChoice();

    MainWindowLink &m_main;
    bool m_running = false;
    // What the last search found, kept for "Show All": the query and each verse's line.
    QString m_lastQuery;
    QList<SearchHit> m_lastHits;

    QLineEdit *txtQuery = nullptr;
    QRadioButton *optAnyWord = nullptr;
    QRadioButton *optAllWords = nullptr;
    QRadioButton *optExact = nullptr;
    QCheckBox *chkWordSearch = nullptr;
    QListWidget *lstBooks = nullptr;
    QCheckBox *chkOldTestament = nullptr;
    QCheckBox *chkNewTestament = nullptr;
    QListWidget *lstResults = nullptr;
    QLabel *lbltitle = nullptr;
    QProgressBar *picProgress = nullptr;
    QPushButton *cmdSearch = nullptr;
    QPushButton *cmdShowVerse = nullptr;
    QPushButton *cmdShowAll = nullptr;
    WindowPlacement *m_placement = nullptr;
};
