// Verse numberings and the mapping between translations, on small fixture folders: a Russian-style
// folder numbered as the Synodal (Psalms and 3 John only) beside a KJV-numbered one.
#include "scripture/ReferenceParser.h"
#include "scripture/VerseMapping.h"
#include "tests/support/TranslationFixture.h"

#include <QTemporaryDir>
#include <QTest>

Q_DECLARE_METATYPE(ReaderPlace)

namespace {

QStringList chapters(int count)
{
    QStringList lines;
    for (int c = 1; c <= count; ++c)
        lines << QStringLiteral("CHAPTER %1").arg(c) << QStringLiteral("1 text");
    return lines;
}

// Lines as the importer writes them from the library's tables (a few of the Synodal's).
const QStringList SynodalLines = {
    QStringLiteral("Synodal"),
    QStringLiteral("BOOKS Ps 3John"),
    QStringLiteral("TOKJV Ps.9.1 Ps.9.0"),
    QStringLiteral("TOKJV Ps.9.22 Ps.10.1"),
    QStringLiteral("TOKJV Ps.22.1 Ps.23.0-Ps.23.1"),
    QStringLiteral("TOKJV Ps.151.1 -"),
    QStringLiteral("FROMKJV Ps.10.1 Ps.9.22"),
    QStringLiteral("FROMKJV Ps.23.1 Ps.22.1"),
    QStringLiteral("FROMKJV 3John.1.14 3John.1.14-3John.1.15"),
};

} // namespace

class tst_VerseMapping : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_root.isValid());
        const QString syn =
            fixture::makeTranslation(m_root.path(), QStringLiteral("SYN"),
                                     {{QStringLiteral("Псалтирь"), false, chapters(151)},
                                      {QStringLiteral("3Иоанна"), true, chapters(1)}});
        fixture::writeFile(syn + QStringLiteral("/versification.dat"), fixture::crlf(SynodalLines));
        fixture::makeTranslation(m_root.path(), QStringLiteral("KJV"),
                                 {{QStringLiteral("Genesis"), false, chapters(50)},
                                  {QStringLiteral("Psalms"), false, chapters(150)},
                                  {QStringLiteral("3John"), true, chapters(1)}});
        m_syn.setVersionPath(syn);
        m_kjv.setVersionPath(m_root.filePath(QStringLiteral("KJV")));
    }

    void mapsThroughTheKjv_data()
    {
        QTest::addColumn<bool>("fromSynodal");
        QTest::addColumn<QString>("reference");
        QTest::addColumn<QString>("expected"); // empty: no counterpart

        QTest::newRow("moved verse") << true << "Psalm 9:22"
                                     << "PSALMS 10:1";
        QTest::newRow("back") << false << "Psalm 10:1"
                              << "ПСАЛТИРЬ 9:22";
        QTest::newRow("title is the first verse") << true << "Ps 9:1"
                                                  << "PSALMS 9:1";
        QTest::newRow("title and verse become one") << true << "Псалтирь 22:1"
                                                    << "PSALMS 23:1";
        QTest::newRow("one verse, two there") << false << "3 John 1:14"
                                              << "3ИОАННА 1:14-15";
        QTest::newRow("a range keeps both ends") << true << "Psalm 9:21-22"
                                                 << "PSALMS 9:21-10:1";
        QTest::newRow("whole chapter by its first verse") << false << "Psalm 23"
                                                          << "ПСАЛТИРЬ 22";
        QTest::newRow("unmoved verse") << true << "Psalm 50:3"
                                       << "PSALMS 50:3";
        QTest::newRow("verse the KJV lacks") << true << "Psalm 151:1"
                                             << "";
        QTest::newRow("book the other lacks") << false << "Genesis 1:1"
                                              << "";
    }
    void mapsThroughTheKjv()
    {
        QFETCH(bool, fromSynodal);
        QFETCH(QString, reference);
        QFETCH(QString, expected);
        const clsBible &from = fromSynodal ? m_syn : m_kjv;
        const clsBible &to = fromSynodal ? m_kjv : m_syn;
        const VerseMapping mapping = VerseMapping::Between(from, to);
        const ReferenceParser::Reference ref = ReferenceParser::Parse(reference);
        const int book = BookOfTypedName(from, mapping.From(), ref.book);
        QVERIFY(book > 0);
        const auto mapped =
            mapping.Map({book, ref.chapterFrom, ref.verseFrom, ref.chapterTo, ref.verseTo});
        QCOMPARE(mapped ? StandardOf(to, *mapped) : QString(), expected);
    }

    void keepsTheReadersPlace_data()
    {
        QTest::addColumn<bool>("fromSynodal");
        QTest::addColumn<ReaderPlace>("place");
        QTest::addColumn<ReaderPlace>("expected");

        QTest::newRow("psalm 23 is the Synodal 22")
            << false << ReaderPlace{2, 23, 0} << ReaderPlace{1, 22, 0};
        QTest::newRow("and back") << true << ReaderPlace{1, 22, 0} << ReaderPlace{2, 23, 0};
        QTest::newRow("a verse goes with its chapter")
            << true << ReaderPlace{1, 9, 22} << ReaderPlace{2, 10, 1};
        QTest::newRow("verse the KJV lacks: its chapter")
            << true << ReaderPlace{1, 151, 1} << ReaderPlace{2, 150, 0};
        QTest::newRow("book the other lacks") << false << ReaderPlace{1, 3, 0} << ReaderPlace{};
    }
    void keepsTheReadersPlace()
    {
        QFETCH(bool, fromSynodal);
        QFETCH(ReaderPlace, place);
        QFETCH(ReaderPlace, expected);
        const ReaderPlace carried = fromSynodal ? KeepReaderPlace(m_syn, place, m_kjv)
                                                : KeepReaderPlace(m_kjv, place, m_syn);
        QCOMPARE(carried, expected);
    }

    void rejectsUnreadableFiles_data()
    {
        QTest::addColumn<QStringList>("lines");
        QTest::newRow("empty") << QStringList();
        QTest::newRow("no name") << QStringList{QString(), QStringLiteral("BOOKS Ps")};
        QTest::newRow("unknown kind")
            << QStringList{QStringLiteral("X"), QStringLiteral("MAP Ps.1.1 Ps.1.2")};
        QTest::newRow("not a verse")
            << QStringList{QStringLiteral("X"), QStringLiteral("TOKJV Ps.1 Ps.1.2")};
    }
    void rejectsUnreadableFiles()
    {
        QFETCH(QStringList, lines);
        QVERIFY(!VerseNumbering::Parse(lines));
    }

private:
    QTemporaryDir m_root;
    clsBible m_syn;
    clsBible m_kjv;
};

QTEST_GUILESS_MAIN(tst_VerseMapping)
#include "tst_versemapping.moc"
