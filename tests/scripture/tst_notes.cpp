// Notes and commentary: one chapter of a book file replaced without touching the rest, notes that
// the store can never mistake for chapter markers, and the commentary on the chapter being read.
#include "../support/TranslationFixture.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/RtfReader.h"
#include "platform/RtfWriter.h"
#include "platform/TextCodec.h"
#include "scripture/ChapterSection.h"
#include "scripture/CommentaryStore.h"
#include "scripture/NotesStore.h"
#include "scripture/clsBible.h"

#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>

using namespace fixture;

namespace {

// What Read gives back for a text written to a chapter.
QString section(const QString &text)
{
    QString s;
    for (const QString &line : platform::SplitLines(text))
        s += line + QStringLiteral("\r\n");
    return s;
}

} // namespace

class TestNotes : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    platform::MsgBoxAnswerer m_answers;
    int m_cases = 0;

    // A program folder of its own for each case.
    QString freshFolder()
    {
        return m_dir.path() + QStringLiteral("/case") + QString::number(++m_cases);
    }

private slots:
    void rewrite_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<int>("chapter");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("after");

        const QByteArray utf8 = "CHAPTER 1\r\n\xc3\xa9\r\nCHAPTER 2\r\nb\r\nCHAPTER 3\r\nc\r\n";
        QTest::newRow("mixed bytes and line ends")
            << QByteArray("Preface \xe9\nCHAPTER 1\r\ncaf\xc3\xa9 \x93one\x94\nCHAPTER "
                          "2\rold\r\ntwo\nCHAPTER 3\nna\xefve")
            << 2 << "new\nlines\r"
            << QByteArray("Preface \xe9\nCHAPTER 1\r\ncaf\xc3\xa9 \x93one\x94\nCHAPTER "
                          "2\rnew\r\nlines\r\nCHAPTER 3\nna\xefve");
        QTest::newRow("middle of a UTF-8 file")
            << utf8 << 2 << QString::fromUtf8("\u00e9 \u03a9")
            << QByteArray(
                   "CHAPTER 1\r\n\xc3\xa9\r\nCHAPTER 2\r\n\xc3\xa9 \xce\xa9\r\nCHAPTER 3\r\nc\r\n");
        QTest::newRow("empty text")
            << utf8 << 2 << ""
            << QByteArray("CHAPTER 1\r\n\xc3\xa9\r\nCHAPTER 2\r\nCHAPTER 3\r\nc\r\n");
        QTest::newRow("marker put in order")
            << QByteArray("Preface\r\nCHAPTER 1\r\na\r\nCHAPTER 4\r\nd\r\n") << 2 << "b"
            << QByteArray("Preface\r\nCHAPTER 1\r\na\r\nCHAPTER 2\r\nb\r\nCHAPTER 4\r\nd\r\n");
        QTest::newRow("appended after an open last line")
            << QByteArray("CHAPTER 1\r\nx") << 2 << "y\n"
            << QByteArray("CHAPTER 1\r\nx\r\nCHAPTER 2\r\ny\r\n");
        QTest::newRow("marker on an open last line")
            << QByteArray("CHAPTER 1") << 1 << "x" << QByteArray("CHAPTER 1\r\nx\r\n");
        QTest::newRow("byte order mark stays first")
            << QByteArray("\xef\xbb\xbf"
                          "CHAPTER 5\r\ne\r\n")
            << 2 << "b"
            << QByteArray("\xef\xbb\xbf"
                          "CHAPTER 2\r\nb\r\nCHAPTER 5\r\ne\r\n");
        // The characters of other chapters are kept when their bytes cannot be.
        QTest::newRow("letter outside Windows-1252")
            << QByteArray("CHAPTER 1\r\ncaf\xe9\r\nCHAPTER 2\r\n") << 2
            << QString::fromUtf8("\u03a9")
            << QByteArray("CHAPTER 1\r\ncaf\xc3\xa9\r\nCHAPTER 2\r\n\xce\xa9\r\n");
        QTest::newRow("file that would turn UTF-8")
            << QByteArray("CHAPTER 1\r\n\xc3\xa9\r\nCHAPTER 2\r\n\xe9\r\n") << 2 << "e"
            << QByteArray("CHAPTER 1\r\n\xc3\x83\xc2\xa9\r\nCHAPTER 2\r\ne\r\n");
    }

    void rewrite()
    {
        QFETCH(QByteArray, before);
        QFETCH(int, chapter);
        QFETCH(QString, text);
        QFETCH(QByteArray, after);
        const QString path = freshFolder() + QStringLiteral("/oldtest/GENESIS");
        writeFile(path + QStringLiteral(".dat"), before);
        QCOMPARE(ChapterSection::Rewrite(path, chapter, text), QString());
        QCOMPARE(readFile(path + QStringLiteral(".dat")), after);
        QCOMPARE(ChapterSection::Read(path, chapter), section(text));
        QVERIFY(!QFile::exists(path + QStringLiteral(".temp")));
    }

    void createsMarkersInOrderInTheFolderThere()
    {
        const QString folder = freshFolder();
        QVERIFY(QDir().mkpath(folder + QStringLiteral("/Notes/OldTest")));
        const QString path = folder + QStringLiteral("/notes/oldtest/GENESIS");
        for (const int chapter : {5, 2, 9})
            QCOMPARE(ChapterSection::Rewrite(path, chapter, QString(QChar(u'a' + chapter - 1))),
                     QString());
        QCOMPARE(readFile(folder + QStringLiteral("/Notes/OldTest/GENESIS.dat")),
                 QByteArray("CHAPTER 2\r\nb\r\nCHAPTER 5\r\ne\r\nCHAPTER 9\r\ni\r\n"));
        QVERIFY(!QFileInfo::exists(folder + QStringLiteral("/notes")));
    }

    void failuresLeaveTheOldFile_data()
    {
        QTest::addColumn<QString>("obstacle");
        QTest::newRow("read-only folder") << "read-only";
        QTest::newRow("a folder in the temporary file's place") << ".temp";
        QTest::newRow("a file in the folder's place") << "folder";
    }

    void failuresLeaveTheOldFile()
    {
        QFETCH(QString, obstacle);
        const QString folder = freshFolder() + QStringLiteral("/oldtest");
        const QString path = folder + QStringLiteral("/GENESIS");
        const QByteArray old = "CHAPTER 1\r\nold\r\n";
        writeFile(obstacle == u"folder" ? folder : path + QStringLiteral(".dat"), old);
        if (obstacle == u".temp")
            QVERIFY(QDir().mkpath(path + obstacle));
        if (obstacle == u"read-only") {
            QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner);
            if (QFile(folder + QStringLiteral("/probe")).open(QIODevice::WriteOnly)) {
                QFile::setPermissions(folder,
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
                QSKIP("The administrator may write into a read-only folder");
            }
        }
        const QString reason = ChapterSection::Rewrite(path, 1, QStringLiteral("new"));
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QVERIFY(!reason.isEmpty());
        if (obstacle == u"read-only")
            QVERIFY2(reason.contains(QStringLiteral("ermission")), qPrintable(reason));
        QCOMPARE(readFile(obstacle == u"folder" ? folder : path + QStringLiteral(".dat")), old);
        if (obstacle != u".temp")
            QVERIFY(!QFileInfo::exists(path + QStringLiteral(".temp")));
    }

    void markerLinesAreGuarded_data()
    {
        QTest::addColumn<QString>("markup");
        QTest::addColumn<QString>("storable");
        QTest::newRow("marker") << "CHAPTER 2"
                                << "{}CHAPTER 2";
        QTest::newRow("indented words") << " chapter 7 begins here"
                                        << "{} chapter 7 begins here";
        QTest::newRow("every kind of line break")
            << "{\\rtf1 a\\par\r\nCHAPTER 3\\par\nchapter\rx}\r\n"
            << "{\\rtf1 a\\par\r\n{}CHAPTER 3\\par\n{}chapter\rx}\r\n";
        QTest::newRow("ordinary text") << "the chapter\r\n{}CHAPTER 1"
                                       << "the chapter\r\n{}CHAPTER 1";
    }

    void markerLinesAreGuarded()
    {
        QFETCH(QString, markup);
        QFETCH(QString, storable);
        QCOMPARE(NotesStore::Storable(markup), storable);

        // The store reads the guarded notes back as they were stored, and the other chapters too.
        const QString folder = freshFolder();
        makeTranslation(folder, QStringLiteral("notes"),
                        {{QStringLiteral("Genesis"),
                          false,
                          {"CHAPTER 1", "one", "CHAPTER 2", "CHAPTER 3", "three"}},
                         {QStringLiteral("Mark"), true, {"CHAPTER 1"}}});
        const NotesStore notes(folder);
        QCOMPARE(notes.Write(0, QStringLiteral("Genesis"), 2, markup), QString());
        QCOMPARE(notes.Read(0, QStringLiteral("GENESIS"), 2), section(storable));
        clsBible store;
        store.setInTextReference(false);
        store.setVersionPath(folder + QStringLiteral("/notes"));
        QCOMPARE(store.passage(QStringLiteral("GENESIS"), 2), section(storable));
        QCOMPARE(store.passage(QStringLiteral("GENESIS"), 3), QStringLiteral("three\r\n"));
        QCOMPARE(notes.Read(0, QStringLiteral("GENESIS"), 1), QStringLiteral("one\r\n"));
    }

    void writeRefusesWhatIsNoChapter()
    {
        const QString folder = freshFolder();
        const NotesStore notes(folder);
        QCOMPARE(notes.BookPath(1, QStringLiteral("Mark")),
                 folder + QStringLiteral("/notes/newtest/MARK"));
        QVERIFY(!notes.Write(clsBible::NotFound, QStringLiteral("Mark"), 1, QStringLiteral("x"))
                     .isEmpty());
        QVERIFY(!notes.Write(1, QStringLiteral("../../Mark"), 1, QStringLiteral("x")).isEmpty());
        QVERIFY(!notes.Write(1, QStringLiteral("Mark"), 0, QStringLiteral("x")).isEmpty());
        QVERIFY(!QFileInfo::exists(folder));
    }

    // Whatever the user typed comes back as typed, through the plain-text conversion and through
    // the rich-text view's own writer.
    void notesRoundTrip_data()
    {
        QTest::addColumn<QStringList>("paragraphs");
        QTest::newRow("marker-like paragraphs")
            << QStringList{"CHAPTER 2", "chapter 7 begins here", "  CHAPTER 3", "x"};
        QTest::newRow("braces and backslashes") << QStringList{"}", "{", "\\par", "a\\b{c}"};
        QTest::newRow("other scripts")
            << QStringList{QString::fromUtf8("Ἐν ἀρχῇ ἦν ὁ λόγος"), QString::fromUtf8("בְּרֵאשִׁית"),
                           QString::fromUtf8("caf\u00e9 \u2014 \u20ac")};
        QStringList many;
        for (int i = 0; i < 10000; ++i)
            many << (i % 7 == 0 ? QStringLiteral("CHAPTER %1").arg(i)
                                : QStringLiteral("line %1").arg(i));
        QTest::newRow("10,000 lines") << many;
    }

    void notesRoundTrip()
    {
        QFETCH(QStringList, paragraphs);
        const QString plain = paragraphs.join(u'\n');
        const QString folder = freshFolder();
        const NotesStore notes(folder);
        QCOMPARE(notes.Write(0, QStringLiteral("GENESIS"), 3, QStringLiteral("three")), QString());
        QTextDocument typed;
        typed.setPlainText(plain);
        for (const QString &rtf :
             {NotesStore::RtfFromPlainText(plain), platform::RtfWriter::write(typed)}) {
            QCOMPARE(notes.Write(0, QStringLiteral("GENESIS"), 2, rtf), QString());
            QTextDocument shown;
            platform::RtfReader::read(notes.Read(0, QStringLiteral("GENESIS"), 2), &shown);
            QCOMPARE(shown.toPlainText(), plain);
            QCOMPARE(notes.Read(0, QStringLiteral("GENESIS"), 3), QStringLiteral("three\r\n"));
        }
        QCOMPARE(NotesStore::RtfFromPlainText(QString::fromUtf8("a{b}\\c\n\u00e9\tz")),
                 QStringLiteral("{\\rtf1\\ansi\\uc1 a\\{b\\}\\\\c\\par\r\n\\u233?\\tab z}\r\n"));
    }

    void commentary_data()
    {
        QTest::addColumn<QString>("translation");
        QTest::addColumn<QString>("reference");
        QTest::addColumn<QString>("commentary");
        QTest::newRow("same book names") << "ENG"
                                         << "Exodus 2:1"
                                         << "On Exodus 2\r\n";
        QTest::newRow("other language, same books")
            << "SPA" << QString::fromUtf8("Éxodo 2") << "On Exodus 2\r\n";
        QTest::newRow("other language, other books") << "FEW" << QString::fromUtf8("Éxodo 2") << "";
        QTest::newRow("no chapter") << "ENG"
                                    << "Gen x"
                                    << "";
    }

    void commentary()
    {
        QFETCH(QString, translation);
        QFETCH(QString, reference);
        QFETCH(QString, commentary);
        const QString folder = m_dir.path() + QStringLiteral("/commentary");
        if (!QFileInfo::exists(folder)) {
            const auto comments = [](const QString &book) {
                return QStringList{"CHAPTER 1", "On " + book + " 1", "CHAPTER 2",
                                   "On " + book + " 2"};
            };
            makeTranslation(folder, QStringLiteral("tvc"),
                            {{"Genesis", false, comments("Genesis")},
                             {"Exodus", false, comments("Exodus")},
                             {"John", true, comments("John")}});
            const QList<int> two = {1, 1};
            makeTranslation(folder, QStringLiteral("ENG"),
                            {{"Genesis", false, chapters("Genesis", two)},
                             {"Exodus", false, chapters("Exodus", two)},
                             {"John", true, chapters("John", two)}});
            makeTranslation(folder, QStringLiteral("SPA"),
                            {{QString::fromUtf8("Génesis"), false, chapters("G", two)},
                             {QString::fromUtf8("Éxodo"), false, chapters("E", two)},
                             {"Juan", true, chapters("J", two)}});
            makeTranslation(folder, QStringLiteral("FEW"),
                            {{QString::fromUtf8("Éxodo"), false, chapters("E", two)},
                             {"Juan", true, chapters("J", two)}});
        }
        clsBible bible;
        bible.setVersionPath(folder + u'/' + translation);
        Passage chapter = bible.Fetch(reference);
        CommentaryStore store(folder);
        QVERIFY(store.Changed(chapter));
        QCOMPARE(store.ViewText(bible, chapter),
                 QStringLiteral("Tovelian's Commentary \r\n") + commentary);
        QVERIFY(!store.Changed(chapter));

        // Coming back to the same chapter reads nothing, even when the file has gone since.
        if (translation == u"ENG" && !commentary.isEmpty()) {
            QCOMPARE(store.Standard(), QStringLiteral("EXODUS 2"));
            const QString file = folder + QStringLiteral("/tvc/oldtest/EXODUS.dat");
            const QByteArray bytes = readFile(file);
            QFile::remove(file);
            m_answers.clear();
            QCOMPARE(store.ViewText(bible, chapter),
                     QStringLiteral("Tovelian's Commentary \r\n") + commentary);
            QCOMPARE(m_answers.count(), 0);
            chapter = bible.Fetch(QStringLiteral("Exodus 1"));
            QVERIFY(store.Changed(chapter));
            QCOMPARE(store.ViewText(bible, chapter), QStringLiteral("Tovelian's Commentary \r\n"));
            QCOMPARE(m_answers.count(), 1);
            writeFile(file, bytes);
        }
    }

    void commentaryMissing()
    {
        m_answers.clear();
        CommentaryStore store(freshFolder());
        QCOMPARE(m_answers.count(), 1);
        QVERIFY(m_answers.prompts().first().endsWith(
            QStringLiteral("tvc/oldtest/map.dat is missing or is corrupt")));
        clsBible none;
        QCOMPARE(store.ViewText(none, Passage()), QStringLiteral("Tovelian's Commentary \r\n"));
    }
};

QTEST_MAIN(TestNotes)
#include "tst_notes.moc"
