// Translations lined up verse by verse through their numberings: a KJV-numbered folder, one in the
// Synodal's numbering and one in a Hebrew-style numbering, with the verses where they part ways.
#include "scripture/ParallelRows.h"
#include "tests/support/TranslationFixture.h"

#include <QTemporaryDir>
#include <QTest>

namespace {

// Chapters 1..n of a book, chapter c with counts[c] verses ("Text of Book c:v"); chapters not
// given have one verse.
QStringList book(const QString &name, int chapters, const QHash<int, int> &counts)
{
    QList<int> verses;
    for (int c = 1; c <= chapters; ++c)
        verses << counts.value(c, 1);
    return fixture::chapters(name, verses);
}

// The lines of a numbering file: one line a verse, from a first verse on for a count of verses.
QStringList shifted(const QString &kind, const QString &from, int fromFirst, const QString &to,
                    int toFirst, int count)
{
    QStringList lines;
    for (int i = 0; i < count; ++i)
        lines << QStringLiteral("%1 %2.%3 %4.%5")
                     .arg(kind, from)
                     .arg(fromFirst + i)
                     .arg(to)
                     .arg(toFirst + i);
    return lines;
}

// The Synodal's own departures, as the importer writes them from the library's tables.
QStringList synodalLines()
{
    QStringList lines{QStringLiteral("Synodal"),
                      QStringLiteral("BOOKS Ps Jonah Mal Rom"),
                      QStringLiteral("TOKJV Ps.9.1 Ps.9.0"),
                      QStringLiteral("FROMKJV Ps.9.0 Ps.9.1"),
                      QStringLiteral("TOKJV Ps.22.1 Ps.23.0-Ps.23.1"),
                      QStringLiteral("TOKJV Ps.151.1 -"),
                      QStringLiteral("TOKJV Jonah.2.1 Jonah.1.17"),
                      QStringLiteral("FROMKJV Jonah.1.17 Jonah.2.1")};
    lines << shifted("TOKJV", "Ps.9", 2, "Ps.9", 1, 20)
          << shifted("TOKJV", "Ps.9", 22, "Ps.10", 1, 18)
          << shifted("FROMKJV", "Ps.9", 1, "Ps.9", 2, 20)
          << shifted("FROMKJV", "Ps.10", 1, "Ps.9", 22, 18)
          << shifted("TOKJV", "Ps.22", 2, "Ps.23", 2, 5)
          << shifted("FROMKJV", "Ps.23", 1, "Ps.22", 1, 6)
          << shifted("TOKJV", "Jonah.2", 2, "Jonah.2", 1, 10)
          << shifted("FROMKJV", "Jonah.2", 1, "Jonah.2", 2, 10)
          << shifted("TOKJV", "Rom.14", 24, "Rom.16", 25, 3)
          << shifted("FROMKJV", "Rom.16", 25, "Rom.14", 24, 3);
    return lines;
}

// Malachi in three chapters, the KJV's chapter 4 being 3:19-24.
QStringList hebrewLines()
{
    QStringList lines{QStringLiteral("Leningrad"), QStringLiteral("BOOKS Ps Jonah Mal Rom")};
    lines << shifted("TOKJV", "Mal.3", 19, "Mal.4", 1, 6)
          << shifted("FROMKJV", "Mal.4", 1, "Mal.3", 19, 6)
          // A verse of its own in Jonah 1, which moves the rest of the chapter on by one.
          << QStringLiteral("TOKJV Jonah.1.9 -") << shifted("TOKJV", "Jonah.1", 10, "Jonah.1", 9, 9)
          << shifted("FROMKJV", "Jonah.1", 9, "Jonah.1", 10, 9);
    return lines;
}

using Cells = QStringList; // per translation: "reference|text start", or "" for an empty cell

Cells cellsOf(const ParallelRow &row)
{
    Cells cells;
    for (const ParallelCell &cell : row.cells)
        cells << (cell.isEmpty() ? QString() : cell.reference + u'|' + cell.text);
    return cells;
}

QString text(const QString &book, int chapter, int verse)
{
    return QStringLiteral("Text of %1 %2:%3").arg(book).arg(chapter).arg(verse);
}

} // namespace

class tst_ParallelRows : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_root.isValid());
        using fixture::Book;
        fixture::makeTranslation(
            m_root.path(), QStringLiteral("KJV"),
            {Book{QStringLiteral("Psalms"), false,
                  book("Psalms", 23, {{9, 20}, {10, 18}, {23, 6}})},
             Book{QStringLiteral("Jonah"), false, book("Jonah", 4, {{1, 17}, {2, 10}})},
             Book{QStringLiteral("Malachi"), false, book("Malachi", 4, {{3, 18}, {4, 6}})},
             Book{QStringLiteral("Romans"), true, book("Romans", 16, {{14, 23}, {16, 27}})}});
        const QString syn = fixture::makeTranslation(
            m_root.path(), QStringLiteral("SYN"),
            {Book{QStringLiteral("Псалтирь"), false,
                  book("Псалтирь", 151, {{9, 39}, {22, 6}, {151, 7}})},
             Book{QStringLiteral("Иона"), false, book("Иона", 4, {{1, 16}, {2, 11}})},
             Book{QStringLiteral("Малахия"), false, book("Малахия", 4, {{3, 18}, {4, 6}})},
             Book{QStringLiteral("Римлянам"), true, book("Римлянам", 16, {{14, 26}, {16, 24}})}});
        fixture::writeFile(syn + QStringLiteral("/versification.dat"),
                           fixture::crlf(synodalLines()));
        // Romans 16:24 is not in this one's text at all.
        QStringList romans = book("Romans", 16, {{14, 23}, {16, 27}});
        romans.removeAll(text(QStringLiteral("Romans"), 16, 24).prepend(QStringLiteral("24 ")));
        const QString heb = fixture::makeTranslation(
            m_root.path(), QStringLiteral("HEB"),
            {Book{QStringLiteral("Psalms"), false, book("Psalms", 23, {{9, 20}, {10, 18}})},
             Book{QStringLiteral("Jonah"), false, book("Jonah", 4, {{1, 18}, {2, 10}})},
             Book{QStringLiteral("Malachi"), false, book("Malachi", 3, {{3, 24}})},
             Book{QStringLiteral("Romans"), true, romans}});
        fixture::writeFile(heb + QStringLiteral("/versification.dat"),
                           fixture::crlf(hebrewLines()));
        for (const char *name : {"KJV", "SYN", "HEB"}) {
            auto bible = std::make_unique<clsBible>();
            bible->setVersionPath(m_root.filePath(QLatin1String(name)));
            QVERIFY(!bible->LastReadFailed());
            m_bibles.insert(QLatin1String(name), bible.get());
            m_owned.push_back(std::move(bible));
        }
    }

    void cleanupTestCase()
    {
        m_bibles.clear();
        m_owned.clear();
    }

    // Each row lists, per translation, its reference and verse text; a row of the table below
    // gives one row of the result.
    void linesUpVerses_data()
    {
        QTest::addColumn<QStringList>("translations");
        QTest::addColumn<QString>("reference");
        QTest::addColumn<QList<Cells>>("expected");

        const QString ps = QStringLiteral("Psalms");
        const QString psSyn = QStringLiteral("Псалтирь");
        QList<Cells> psalm10;
        for (int v = 1; v <= 18; ++v)
            psalm10 << Cells{QStringLiteral("PSALMS 10:%1|").arg(v) + text(ps, 10, v),
                             QStringLiteral("ПСАЛТИРЬ 9:%1|").arg(21 + v) + text(psSyn, 9, 21 + v)};
        QTest::newRow("KJV psalm 10 is the Synodal's second half of psalm 9")
            << QStringList{"KJV", "SYN"} << "Psalm 10" << psalm10;

        // The Synodal's title verse and first verse share the KJV's verse 1.
        QList<Cells> psalm9{
            {QStringLiteral("ПСАЛТИРЬ 9:1-2|") + text(psSyn, 9, 1) + u' ' + text(psSyn, 9, 2),
             QStringLiteral("PSALMS 9:1|") + text(ps, 9, 1)}};
        for (int v = 3; v <= 21; ++v)
            psalm9 << Cells{QStringLiteral("ПСАЛТИРЬ 9:%1|").arg(v) + text(psSyn, 9, v),
                            QStringLiteral("PSALMS 9:%1|").arg(v - 1) + text(ps, 9, v - 1)};
        for (int v = 22; v <= 39; ++v)
            psalm9 << Cells{QStringLiteral("ПСАЛТИРЬ 9:%1|").arg(v) + text(psSyn, 9, v),
                            QStringLiteral("PSALMS 10:%1|").arg(v - 21) + text(ps, 10, v - 21)};
        QTest::newRow("Synodal psalm 9 with its title is KJV psalms 9 and 10")
            << QStringList{"SYN", "KJV"} << "Psalm 9" << psalm9;

        QTest::newRow("a title inside the first verse on both sides")
            << QStringList{"KJV", "SYN"} << "Ps 23:1-2"
            << QList<Cells>{{QStringLiteral("PSALMS 23:1|") + text(ps, 23, 1),
                             QStringLiteral("ПСАЛТИРЬ 22:1|") + text(psSyn, 22, 1)},
                            {QStringLiteral("PSALMS 23:2|") + text(ps, 23, 2),
                             QStringLiteral("ПСАЛТИРЬ 22:2|") + text(psSyn, 22, 2)}};

        QTest::newRow("Jonah 1:17 is the Synodal's 2:1")
            << QStringList{"KJV", "SYN"} << "Jonah 1:16-2:1"
            << QList<Cells>{{QStringLiteral("JONAH 1:16|") + text("Jonah", 1, 16),
                             QStringLiteral("ИОНА 1:16|") + text("Иона", 1, 16)},
                            {QStringLiteral("JONAH 1:17|") + text("Jonah", 1, 17),
                             QStringLiteral("ИОНА 2:1|") + text("Иона", 2, 1)},
                            {QStringLiteral("JONAH 2:1|") + text("Jonah", 2, 1),
                             QStringLiteral("ИОНА 2:2|") + text("Иона", 2, 2)}};

        // Romans 16:25-27 stand at the end of the Synodal's chapter 14; the third translation
        // has no verse 16:24.
        QList<Cells> romans;
        for (int v = 22; v <= 27; ++v) {
            const Cells kjv{QStringLiteral("ROMANS 16:%1|").arg(v) + text("Romans", 16, v)};
            const QString syn =
                v <= 24
                    ? QStringLiteral("РИМЛЯНАМ 16:%1|").arg(v) + text("Римлянам", 16, v)
                    : QStringLiteral("РИМЛЯНАМ 14:%1|").arg(v - 1) + text("Римлянам", 14, v - 1);
            const QString heb = v == 24 ? QString() : kjv.first();
            romans << Cells{kjv.first(), syn, heb};
        }
        QTest::newRow("Romans 16:25-27 and a verse missing in one")
            << QStringList{"KJV", "SYN", "HEB"} << "Rom 16:22-27" << romans;
        QTest::newRow("and from the Synodal's side")
            << QStringList{"SYN", "KJV"} << "Rom 14:23-26"
            << QList<Cells>{{QStringLiteral("РИМЛЯНАМ 14:23|") + text("Римлянам", 14, 23),
                             QStringLiteral("ROMANS 14:23|") + text("Romans", 14, 23)},
                            {QStringLiteral("РИМЛЯНАМ 14:24|") + text("Римлянам", 14, 24),
                             QStringLiteral("ROMANS 16:25|") + text("Romans", 16, 25)},
                            {QStringLiteral("РИМЛЯНАМ 14:25|") + text("Римлянам", 14, 25),
                             QStringLiteral("ROMANS 16:26|") + text("Romans", 16, 26)},
                            {QStringLiteral("РИМЛЯНАМ 14:26|") + text("Римлянам", 14, 26),
                             QStringLiteral("ROMANS 16:27|") + text("Romans", 16, 27)}};

        QList<Cells> malachi;
        for (int v = 1; v <= 6; ++v)
            malachi << Cells{QStringLiteral("MALACHI 4:%1|").arg(v) + text("Malachi", 4, v),
                             QStringLiteral("MALACHI 3:%1|").arg(18 + v) +
                                 text("Malachi", 3, 18 + v),
                             QStringLiteral("МАЛАХИЯ 4:%1|").arg(v) + text("Малахия", 4, v)};
        QTest::newRow("Malachi 4 is 3:19-24 in the Hebrew numbering")
            << QStringList{"KJV", "HEB", "SYN"} << "Malachi 4" << malachi;
        QTest::newRow("and back: the chapter runs on into the KJV's next")
            << QStringList{"HEB", "KJV"} << "Mal 3:18-19"
            << QList<Cells>{{QStringLiteral("MALACHI 3:18|") + text("Malachi", 3, 18),
                             QStringLiteral("MALACHI 3:18|") + text("Malachi", 3, 18)},
                            {QStringLiteral("MALACHI 3:19|") + text("Malachi", 3, 19),
                             QStringLiteral("MALACHI 4:1|") + text("Malachi", 4, 1)}};

        QTest::newRow("a verse only the second has stands after the one before it")
            << QStringList{"KJV", "HEB"} << "Jonah 1:8-9"
            << QList<Cells>{{QStringLiteral("JONAH 1:8|") + text("Jonah", 1, 8),
                             QStringLiteral("JONAH 1:8|") + text("Jonah", 1, 8)},
                            {QString(), QStringLiteral("JONAH 1:9|") + text("Jonah", 1, 9)},
                            {QStringLiteral("JONAH 1:9|") + text("Jonah", 1, 9),
                             QStringLiteral("JONAH 1:10|") + text("Jonah", 1, 10)}};

        QTest::newRow("a psalm only one numbering has")
            << QStringList{"SYN", "KJV"} << "Psalm 151:1-2"
            << QList<Cells>{{QStringLiteral("ПСАЛТИРЬ 151:1|") + text(psSyn, 151, 1), QString()},
                            {QStringLiteral("ПСАЛТИРЬ 151:2|") + text(psSyn, 151, 2), QString()}};
    }
    void linesUpVerses()
    {
        QFETCH(QStringList, translations);
        QFETCH(QString, reference);
        QFETCH(QList<Cells>, expected);
        QList<const clsBible *> bibles;
        for (const QString &name : translations)
            bibles << m_bibles.value(name);
        const ParallelRows::Result result = ParallelRows::Build(bibles, reference);
        QVERIFY2(result.ok(), qPrintable(result.problem));
        QList<Cells> rows;
        for (const ParallelRow &row : result.rows)
            rows << cellsOf(row);
        for (qsizetype i = 0; i < std::min(rows.size(), expected.size()); ++i)
            QCOMPARE(rows.at(i), expected.at(i));
        QCOMPARE(rows.size(), expected.size());
    }

    void refusesWhatCannotBeLinedUp()
    {
        const clsBible *kjv = m_bibles.value(QStringLiteral("KJV"));
        const clsBible *syn = m_bibles.value(QStringLiteral("SYN"));
        ParallelRows::Result result = ParallelRows::Build({kjv}, QStringLiteral("Psalm 1"));
        QVERIFY(!result.ok());
        QVERIFY(result.rows.isEmpty());
        result = ParallelRows::Build({kjv, syn, kjv, syn, kjv}, QStringLiteral("Psalm 1"));
        QVERIFY(!result.ok());
        result = ParallelRows::Build({kjv, syn}, QStringLiteral("Hezekiah 3"));
        QVERIFY(result.unknownBook);
        QCOMPARE(result.problem,
                 QStringLiteral("No book of this translation matches \"Hezekiah 3\"."));
        result = ParallelRows::Build({kjv, syn}, QStringLiteral("Psalm 9:40"));
        QVERIFY(!result.ok() && !result.unknownBook);
        QCOMPARE(result.problem, QStringLiteral("There is no PSALMS 9:40 in this translation."));
    }

private:
    QTemporaryDir m_root;
    std::vector<std::unique_ptr<clsBible>> m_owned;
    QHash<QString, const clsBible *> m_bibles;
};

QTEST_GUILESS_MAIN(tst_ParallelRows)
#include "tst_parallelrows.moc"
