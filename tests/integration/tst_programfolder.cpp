// The program folder that set-up assembles: the imported translations read as a reader expects,
// and every reference in every shipped data file shows a passage in every translation that has
// its book.
#include "platform/FileSystem.h"
#include "scripture/BookScan.h"
#include "scripture/TranslationCheck.h"
#include "scripture/TranslationList.h"
#include "scripture/VerseMapping.h"
#include "scripture/basStrings.h"
#include "scripture/clsBible.h"

#include <QTest>

class TestProgramFolder : public QObject
{
    Q_OBJECT

    QString m_folder;

    QString path(const QString &name) const { return m_folder + u'/' + name; }

    QStringList lines(const QString &name) const
    {
        const auto content = platform::ReadTextLines(path(name));
        return content ? content->lines : QStringList();
    }

    // Whether the chapter of a verse reference ("Job 38:41") ends, in this translation, before
    // the verse asked for.
    static bool endsBefore(clsBible &bible, const QString &reference)
    {
        const QString numbers = reference.trimmed().section(u' ', -1);
        const int chapter = numbers.section(u':', 0, 0).toInt();
        const int verse = numbers.section(u':', 1).section(u'-', 0, 0).toInt();
        if (chapter <= 0 || verse <= 0)
            return false;
        const QString book = reference.trimmed().section(u' ', 0, -2);
        const QStringList chapterLines =
            bible.Passagebystandard(book + u' ' + QString::number(chapter))
                .trimmed()
                .split(QStringLiteral("\r\n"));
        if (bible.CurrentChapter() != chapter)
            return false;
        return chapterLines.last().section(u' ', 0, 0).toInt() < verse;
    }

private slots:
    void initTestCase()
    {
        m_folder = qEnvironmentVariable("QS_PROGRAM_DIR");
        QVERIFY2(platform::FileExists(path(QStringLiteral("KJV/bible.dat"))),
                 qPrintable(m_folder + QStringLiteral(" holds no imported KJV")));
    }

    void kjvIsWhole()
    {
        clsBible bible;
        bible.setVersionPath(path(QStringLiteral("KJV")));
        QCOMPARE(bible.BooksCount(), 66);
        QCOMPARE(bible.OldTestamentCount(), 39);
        int chapters = 0;
        int verses = 0;
        for (int b = 1; b <= bible.BooksCount(); ++b) {
            int number = b;
            chapters += bible.Chapters(number);
            const auto content = platform::ReadTextLines(bible.BookFilePath(b));
            QVERIFY2(content, qPrintable(bible.BookFilePath(b)));
            for (const QString &line : content->lines) {
                if (!line.isEmpty() && line.at(0).isDigit() && line.size() > line.indexOf(u' ') + 1)
                    ++verses;
            }
        }
        QCOMPARE(chapters, 1189);
        QCOMPARE(verses, 31102);
    }

    void passages_data()
    {
        QTest::addColumn<QString>("translation");
        QTest::addColumn<QString>("reference");
        QTest::addColumn<QString>("expected");
        QTest::newRow("KJV") << "KJV"
                             << "John 3:16"
                             << "16 For God so loved the world, that he gave his only begotten Son";
        QTest::newRow("KJVS numbers") << "KJVS"
                                      << "Gen 1:1"
                                      << "1 In the beginning{H7225} God{H430} created{H1254}";
        QTest::newRow("KJVS Greek") << "KJVS"
                                    << "John 3:16"
                                    << "loved{G25} the world{G2889}";
        QTest::newRow("KJV added words") << "KJV"
                                         << "Gen 1:2"
                                         << "darkness [was] upon";
        QTest::newRow("KJV psalm title")
            << "KJV"
            << "Ps 3:1"
            << "1 A Psalm of David, when he fled from Absalom his son. LORD";
        QTest::newRow("WEB") << "WEB"
                             << "John 3:16"
                             << "For God so loved the world, that he gave";
        QTest::newRow("RV1909") << "RV1909"
                                << "Juan 3:16"
                                << "16 Porque de tal manera amó Dios al mundo";
        QTest::newRow("RV1909 numbered book") << "RV1909"
                                              << "1Juan 4:8"
                                              << "8 El que no ama, no conoce á Dios";
        QTest::newRow("commentary") << "tvc"
                                    << "Genesis 1"
                                    << "Verses 1-2";
    }

    void passages()
    {
        QFETCH(QString, translation);
        QFETCH(QString, reference);
        QFETCH(QString, expected);
        clsBible bible;
        bible.setVersionPath(path(translation));
        const QString text = bible.Passagebystandard(reference);
        QVERIFY2(text.contains(expected), qPrintable(text.left(300)));
    }

    void translationsAreClean()
    {
        const QList<InstalledTranslation> installed = TranslationList::List(m_folder);
        QStringList folders;
        for (const InstalledTranslation &t : installed)
            folders.append(t.folder);
        for (const char *expected : {"KJV", "KJVS", "WEB", "RV1909"})
            QVERIFY2(folders.contains(QLatin1String(expected)), expected);
        for (const QString &folder : std::as_const(folders)) {
            const QStringList problems = TranslationCheck::Check(path(folder));
            QVERIFY2(problems.isEmpty(),
                     qPrintable(folder + QStringLiteral(": ") + problems.mid(0, 5).join(u'\n')));
        }
    }

    // The WEB numbers the end of 3 John and of Revelation 12 unlike the KJV; the import records it.
    void webKeepsItsNumbering()
    {
        clsBible web;
        web.setVersionPath(path(QStringLiteral("WEB")));
        clsBible kjv;
        kjv.setVersionPath(path(QStringLiteral("KJV")));
        QCOMPARE(VerseNumbering::ForTranslation(web).Name(), QStringLiteral("NRSVA"));
        const int thirdJohn = web.BookByName(QStringLiteral("3John"));
        QCOMPARE(KeepReaderPlace(web, {thirdJohn, 1, 15}, kjv), (ReaderPlace{thirdJohn, 1, 14}));
        QCOMPARE(KeepReaderPlace(kjv, {66, 12, 17}, web), (ReaderPlace{66, 12, 17}));
        QCOMPARE(KeepReaderPlace(web, {66, 12, 18}, kjv), (ReaderPlace{66, 12, 17}));
    }

    void referencesResolve_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<bool>("header");
        QTest::addColumn<QList<int>>("fields"); // 1-based; 0 for the whole line
        QTest::newRow("topics") << "topics.dat" << true << QList<int>{2};
        QTest::newRow("dictionary") << "Dictionary.dat" << true << QList<int>{3};
        QTest::newRow("stories") << "stories.dat" << true << QList<int>{2};
        QTest::newRow("parables") << "parables.dat" << true << QList<int>{2, 3, 4, 5};
        QTest::newRow("miracles") << "miracles.dat" << true << QList<int>{2, 3, 4, 5};
        QTest::newRow("prophecy") << "prophecy.dat" << true << QList<int>{2, 3};
        QTest::newRow("verses") << "verses.dat" << false << QList<int>{0};
    }

    // Pieces separated by ";" are used as they stand; within a piece, items separated by "," that
    // begin with a digit continue the book before them, as the reference parser reads a list.
    // Every reference must show its passage in the KJV, and in every other installed translation
    // that knows its book (the Spanish one names its books in Spanish), except where that
    // translation numbers its verses otherwise and its chapter ends before the verse asked for
    // (the Spanish Job 38 ends at verse 38, its 39 begins with the KJV's 38:39).
    void referencesResolve()
    {
        QFETCH(QString, file);
        QFETCH(bool, header);
        QFETCH(QList<int>, fields);
        QStringList content = lines(file);
        QVERIFY2(!content.isEmpty(), qPrintable(file + QStringLiteral(" is missing or empty")));
        if (header)
            content.removeFirst();

        for (const InstalledTranslation &translation : TranslationList::List(m_folder)) {
            const bool reference = translation.folder == QLatin1String("KJV");
            clsBible bible;
            bible.setVersionPath(path(translation.folder));
            bible.setInTextReference(false);
            QStringList failures;
            qsizetype checked = 0;
            qsizetype renumbered = 0;
            for (const QString &line : std::as_const(content)) {
                const QStringList parts = line.split(u'|');
                for (const int f : fields) {
                    const QString field = f == 0 ? line : parts.value(f - 1);
                    for (const QString &piece : field.split(u';', Qt::SkipEmptyParts)) {
                        QString book;
                        for (QString item : piece.split(u',')) {
                            if (!item.isEmpty() && item.at(0).isDigit() && !book.isEmpty())
                                item = book + u' ' + item;
                            const QString text = bible.Passagebystandard(item);
                            if (bible.Testament() == clsBible::NotFound && !reference)
                                continue;
                            if (!reference && text.trimmed().isEmpty() && endsBefore(bible, item)) {
                                ++renumbered;
                                // QS_SHOW_RENUMBERED=1 lists them.
                                if (qEnvironmentVariableIsSet("QS_SHOW_RENUMBERED"))
                                    qInfo("%s", qPrintable(item));
                                continue;
                            }
                            ++checked;
                            // A chapter past the book's end is shown as its last chapter: wrong
                            // too.
                            const QString numbers = item.trimmed().section(u' ', -1);
                            const int chapter =
                                numbers.section(u':', 0, 0).section(u'-', 0, 0).toInt();
                            if (bible.Testament() == clsBible::NotFound ||
                                text.trimmed().isEmpty() ||
                                (chapter > 0 && chapter != bible.CurrentChapter()))
                                failures.append(parts.value(0) + QStringLiteral(": ") + item);
                            else
                                book = bible.CurrentBook();
                        }
                    }
                }
            }
            QVERIFY2(failures.isEmpty(),
                     qPrintable(translation.folder + QStringLiteral(": ") +
                                QString::number(failures.size()) +
                                QStringLiteral(" unresolved, e.g. ") +
                                failures.mid(0, 10).join(QStringLiteral("; "))));
            if (reference)
                QVERIFY(checked > 0);
            if (renumbered > 0)
                qInfo("%s: %lld references past the end of a chapter numbered otherwise",
                      qPrintable(translation.folder), qlonglong(renumbered));
        }
    }

    // The searches read plain ASCII lines as bytes and decode only the others: every line of every
    // installed translation must match exactly as its decoded, upper-cased text does.
    void scanAgreesWithText()
    {
        const QStringList terms{"LOVE", "GOD", "THE LORD", "E",  "DIOS", "JESÚS",
                                "AMÓ",  "’",   "",         "SS", "ST"};
        for (const InstalledTranslation &translation : TranslationList::List(m_folder)) {
            clsBible bible;
            bible.setVersionPath(path(translation.folder));
            QList<SearchTerm> searchTerms;
            for (const QString &term : terms)
                searchTerms.append(SearchTerm(term));
            qsizetype lines = 0;
            QStringList differences;
            BookScan scan;
            scan.onLine = [&](const BookScan::Line &line) -> BookScan::Next {
                ++lines;
                const QString upper = basStrings::UpperCase(line.text());
                if (line.upper() != upper && differences.size() < 5)
                    differences << QStringLiteral("upper-cased otherwise: ") + line.text();
                for (qsizetype t = 0; t < terms.size(); ++t) {
                    for (const bool whole : {false, true}) {
                        const bool expected = whole ? WholeWordMatch(upper, terms.at(t))
                                                    : FindWord(upper, terms.at(t)) >= 0;
                        if (searchTerms.at(t).In(line, whole) != expected && differences.size() < 5)
                            differences << terms.at(t) + QStringLiteral(" in ") + line.text();
                    }
                }
                return BookScan::Next::Line;
            };
            scan.run(bible);
            QVERIFY2(differences.isEmpty(), qPrintable(translation.folder + QStringLiteral(": ") +
                                                       differences.join(u'\n')));
            QVERIFY(lines > 30000);
        }
    }

    void lexicon_data()
    {
        QTest::addColumn<QString>("stem");
        QTest::addColumn<int>("entries");
        QTest::addColumn<int>("probe");
        QTest::addColumn<QString>("word");
        QTest::newRow("hebrew") << "hebrew" << 8674 << 430 << "elohiym";
        QTest::newRow("greek") << "greek" << 5624 << 2316 << "theos";
    }

    void lexicon()
    {
        QFETCH(QString, stem);
        QFETCH(int, entries);
        QFETCH(int, probe);
        QFETCH(QString, word);
        const QStringList idx = lines(QStringLiteral("strong/") + stem + QStringLiteral(".idx"));
        const QStringList dat = lines(QStringLiteral("strong/") + stem + QStringLiteral(".dat"));
        QCOMPARE(idx.size(), entries);
        QCOMPARE(dat.size(), entries);
        for (qsizetype i = 0; i < dat.size(); ++i) {
            QVERIFY2(dat.at(i).count(u'|') == 3, qPrintable(dat.at(i)));
            QVERIFY2(!idx.at(i).isEmpty(), qPrintable(QString::number(i + 1)));
        }
        QCOMPARE(idx.at(probe - 1), word);
        QVERIFY(dat.at(probe - 1).startsWith(stem.at(0).toUpper() + QString::number(probe) + u'|'));
    }

    // The windows select the first entry that begins with what the user types, so the lists must
    // be in alphabetical order.
    void listsAreSorted_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("names") << "names.dat";
        QTest::newRow("dictionary") << "Dictionary.dat";
        QTest::newRow("topics") << "topics.dat";
    }

    void listsAreSorted()
    {
        QFETCH(QString, file);
        const QStringList content = lines(file);
        QVERIFY(content.size() > 1000);
        for (qsizetype i = 2; i < content.size(); ++i) {
            const QString before = content.at(i - 1).section(u'|', 0, 0);
            const QString here = content.at(i).section(u'|', 0, 0);
            QVERIFY2(before.compare(here, Qt::CaseInsensitive) <= 0,
                     qPrintable(before + " > " + here));
        }
    }
};

QTEST_GUILESS_MAIN(TestProgramFolder)
#include "tst_programfolder.moc"
