// The bookmark file as the program reads and writes it: what each kind of line gives, that nothing
// written comes back different, and that damaged lines and odd encodings are never lost.
#include "../support/TranslationFixture.h"
#include "bookmarks/BookmarkFile.h"
#include "bookmarks/Bookmarks.h"
#include "platform/MsgBoxAnswerer.h"

#include <QTemporaryDir>
#include <QTest>

using platform::TextEncoding;

class TestBookmarkFile : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    QString path() const { return m_dir.filePath(QStringLiteral("bookmarks.dat")); }

private slots:
    void init() { QFile::remove(path()); }

    void reading_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("bookmarks"); // name and reference in turn
        QTest::addColumn<QStringList>("kept");

        QTest::newRow("quoted") << QByteArray("\"Shepherd\",\"Psalm 23\"\r\n")
                                << QStringList{"Shepherd", "Psalm 23"} << QStringList();
        QTest::newRow("comma in the name")
            << QByteArray("\"Love, patient\",\"1Corinthians 13:4\"\r\n")
            << QStringList{"Love, patient", "1Corinthians 13:4"} << QStringList();
        QTest::newRow("blanks and LF or CR line ends")
            << QByteArray("  \"a b \" ,\t\"c\"\n\"d\",\"e\"\r\r\n   \r\n")
            << QStringList{"a b ", "c", "d", "e"} << QStringList();
        QTest::newRow("unquoted, as a list file may be")
            << QByteArray(" Shepherd , Psalm 23\r\nx,\"y\"")
            << QStringList{"Shepherd", "Psalm 23", "x", "y"} << QStringList();
        QTest::newRow("text after a closing quote runs to the comma")
            << QByteArray("\"My \"best\" verse\",\"John 3:16\"\r\n")
            << QStringList{"My ", "John 3:16"} << QStringList();
        QTest::newRow("empty fields")
            << QByteArray("\"\",\"\"\r\n,\r\n") << QStringList{"", "", "", ""} << QStringList();
        QTest::newRow("byte-order mark") << QByteArray("\xEF\xBB\xBF\"Ἀγάπη\",\"1John 4:8\"\r\n")
                                         << QStringList{"Ἀγάπη", "1John 4:8"} << QStringList();
        QTest::newRow("Windows-1252") << QByteArray("\"Caf\xE9\",\"John 2\"\r\n")
                                      << QStringList{"Café", "John 2"} << QStringList();

        // Damaged lines are kept whole, the bookmarks around them read.
        QTest::newRow("one field")
            << QByteArray("\"a\",\"b\"\r\n\"Shepherd Psalm 23\"\r\n\"c\",\"d\"\r\n")
            << QStringList{"a", "b", "c", "d"} << QStringList{"\"Shepherd Psalm 23\""};
        QTest::newRow("unclosed quote")
            << QByteArray("\"Shepherd,Psalm 23\r\n\"a\",\"b") << QStringList()
            << QStringList{"\"Shepherd,Psalm 23", "\"a\",\"b"};
        QTest::newRow("three fields, or a trailing comma")
            << QByteArray("\"a\",\"b\",\"c\"\r\n\"a\",\"b\",\r\n") << QStringList()
            << QStringList{"\"a\",\"b\",\"c\"", "\"a\",\"b\","};
        QTest::newRow("quote inside an unquoted field")
            << QByteArray("a\"b,c\r\n") << QStringList() << QStringList{"a\"b,c"};
        QTest::newRow("binary junk") << QByteArray("\x01\x02\x00,\x7F\r\n", 7) << QStringList()
                                     << QStringList{QString::fromLatin1("\x01\x02\x00,\x7F", 5)};
    }

    void reading()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QStringList, bookmarks);
        QFETCH(QStringList, kept);
        const BookmarkFile::Content content = BookmarkFile::Parse(bytes);
        QStringList read;
        for (const Bookmark &bookmark : content.bookmarks)
            read << bookmark.name << bookmark.reference;
        QCOMPARE(read, bookmarks);
        QCOMPARE(content.unreadableLines, kept);

        // Written back, the file reads the same again.
        const QByteArray written =
            BookmarkFile::Serialize(content.bookmarks, content.unreadableLines, content.encoding);
        const BookmarkFile::Content again = BookmarkFile::Parse(written);
        QCOMPARE(again.bookmarks, content.bookmarks);
        QCOMPARE(again.unreadableLines, content.unreadableLines);
        QCOMPARE(again.encoding, content.encoding);
    }

    void singleByteTextThatLooksLikeUtf8IsWrittenAsUtf8()
    {
        // "Ã©" in Windows-1252 is the UTF-8 of "é": written so, it would read back as "é".
        const QByteArray written =
            BookmarkFile::Serialize({{QStringLiteral("Ã©"), "x"}}, {}, TextEncoding::Windows1252);
        QCOMPARE(BookmarkFile::Parse(written).bookmarks.value(0).name, QStringLiteral("Ã©"));
    }

    void missingFileIsRepaired()
    {
        platform::MsgBoxAnswerer answers;
        Bookmarks bookmarks(m_dir.path());
        bookmarks.Load();
        QCOMPARE(answers.count(), 1);
        QCOMPARE(answers.last().prompt,
                 QStringLiteral("'bookmarks.dat' is missing from the program's directory!\r\n"
                                "Problem was repaired, click ok to proceed"));
        QCOMPARE(answers.last().buttons, int(vb::vbCritical));
        QVERIFY(QFile::exists(path()));
        QCOMPARE(fixture::readFile(path()), QByteArray());
        QCOMPARE(bookmarks.Count(), 0);
    }

    void unreadableLinesAreReportedOnceAndKept()
    {
        fixture::writeFile(path(), "\"a\",\"1\"\r\njunk\r\n\"b\",\"2\"\r\n\"open\r\n");
        platform::MsgBoxAnswerer answers;
        Bookmarks bookmarks(m_dir.path());
        bookmarks.Load();
        QCOMPARE(bookmarks.Names(), (QStringList{"a", "b"}));
        QCOMPARE(bookmarks.References(), (QStringList{"1", "2"}));
        QCOMPARE(bookmarks.UnreadableLines(), (QStringList{"junk", "\"open"}));
        QCOMPARE(
            answers.prompts(),
            QStringList{
                "2 lines of 'bookmarks.dat' could not be read as bookmarks (lines 2, 4), so they "
                "are not on the Bookmarks menu.\r\nThe lines are kept in the file as they stand "
                "and are written back when the bookmarks are saved."});
        // Reloading after an add says nothing new; a new damaged line is reported again.
        QVERIFY(BookmarkFile(m_dir.path()).Add(QStringLiteral("c"), QStringLiteral("3")));
        bookmarks.Load();
        QCOMPARE(answers.count(), 1);
        QCOMPARE(bookmarks.Reference(3), QStringLiteral("3"));
        QCOMPARE(bookmarks.Reference(4), QString());
        QVERIFY(BookmarkFile(m_dir.path()).Save({{"a", "1"}}));
        QCOMPARE(fixture::readFile(path()), QByteArray("\"a\",\"1\"\r\njunk\r\n\"open\r\n"));
        fixture::writeFile(path(), "x\r\n");
        bookmarks.Load();
        QVERIFY(answers.last().prompt.startsWith(
            QStringLiteral("Line 1 of 'bookmarks.dat' could not be read")));
    }

    void adding_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("reference");
        QTest::addColumn<QByteArray>("after"); // empty: refused, the file unchanged
        QTest::addColumn<QString>("message");

        const QByteArray one("\"a\",\"1\"\r\n");
        QTest::newRow("appended") << one << "Shepherd"
                                  << "Psalm 23" << (one + "\"Shepherd\",\"Psalm 23\"\r\n")
                                  << QString();
        QTest::newRow("last line without its line end")
            << QByteArray("\"a\",\"1\"") << "b"
            << "2" << QByteArray("\"a\",\"1\"\r\n\"b\",\"2\"\r\n") << QString();
        QTest::newRow("single-byte file stays so")
            << QByteArray("\"Caf\xE9\",\"1\"\r\n") << "Noël"
            << "Luke 2" << QByteArray("\"Caf\xE9\",\"1\"\r\n\"No\xEBl\",\"Luke 2\"\r\n")
            << QString();
        QTest::newRow("letters it cannot hold make it UTF-8")
            << QByteArray("\"Caf\xE9\",\"1\"\r\n") << "Ἀγάπη"
            << "1John 4:8"
            << QByteArray(
                   "\"Caf\xC3\xA9\",\"1\"\r\n\"\xE1\xBC\x88\xCE\xB3\xCE\xAC\xCF\x80\xCE\xB7\","
                   "\"1John 4:8\"\r\n")
            << QString();
        QTest::newRow("no name") << one << ""
                                 << "John 3" << QByteArray() << "Please enter a bookmark name";
        QTest::newRow("no reference") << one << "x"
                                      << "" << QByteArray() << "Please enter a reference";
        QTest::newRow("quote in the name") << one << "My \"best\""
                                           << "John 3" << QByteArray()
                                           << "A bookmark name cannot contain a double quote (\"): "
                                              "the bookmarks file could not read it back.\r\n"
                                              "Please take it out of the name.";
        QTest::newRow("quote in the reference")
            << one << "x"
            << "John \"3\"" << QByteArray()
            << "A bookmark reference cannot contain a double quote (\"): the bookmarks file could "
               "not read it "
               "back.\r\nPlease take it out of the reference.";
        QTest::newRow("line break")
            << one << "a\nb"
            << "John 3" << QByteArray()
            << "A bookmark name cannot contain a line break or another control character: the "
               "bookmarks file could not read it back.\r\nPlease take it out of the name.";
    }

    void adding()
    {
        QFETCH(QByteArray, before);
        QFETCH(QString, name);
        QFETCH(QString, reference);
        QFETCH(QByteArray, after);
        QFETCH(QString, message);
        fixture::writeFile(path(), before);
        platform::MsgBoxAnswerer answers;
        QCOMPARE(BookmarkFile(m_dir.path()).Add(name, reference), message.isEmpty());
        QCOMPARE(answers.last().prompt, message);
        QCOMPARE(fixture::readFile(path()), message.isEmpty() ? after : before);
    }

    void failedWritesLeaveTheFileAndSaySo()
    {
        platform::MsgBoxAnswerer answers;
        const BookmarkFile nowhere(m_dir.filePath(QStringLiteral("no/such/folder")));
        QVERIFY(!nowhere.Add(QStringLiteral("a"), QStringLiteral("b")));
        QVERIFY(answers.last().prompt.startsWith(
            QStringLiteral("The bookmark could not be added to 'bookmarks.dat': ")));
        QVERIFY(!nowhere.Save({{"a", "b"}}));
        QVERIFY(
            answers.last().prompt.endsWith(QStringLiteral("'bookmarks.dat' is as it was before.")));
    }
};

QTEST_GUILESS_MAIN(TestBookmarkFile)
#include "tst_bookmarkfile.moc"
