#pragma once

#include "scripture/AdvancedSearch.h"
#include "scripture/BookScan.h"
#include "scripture/FoundVerses.h"

#include <QStringList>
#include <QWidget>

class BookHitsChart;
class FoundVerseDelegate;
class MainWindowLink;
class SearchQuery;
class clsBible;
namespace platform {
class InputOnlyTo;
}
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
//
// Beside the three word modes it searches by the query language, in further installed
// translations at once (their verses listed with the open one's, a reference's verses together),
// and shows what it found: marked in the list and in the passage, counted per book in a chart whose
// bars keep the list to one book, searched again within, exported as text or CSV, and stopped.
class frmSearch : public QWidget
{
    Q_OBJECT

public:
    frmSearch(MainWindowLink &main, QWidget *parent = nullptr);

public slots:
    void cmdSearch_Click();
    void cmdShowVerse_Click();
    void cmdShowAll_Click();
    void cmdStop_Click();
    void cmdExport_Click();
    void cmdClearFilter_Click();

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
    // What a search of one kind found over the translations (folder names, the open one first).
    struct Outcome
    {
        QList<FoundVerse> verses;
        QString title;
        QString failure;
        bool stopped = false;
    };
    Outcome runWords(const QStringList &folders, const AdvancedSearch::Options &options,
                     platform::InputOnlyTo &onlyHere);
    Outcome runQuery(const SearchQuery &query, const QStringList &folders,
                     const AdvancedSearch::Options &options, platform::InputOnlyTo &onlyHere);
    // The installed translations other than the open one, to tick for searching too.
    void listTranslations();
    // The results found, in the list and the chart, every book shown.
    void showFound();
    // Keeps the list to one book (0: every book).
    void filterToBook(int book);
    // The verses the list shows, in its order.
    QList<FoundVerse> shownVerses() const;
    // The open translation's folder name.
    QString openFolder() const;

    MainWindowLink &m_main;
    bool m_running = false;
    // The last search's query, for the title of "Show All".
    QString m_lastQuery;
    // Every verse of the last search, a list row each; what to mark in them; the book the list is
    // kept to (0 for none).
    QList<FoundVerse> m_found;
    SpanFinder m_marks;
    int m_filterBook = 0;
    int m_translationsSearched = 1;
    bool m_stopRequested = false;

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
    QRadioButton *optQuery = nullptr;
    QCheckBox *chkWithin = nullptr;
    QListWidget *lstTranslations = nullptr;
    QPushButton *cmdStop = nullptr;
    QPushButton *cmdExport = nullptr;
    QPushButton *cmdClearFilter = nullptr;
    BookHitsChart *picChart = nullptr;
    FoundVerseDelegate *m_delegate = nullptr;
    WindowPlacement *m_placement = nullptr;
};
