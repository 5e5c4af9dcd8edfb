// The Bible text store and the reference parser, driven the way the window and the command line
// drive them, on small translation folders made for each test.
#include "../support/TranslationFixture.h"
#include "platform/MsgBoxAnswerer.h"
#include "scripture/clsBible.h"

#include <QTemporaryDir>
#include <QTest>

using namespace fixture;

class TestBible : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QString m_bible;
    platform::MsgBoxAnswerer m_answers;

    static QString verses(const QString &book, int chapter, int from, int to)
    {
        QString s;
        for (int v = from; v <= to; ++v)
            s += QStringLiteral("%1 Text of %2 %3:%4\r\n").arg(v).arg(book).arg(chapter).arg(v);
        return s;
    }

private slots:
    void initTestCase()
    {
        QList<Book> special = {
            {QStringLiteral("Genesis"), false,
             chapters(QStringLiteral("Genesis"), {31, 25, 24, 26, 32})},
            {QStringLiteral("Judges"), false, chapters(QStringLiteral("Judges"), {36, 23})},
            {QStringLiteral("John"), false, chapters(QStringLiteral("John"), {51, 25, 36, 54})},
            {QStringLiteral("1John"), false,
             chapters(QStringLiteral("1John"), {10, 29, 24, 21, 21})},
        };
        // A lower-case marker must still be found.
        special[2].lines.replace(special[2].lines.indexOf(QStringLiteral("CHAPTER 3")),
                                 QStringLiteral("chapter 3"));
        m_bible = makeTranslation(m_dir.path(), QStringLiteral("TEST"), wholeBible(special));
        // A book file that lost its first marker, and a small translation to count books in.
        makeTranslation(
            m_dir.path(), QStringLiteral("SMALL"),
            {{QStringLiteral("Genesis"), false, {"1 orphan verse", "CHAPTER 2", "1 x"}, 2},
             {QStringLiteral("Exodus"), false, chapters(QStringLiteral("Exodus"), {1})},
             {QStringLiteral("Mark"), true, chapters(QStringLiteral("Mark"), {1})}});
    }

    void counts()
    {
        clsBible bible;
        bible.setVersionPath(m_bible);
        QVERIFY(bible.VersionPath().endsWith(u'/'));
        QCOMPARE(bible.OldTestamentCount(), 39);
        QCOMPARE(bible.NewTestamentCount(), 27);
        QCOMPARE(bible.BooksCount(), 66);
        QCOMPARE(bible.BookName(40), QStringLiteral("Matthew"));
        QCOMPARE(bible.BookName(0), QStringLiteral("Genesis"));
        QCOMPARE(bible.BookName(500), QStringLiteral("Revelation"));
        QCOMPARE(bible.Chapters(43), 4);
    }

    void references_data()
    {
        QTest::addColumn<QString>("reference");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("standard");
        QTest::addColumn<int>("testament");

        const QString john3 =
            QStringLiteral("JOHN 3\r\n") + verses(QStringLiteral("John"), 3, 1, 36);
        QTest::newRow("abbreviation")
            << "JN 3:16"
            << "JOHN 3 \r\n" + verses("John", 3, 16, 16) << "JOHN 3:16" << 1;
        QTest::newRow("numbered, blank")
            << "1 JN 4:8"
            << "1JOHN 4 \r\n" + verses("1John", 4, 8, 8) << "1JOHN 4:8" << 1;
        QTest::newRow("numbered, joined")
            << "1JN 4:8"
            << "1JOHN 4 \r\n" + verses("1John", 4, 8, 8) << "1JOHN 4:8" << 1;
        QTest::newRow("name with blanks")
            << "Song of Solomon 2:1"
            << "SONG OF SOLOMON 2 \r\n" + verses("Song of Solomon", 2, 1, 1)
            << "SONG OF SOLOMON 2:1" << 0;
        QTest::newRow("verse range")
            << "John 3:16-18"
            << "JOHN 3 \r\n" + verses("John", 3, 16, 18) << "JOHN 3:16-18" << 1;
        QTest::newRow("across chapters")
            << "John 3:35-4:2"
            << "JOHN 3 \r\n" + verses("John", 3, 35, 36) + "JOHN 4\r\n" + verses("John", 4, 1, 2)
            << "JOHN 3:35-4:2" << 1;
        QTest::newRow("bare book") << "JOHN"
                                   << "JOHN 1\r\n" + verses("John", 1, 1, 51) << "JOHN 1" << 1;
        QTest::newRow("list continues the book")
            << "John 3:16,2"
            << "JOHN 3 \r\n" + verses("John", 3, 16, 16) + "JOHN 2\r\n" + verses("John", 2, 1, 25)
            << "JOHN 2" << 1;
        QTest::newRow("numbered book in a list")
            << "John 3:16,1John 4:8"
            << "JOHN 3 \r\n" + verses("John", 3, 16, 16) + "1JOHN 4 \r\n" + verses("1John", 4, 8, 8)
            << "1JOHN 4:8" << 1;
        QTest::newRow("chapter past the end")
            << "Gen 60"
            << "GENESIS 5\r\n" + verses("Genesis", 5, 1, 32) << "GENESIS 5" << 0;
        QTest::newRow("JUD is Judges")
            << "JUD 1:1"
            << "JUDGES 1 \r\n" + verses("Judges", 1, 1, 1) << "JUDGES 1:1" << 0;
        QTest::newRow("lower-case marker") << "john 3" << john3 << "JOHN 3" << 1;
        QTest::newRow("chapters") << "Judges 2-1"
                                  << "JUDGES 1\r\n" + verses("Judges", 1, 1, 36) + "JUDGES 2\r\n" +
                                         verses("Judges", 2, 1, 23)
                                  << "JUDGES 1-2" << 0;
        QTest::newRow("verse to the end of the chapter")
            << "John 4:53-"
            << "JOHN 4 \r\n" + verses("John", 4, 53, 53) << "JOHN 4:53" << 1;
        QTest::newRow("verse past the chapter") << "John 3:99"
                                                << ""
                                                << "JOHN 3" << 1;
        QTest::newRow("unknown book") << "Hezekiah 1:1"
                                      << ""
                                      << "" << 5;
        // An empty name is a prefix of every name: it reads as the first book, chapter 1.
        const QString genesis1 =
            QStringLiteral("GENESIS 1\r\n") + verses(QStringLiteral("Genesis"), 1, 1, 31);
        QTest::newRow("empty") << "" << genesis1 << "GENESIS 1" << 0;
        QTest::newRow("trailing comma")
            << "John 3:16,"
            << "JOHN 3 \r\n" + verses("John", 3, 16, 16) + genesis1 << "GENESIS 1" << 0;
    }

    void references()
    {
        QFETCH(QString, reference);
        QFETCH(QString, text);
        QFETCH(QString, standard);
        QFETCH(int, testament);
        clsBible bible;
        bible.setVersionPath(m_bible);
        QCOMPARE(bible.Passagebystandard(reference), text);
        QCOMPARE(bible.Testament(), testament);
        if (testament != clsBible::NotFound)
            QCOMPARE(bible.Standard(), standard);
    }

    void passageQuirks()
    {
        clsBible bible;
        bible.setVersionPath(m_bible);
        // Chapters given the wrong way round are swapped.
        QCOMPARE(
            bible.passage(QStringLiteral("Genesis"), 5, 0, 2, 0).count(QStringLiteral("GENESIS ")),
            4);
        QCOMPARE(bible.Standard(), QStringLiteral("GENESIS 2-5"));
        // A failed look-up keeps the last passage.
        QVERIFY(bible.passage(QStringLiteral("Nowhere"), 1).isEmpty());
        QCOMPARE(bible.Standard(), QStringLiteral("GENESIS 2-5"));
        QCOMPARE(bible.Testament(), 5);
        // Without in-text references the verses come alone, verse 1 included.
        bible.setInTextReference(false);
        QCOMPARE(bible.Passagebystandard(QStringLiteral("Genesis 1:1")),
                 verses("Genesis", 1, 1, 1));
        QCOMPARE(bible.Passagebystandard(QStringLiteral("John 3:36-4:1")),
                 verses("John", 3, 36, 36) + verses("John", 4, 1, 1));
        // With the verses joined by a blank a single verse is still one verse.
        bible.setSeparator(QStringLiteral(" "));
        QCOMPARE(bible.Passagebystandard(QStringLiteral("John 3:16")),
                 QStringLiteral("16 Text of John 3:16 "));
        // A reference of 10,000 characters neither hangs nor crashes.
        bible.Passagebystandard(QString(10000, u'9'));
        bible.Passagebystandard(QStringLiteral("John ") + QString(10000, u'-'));
    }

    // The book asked for becomes the current book even when none of the passage is found, so the
    // reference shown names it and a list's bare chapter continues it.
    void currentBookOfAnEmptyPassage_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QStringList>("references");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("standard");

        QTest::newRow("chapter that is no number")
            << "TEST" << QStringList{"John 3:16", "Gen x"} << ""
            << "GENESIS 0";
        QTest::newRow("bare chapter after chapter 0")
            << "TEST" << QStringList{"Mal 0,3"} << "MALACHI 3\r\n" + verses("Malachi", 3, 1, 3)
            << "MALACHI 3";
        QTest::newRow("first marker missing") << "SMALL" << QStringList{"Mark 1", "Genesis 1"} << ""
                                              << "GENESIS 1";
    }

    void currentBookOfAnEmptyPassage()
    {
        QFETCH(QString, folder);
        QFETCH(QStringList, references);
        QFETCH(QString, text);
        QFETCH(QString, standard);
        clsBible bible;
        bible.setVersionPath(m_dir.path() + u'/' + folder);
        QString last;
        for (const QString &reference : std::as_const(references))
            last = bible.Passagebystandard(reference);
        QCOMPARE(last, text);
        QCOMPARE(bible.Standard(), standard);
    }

    void booksByTestament_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<int>("book");
        QTest::addColumn<int>("testament");
        QTest::addColumn<int>("row");

        QTest::newRow("first book") << "TEST" << 1 << 0 << 0;
        QTest::newRow("last of the first testament") << "TEST" << 39 << 0 << 38;
        QTest::newRow("first of the second") << "TEST" << 40 << 1 << 0;
        QTest::newRow("last book") << "TEST" << 66 << 1 << 26;
        QTest::newRow("small: second testament starts at 3") << "SMALL" << 3 << 1 << 0;
        QTest::newRow("small: second book") << "SMALL" << 2 << 0 << 1;
    }

    void booksByTestament()
    {
        QFETCH(QString, folder);
        QFETCH(int, book);
        QFETCH(int, testament);
        QFETCH(int, row);
        clsBible bible;
        bible.setVersionPath(m_dir.path() + u'/' + folder);
        QCOMPARE(bible.TestamentOfBook(book), testament);
        QCOMPARE(bible.RowOfBook(book), row);
        QCOMPARE(bible.BookByRow(testament, row), book);
        QCOMPARE(bible.FirstBookOfTestament(1), bible.OldTestamentCount() + 1);
        QCOMPARE(bible.LastBookOfTestament(0), bible.OldTestamentCount());
        QCOMPARE(bible.LastBookOfTestament(1), bible.BooksCount());
        // Rows outside a list and numbers outside the table name no book.
        QCOMPARE(bible.BookByRow(testament, -1), 0);
        QCOMPARE(bible.BookByRow(0, bible.OldTestamentCount()), 0);
        QCOMPARE(bible.BookByRow(1, bible.NewTestamentCount()), 0);
        QCOMPARE(bible.RowOfBook(0), -1);
        QCOMPARE(bible.RowOfBook(bible.BooksCount() + 1), -1);
    }

    void bookByName()
    {
        clsBible bible;
        bible.setVersionPath(m_bible);
        bible.Passagebystandard(QStringLiteral("Gen 2:3"));
        const QList<std::pair<QString, int>> cases = {
            {"John", 43},  {"  JOHN ", 43}, {"song of solomon", 22},
            {"1John", 62}, {"Jo", 0},       {"1 John", 0},
            {"", 0},       {"Johnny", 0}};
        for (const auto &[name, number] : cases)
            QCOMPARE(bible.BookByName(name), number);
        QCOMPARE(bible.Standard(), QStringLiteral("GENESIS 2:3"));
        QCOMPARE(bible.BookNumber(), 1);
        QCOMPARE(bible.Testament(), 0);
    }

    void longNamesAndBadMaps()
    {
        QTemporaryDir dir;
        const QString longName = QStringLiteral("Abcdefghijklmnopqrstuvwxyzabcde"); // 31 characters
        makeTranslation(dir.path(), QStringLiteral("LONG"),
                        {{longName, false, chapters(longName.left(30), {2})},
                         {QStringLiteral("Last"), true, chapters(QStringLiteral("Last"), {1})}});
        clsBible bible;
        m_answers.clear();
        bible.setVersionPath(dir.path() + QStringLiteral("/LONG"));
        QVERIFY((m_answers.count() == 0));
        QCOMPARE(bible.BookName(1), longName.left(30));
        QCOMPARE(bible.NewTestamentCount(), 1);
        QVERIFY(!bible.Passagebystandard(QStringLiteral("abc 1:2")).isEmpty());

        // A count over 255 and more than 100 books are reported and stop the load.
        writeFile(dir.path() + QStringLiteral("/LONG/oldtest/map.dat"), "\"Genesis\",300\r\n");
        m_answers.clear();
        bible.setVersionPath(dir.path() + QStringLiteral("/LONG"));
        QCOMPARE(m_answers.prompts(), QStringList{QStringLiteral("Err #6 ocurred(Overflow)")});
        QByteArray many;
        for (int i = 0; i < 120; ++i)
            many += "Book" + QByteArray::number(i) + ",1\r\n";
        writeFile(dir.path() + QStringLiteral("/LONG/oldtest/map.dat"), many);
        m_answers.clear();
        bible.setVersionPath(dir.path() + QStringLiteral("/LONG"));
        QCOMPARE(m_answers.prompts(),
                 QStringList{QStringLiteral("Err #9 ocurred(Subscript out of range)")});
        QVERIFY(bible.BooksCount() <= clsBible::MaxBooks);
        bible.Passagebystandard(QStringLiteral("Book99 1"));

        // A missing map names its path.
        QFile::remove(dir.path() + QStringLiteral("/LONG/oldtest/map.dat"));
        m_answers.clear();
        bible.setVersionPath(dir.path() + QStringLiteral("/LONG"));
        QCOMPARE(m_answers.count(), 1);
        QVERIFY(m_answers.prompts().first().endsWith(
            QStringLiteral("oldtest/map.dat is missing or is corrupt")));
    }

    void caseBlindFilesAndJunk()
    {
        QTemporaryDir dir;
        makeTranslation(
            dir.path(), QStringLiteral("CASE"),
            {{QStringLiteral("Genesis"), false, chapters(QStringLiteral("Genesis"), {3})},
             {QStringLiteral("Mark"), true, chapters(QStringLiteral("Mark"), {2})}});
        QDir d(dir.path() + QStringLiteral("/CASE"));
        QVERIFY(d.rename(QStringLiteral("oldtest"), QStringLiteral("OldTest")));
        QVERIFY(QFile::rename(d.filePath(QStringLiteral("OldTest/GENESIS.dat")),
                              d.filePath(QStringLiteral("OldTest/genesis.DAT"))));
        // Junk bytes in a book file decode as single-byte text and are shown as they are.
        writeFile(d.filePath(QStringLiteral("newtest/MARK.dat")),
                  QByteArray("CHAPTER 1\r\n1 caf\xe9") + '\0' +
                      QByteArray("\xff\r\nCHAPTER 2\r\n1 x\r\n"));
        clsBible bible;
        bible.setVersionPath(dir.path() + QStringLiteral("\\case\\"));
        QCOMPARE(bible.Passagebystandard(QStringLiteral("Gen 1:2")),
                 "GENESIS 1 \r\n" + verses("Genesis", 1, 2, 2));
        QCOMPARE(bible.Passagebystandard(QStringLiteral("Mark 1:1")),
                 QString::fromUtf16(u"MARK 1 \r\n1 caf\u00e9\u0000\u00ff\r\n", 19));
    }

    void missingBookFile()
    {
        QTemporaryDir dir;
        makeTranslation(
            dir.path(), QStringLiteral("GONE"),
            {{QStringLiteral("Genesis"), false, chapters(QStringLiteral("Genesis"), {3})},
             {QStringLiteral("Mark"), true, chapters(QStringLiteral("Mark"), {2})}});
        QFile::remove(dir.path() + QStringLiteral("/GONE/newtest/MARK.dat"));
        clsBible bible;
        bible.setVersionPath(dir.path() + QStringLiteral("/GONE"));
        m_answers.clear();
        QVERIFY(bible.Passagebystandard(QStringLiteral("Mark 1")).isEmpty());
        QCOMPARE(m_answers.count(), 1);
        QVERIFY(m_answers.prompts().first().startsWith(
            QStringLiteral("Err #53 ocurred(File not found")));
    }
};

QTEST_GUILESS_MAIN(TestBible)
#include "tst_bible.moc"
