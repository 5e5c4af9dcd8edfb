#pragma once

#include <QObject>
#include <QString>

class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QSplitter;
class QWidget;
class clsBible;
struct DisplaySettings;
struct Passage;

// The ways to a passage: the testament, book and chapter lists, the reference and keyword boxes
// with their buttons, and the title over the reading area. It fills the lists from the store
// and says what the reader chose; the main window fetches and shows.
class NavigatorPane : public QObject
{
    Q_OBJECT

public:
    NavigatorPane(const clsBible &translation, QWidget *window);

    // The header row (testament choice and title), the two lists, and the boxes at the bottom.
    QWidget *header() const { return m_header; }
    void addLists(QSplitter *splitter);
    QFrame *boxes() const { return Frame1; }
    QLabel *title() const { return lbltitle; }
    QProgressBar *progress() const { return picProgress; }

    QString reference() const;
    void setReference(const QString &text);
    QString query() const;
    void setQuery(const QString &text);
    void focusQuery();
    bool wholeWords() const;
    bool updatesLists() const;
    QString chosenBook() const;

    // The testaments' labels, from the translation's description.
    void setTestaments(const QString &first, const QString &second);
    // The first chapter of the first book chosen, as the window shows on opening.
    void chooseFirstChapter();
    // Book and chapter of a passage marked in the lists, without choosing the chapter again.
    void markPassage(const Passage &passage);
    // A book (and chapter, when the book has it) chosen, as the reader would.
    void choose(int book, int chapter);
    void applyLook(DisplaySettings &display);
    // Keeps the testament choice over the lists and the title over the reading area.
    void placeHeader(const QSplitter *splitter);

signals:
    void chapterChosen(const QString &book, int chapter);
    void referenceEntered();
    void searchRequested();
    void advancedSearchRequested();
    void copyRequested();

private slots:
    void cmbTestaments_Click();
    void lstBooks_Click();
    void lstChapters_Click();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    int testament() const;

    const clsBible &m_bible;
    QWidget *m_header = nullptr;
    QComboBox *cmbTestaments = nullptr;
    QLabel *lbltitle = nullptr;
    QListWidget *lstBooks = nullptr;
    QListWidget *lstChapters = nullptr;
    QFrame *Frame1 = nullptr;
    QLineEdit *txtReference = nullptr;
    QPushButton *cmdGet = nullptr;
    QCheckBox *chkUpdateList = nullptr;
    QPushButton *cmdCopy = nullptr;
    QLineEdit *txtQuery = nullptr;
    QPushButton *cmdSearch = nullptr;
    QCheckBox *chkWordSearch = nullptr;
    QPushButton *cmdAdvanced = nullptr;
    QProgressBar *picProgress = nullptr;
};
