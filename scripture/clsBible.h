#pragma once

#include <QString>
#include <array>

// What a fetch found: the text and the passage it came from. A failed book look-up leaves the
// numbers of the passage before it and only says so through the testament.
struct Passage
{
    static constexpr int NotFound = 5;

    QString text;
    // 0 first testament, 1 second, NotFound when the last book asked for was not found.
    int testament = NotFound;
    int bookNumber = 0;
    QString book; // upper-cased full name
    int chapterFrom = 0;
    int chapterTo = 0;
    int verseFrom = 0;
    int verseTo = 0;
    // The book file or a map could not be read (the user has been told).
    bool readFailed = false;

    bool found() const { return testament == 0 || testament == 1; }
    // The passage as a reference: JOHN 3:16, JOHN 3:16-18, JOHN 3-4, JOHN 3:16-4:2.
    QString Standard() const;
};

// The one object through which the program reads scripture: a translation folder (or a commentary
// or notes folder in the same layout), its table of books from the two book maps, the last passage
// fetched, and the two output settings that shape passage text.
class clsBible
{
public:
    static constexpr int MaxBooks = 100;
    static constexpr int NotFound = Passage::NotFound;

    // The translation folder, always ending in a separator. Setting it loads both book maps.
    QString VersionPath() const { return m_versionPath; }
    void setVersionPath(const QString &path);

    bool InTextReference() const { return m_inTextReference; }
    void setInTextReference(bool on) { m_inTextReference = on; }

    int OldTestamentCount() const { return m_oldTestamentCount; }
    int NewTestamentCount() const { return m_newTestamentCount; }
    int BooksCount() const { return m_booksCount; }

    QString Separator() const { return m_separator; }
    void setSeparator(const QString &separator) { m_separator = separator; }

    QString VersionInitial() const { return m_versionInitial; }
    void setVersionInitial(const QString &initial) { m_versionInitial = initial; }

    // The record of the last passage this store was moved to by passage() or
    // Passagebystandard(): 0 first testament, 1 second, 5 when the last book asked for was not
    // found. Only the window that owns the store moves it; everybody else fetches.
    int Testament() const { return m_last.testament; }
    int BookNumber() const { return m_last.bookNumber; }
    QString CurrentBook() const { return m_last.book; }
    int CurrentChapter() const { return m_last.chapterFrom; }

    // The trimmed name of a book; the number is clamped to 1..BooksCount.
    QString BookName(int number) const;
    // The chapter count of a book, clamped the same way.
    int Chapters(int number) const;

    // The last passage as a reference: JOHN 3:16, JOHN 3:16-18, JOHN 3-4, JOHN 3:16-4:2.
    QString Standard() const { return m_last.Standard(); }

    // A list of references separated by ",", fetched without moving the store: the text of all
    // of them, and the last one's passage. A first item of bare numbers continues the book of
    // the store's last passage.
    Passage Fetch(const QString &references) const { return Fetch(references, m_inTextReference); }
    Passage Fetch(const QString &references, bool inTextReference) const;
    // One passage, fetched without moving the store; verse 0 means the whole chapter, chapterTo
    // 0 the same chapter.
    Passage FetchPassage(const QString &book, int chapterFrom, int verseFrom = 0, int chapterTo = 0,
                         int verseTo = 0) const;

    // The same, moving the store's record to what was fetched: for the window that shows it.
    Passage MoveTo(const QString &references);
    Passage MoveToPassage(const QString &book, int chapterFrom, int verseFrom = 0,
                          int chapterTo = 0, int verseTo = 0);
    QString Passagebystandard(const QString &references) { return MoveTo(references).text; }
    QString passage(const QString &book, int chapterFrom, int verseFrom = 0, int chapterTo = 0,
                    int verseTo = 0);

    // Books by testament (0 the first, 1 the second), as the window lists them.
    int FirstBookOfTestament(int testament) const;
    int LastBookOfTestament(int testament) const;
    int TestamentOfBook(int book) const;
    // The book shown in a testament's list at a 0-based row; 0 when the row is not in the list.
    int BookByRow(int testament, int row) const;
    // The 0-based row of a book within its testament's list; -1 for no book.
    int RowOfBook(int book) const;
    // The number of the book of exactly this name (trimmed, any case); 0 when there is none.
    // Unlike a passage it leaves the last passage as it was.
    int BookByName(const QString &name) const;

    // The testament folders: index 0 the first testament, 1 the second, each ending in a separator.
    QString TestamentFolder(int index) const { return m_testamentFolders[index & 1]; }

    // The book file of a book number, as the searches open it.
    QString BookFilePath(int number) const;

    // Whether the last map load or passage read failed (the user has been told).
    bool LastReadFailed() const { return m_lastReadFailed; }

private:
    struct BookRecord
    {
        QString name; // fixed 30 characters, as the map gives it
        int chapters = 0;
        QString fileName; // the book file's name as it is on disk ("GENESIS.dat"); empty if none
    };

    bool lookUpBook(QString &name, Passage &record) const;
    bool loadMap(int testament, int &row);
    // Reads one passage into the record as the store's passage steps say; returns its text.
    QString read(Passage &record, QString book, int chapterFrom, int verseFrom, int chapterTo,
                 int verseTo, bool inTextReference) const;
    QString readOne(Passage &record, const QString &reference, bool inTextReference) const;
    // Makes a fetch the store's last passage.
    Passage remember(Passage fetched);

    QString m_versionPath;
    std::array<QString, 2> m_testamentFolders;
    QString m_versionInitial;
    Passage m_last; // without its text
    QString m_separator = QStringLiteral("\r\n");
    bool m_inTextReference = true;
    int m_oldTestamentCount = 39;
    int m_newTestamentCount = 27;
    int m_booksCount = 66;
    std::array<BookRecord, MaxBooks> m_books;
    bool m_lastReadFailed = false;
};
