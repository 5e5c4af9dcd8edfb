// The verses the Search window lists, as its views read them: several translations lined up by
// reference, the spans marked in a verse, and the text export of one translation.
#include "scripture/FoundVerses.h"

#include <QTest>

class TestFoundVerses : public QObject
{
    Q_OBJECT

    static FoundVerse verse(const QString &translation, int book, const QString &chapter,
                            const QString &number, const QString &text = QString())
    {
        FoundVerse v;
        v.translation = translation;
        v.book = book;
        v.bookName = book == 1 ? QStringLiteral("Genesis") : QStringLiteral("Exodus");
        v.chapter = chapter;
        v.verse = number;
        v.text = text;
        return v;
    }

private slots:
    // Chapters and verses count as numbers (10 after 9), a reference's verses stay together in the
    // order the translations were given, and a verse only one translation has keeps its place.
    void interleavesByReference()
    {
        const QList<FoundVerse> first{verse("A", 1, "9", "2"), verse("A", 1, "10", "1"),
                                      verse("A", 2, "1", "1")};
        const QList<FoundVerse> second{verse("B", 1, "9", "10"), verse("B", 1, "10", "1")};
        QStringList order;
        for (const FoundVerse &v : FoundVerses::Interleave(
                 {first, second}, {VerseNumbering::Kjv(), VerseNumbering::Kjv()}))
            order << v.translation + u' ' + v.Reference();
        QCOMPARE(order, (QStringList{"A Genesis 9:2", "B Genesis 9:10", "A Genesis 10:1",
                                     "B Genesis 10:1", "A Exodus 1:1"}));
    }

    // A translation that numbers a verse otherwise lines up with the others through its numbering:
    // its Psalm 9:22 is the KJV's Psalm 10:1.
    void interleavesThroughEachNumbering()
    {
        VerseNumbering synodal = VerseNumbering::Kjv();
        synodal.addToKjv({QStringLiteral("Ps"), 9, 22},
                         {{QStringLiteral("Ps"), 10, 1}, {QStringLiteral("Ps"), 10, 1}});
        const QList<FoundVerse> kjv{verse("A", 19, "9", "20"), verse("A", 19, "10", "1"),
                                    verse("A", 19, "10", "2")};
        const QList<FoundVerse> other{verse("B", 19, "9", "22")};
        QStringList order;
        for (const FoundVerse &v :
             FoundVerses::Interleave({kjv, other}, {VerseNumbering::Kjv(), synodal}))
            order << v.translation + u' ' + v.chapter + u':' + v.verse;
        QCOMPARE(order, (QStringList{"A 9:20", "A 10:1", "B 9:22", "A 10:2"}));
    }

    // Whole words only where asked; a word inside another is marked without; overlapping and
    // touching finds make one span; a mark never falls beside its word when case folding changes
    // a text's length.
    void marksWords()
    {
        const QString text = QStringLiteral("Love one another; beloved, loveth.");
        using Spans = QList<std::pair<int, int>>;
        QCOMPARE(FoundVerses::WordSpans(text, {"LOVE"}, true), (Spans{{0, 4}}));
        QCOMPARE(FoundVerses::WordSpans(text, {"LOVE"}, false), (Spans{{0, 4}, {20, 4}, {27, 4}}));
        QCOMPARE(FoundVerses::WordSpans(text, {"ONE AN", "ANOTHER"}, false), (Spans{{5, 11}}));
        QCOMPARE(FoundVerses::WordSpans(QStringLiteral("stra\u00dfe love"), {"LOVE"}, false),
                 Spans());
    }

    void textOfOneTranslation()
    {
        const QByteArray text =
            FoundVerses::Text({verse("KJV", 2, "3", "14", "I AM THAT I AM")}, 1);
        QCOMPARE(text, QByteArray("EXODUS 3:14\tI AM THAT I AM\r\n1 verses\r\n"));
    }
};

QTEST_MAIN(TestFoundVerses)
#include "tst_foundverses.moc"
