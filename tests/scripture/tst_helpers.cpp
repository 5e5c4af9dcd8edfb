// The splitter, the string helpers, the passage formatter, text decoding and the translation check.
#include "../support/TranslationFixture.h"
#include "platform/FileSystem.h"
#include "platform/TextCodec.h"
#include "platform/VbError.h"
#include "scripture/ChapterMarker.h"
#include "scripture/PassageFormatter.h"
#include "scripture/TranslationCheck.h"
#include "scripture/basStrings.h"
#include "scripture/clsSeparation.h"

#include <QLocale>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace fixture;

class TestHelpers : public QObject
{
    Q_OBJECT

private slots:
    void separation()
    {
        clsSeparation s;
        s.setDelimiter(QStringLiteral(","));
        s.setText(QStringLiteral("a,,b"));
        QCOMPARE(s.count(), 3);
        QCOMPARE(s.item(1), QStringLiteral("a"));
        QCOMPARE(s.item(2), QString());
        QCOMPARE(s.item(3), QStringLiteral("b"));
        QCOMPARE(s.items(), (QStringList{"a", "", "b"}));
        QVERIFY_THROWS_EXCEPTION(VbError, s.item(4));

        s.setDelimiter(QStringLiteral("\r\n"));
        s.setText(QStringLiteral("one\r\ntwo\r\n"));
        QCOMPARE(s.count(), 3);
        QCOMPARE(s.item(3), QString());
        QCOMPARE(s.items(), (QStringList{"one", "two", ""}));

        s.setText(QString());
        QCOMPARE(s.item(7), QString());
        // Letters in a delimiter are counted without regard to case.
        s.setDelimiter(QStringLiteral("x"));
        s.setText(QStringLiteral("aXbxc"));
        QCOMPARE(s.count(), 3);
        QCOMPARE(s.item(2), QStringLiteral("b"));
    }

    void strings()
    {
        QCOMPARE(basStrings::CountOccurrences(u"aaaa", u"aa"), 2);
        QCOMPARE(basStrings::CountOccurrences(u"AbAB", u"ab", true), 2);
        QCOMPARE(basStrings::NthOccurrence(u"a-b-c", u"-", 2), 4);
        QCOMPARE(basStrings::NthOccurrence(u"a-b-c", u"-", 3), 0);
        QCOMPARE(basStrings::JoinPath(QStringLiteral("C:\\Bible\\"), QStringLiteral("bible.dat"),
                                      QStringLiteral("\\")),
                 QStringLiteral("C:\\Bible\\bible.dat"));
        QCOMPARE(
            basStrings::JoinPath(QStringLiteral("dir"), QStringLiteral("x"), QStringLiteral("\\")),
            QStringLiteral("dir\\x"));
        QCOMPARE(basStrings::LeadingNumber(u" 12abc"), 12);
        QCOMPARE(basStrings::LeadingNumber(u"abc"), 0);
        QCOMPARE(basStrings::LeadingNumber(u"99999999999999"), 32767);
        QCOMPARE(basStrings::UpperCase(QStringLiteral("Génesis a")), QStringLiteral("GÉNESIS A"));
        QVERIFY(QRegularExpression(QStringLiteral("^\\d+\\.\\d+\\.\\d+$"))
                    .match(basStrings::VersionText())
                    .hasMatch());
    }

    void formatter_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("whole");
        QTest::addColumn<QString>("rtf");
        QTest::newRow("added words") << "In the beginning [was] the Word" << false
                                     << "In the beginning \\i was \\i0 the Word";
        QTest::newRow("lines") << "a\r\nb\r\nc\r\n" << false << "a\\par b\\par c\\par ";
        QTest::newRow("strong's number")
            << "God{H430} said" << true
            << "{\\rtf {\\colortbl ;\\red255\\green0\\blue0;}God{\\super {\\fs0 '}H430} said}";
        QTest::newRow("unmatched brace kept") << "a{b" << false << "a{\\super {\\fs0 '}b";
        QTest::newRow("digit after added words") << "[is]5" << false << "\\i is \\i0 5";
    }
    void formatter()
    {
        QFETCH(QString, text);
        QFETCH(bool, whole);
        QFETCH(QString, rtf);
        QCOMPARE(PassageFormatter::ToRichText(text, whole), rtf);
    }

    // A view is never handed more than it can lay out at once: a passage past the limit is cut
    // at a line break (or in its one long line) and says how much is left out.
    void passageFitForView()
    {
        const qsizetype most = PassageFormatter::kMostShown;
        const QString chapter = QStringLiteral("1 In the beginning\r\n");
        QCOMPARE(PassageFormatter::FitForView(chapter), chapter);
        const QString exact(most, u'x');
        QCOMPARE(PassageFormatter::FitForView(exact), exact);

        QString lines;
        while (lines.size() <= 3 * most)
            lines += QStringLiteral("%1 word word word\r\n").arg(lines.size() % 176);
        const QString fitted = PassageFormatter::FitForView(lines);
        const qsizetype kept = fitted.indexOf(QStringLiteral("\r\n[The passage is cut here: "));
        QVERIFY(kept > most / 2 && kept <= most);
        QCOMPARE(fitted.left(kept), lines.left(kept));
        QVERIFY(fitted.endsWith(QStringLiteral(" more characters are not shown.]\r\n")));
        QVERIFY(fitted.contains(QLocale().toString(lines.size() - kept)));

        // One line of a million words: cut where the limit falls, never inside a character.
        QString oneLine = QStringLiteral("1 ") + QString(most, u'w');
        oneLine.replace(most - 1, 2, QString::fromUtf16(u"\U0001D11E"));
        const QString cut = PassageFormatter::FitForView(oneLine);
        QVERIFY(cut.startsWith(oneLine.left(most - 1) +
                               QStringLiteral("\r\n[The passage is cut here: ")));
    }

    void decoding()
    {
        QCOMPARE(platform::DecodeText("caf\xc3\xa9").text, QStringLiteral("café"));
        const platform::DecodedText old = platform::DecodeText("caf\xe9 \x93q\x94");
        QCOMPARE(old.text, QString::fromUtf16(u"caf\u00e9 \u201cq\u201d"));
        QCOMPARE(old.encoding, platform::TextEncoding::Windows1252);
        QCOMPARE(platform::EncodeText(old.text, old.encoding), QByteArray("caf\xe9 \x93q\x94"));
        // A character the old code page cannot hold turns the file into UTF-8 rather than being
        // lost.
        QCOMPARE(platform::EncodeText(QStringLiteral("ש"), platform::TextEncoding::Windows1252),
                 QByteArray("\xd7\xa9"));
        QCOMPARE(platform::SplitLines(QStringLiteral("a\r\nb\nc\rd\r\n")),
                 (QStringList{"a", "b", "c", "d"}));
        QCOMPARE(platform::SplitLines(QStringLiteral("a\r\n\r\n")), (QStringList{"a", ""}));
    }

    void caseBlindPaths()
    {
        QTemporaryDir dir;
        writeFile(dir.path() + QStringLiteral("/OldTest/genesis.dat"), "x");
        QCOMPARE(platform::ResolvePath(dir.path() + QStringLiteral("\\oldtest\\GENESIS.dat")),
                 dir.path() + QStringLiteral("/OldTest/genesis.dat"));
        QVERIFY(platform::FileExists(dir.path() + QStringLiteral("/OLDTEST/Genesis.DAT")));
        QVERIFY(!platform::FileExists(dir.path() + QStringLiteral("/oldtest")));
        QVERIFY(platform::ResolvePath(dir.path() + QStringLiteral("/newtest/map.dat"))
                    .endsWith(QStringLiteral("/newtest/map.dat")));
    }

    // One rule decides for the store, the searches, the check and the notes what a marker is.
    void chapterMarkers_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<bool>("marker");
        QTest::addColumn<bool>("ofThree"); // IsMarkerOf(line, 3)
        QTest::addColumn<int>("number");
        QTest::addColumn<bool>("mayRead");

        QTest::newRow("plain") << "CHAPTER 3" << true << true << 3 << true;
        QTest::newRow("lower case") << "chapter 3" << true << true << 3 << true;
        QTest::newRow("trailing blanks") << "Chapter 3  " << true << true << 3 << true;
        QTest::newRow("leading zero") << "CHAPTER 03" << true << false << 3 << true;
        QTest::newRow("two blanks") << "CHAPTER  3" << true << false << 3 << true;
        QTest::newRow("other chapter") << "CHAPTER 13" << true << false << 13 << true;
        QTest::newRow("words after") << "CHAPTER 3 begins" << true << false << 3 << true;
        QTest::newRow("no number") << "CHAPTER" << true << false << 0 << true;
        QTest::newRow("plural") << "CHAPTERS 3" << true << false << 0 << true;
        // Indented: not a marker line, yet the whole trimmed line names chapter 3.
        QTest::newRow("indented") << "  CHAPTER 3" << false << true << 0 << true;
        QTest::newRow("indented words") << " chapter 7 begins here" << false << false << 0 << true;
        QTest::newRow("guarded") << "{}CHAPTER 3" << false << false << 0 << false;
        QTest::newRow("verse") << "3 in the chapter" << false << false << 0 << false;
        QTest::newRow("short") << "CHAPTE" << false << false << 0 << false;
        QTest::newRow("tab") << "\tCHAPTER 3" << false << false << 0 << false;
    }

    void chapterMarkers()
    {
        QFETCH(QString, line);
        QFETCH(bool, marker);
        QFETCH(bool, ofThree);
        QFETCH(int, number);
        QFETCH(bool, mayRead);
        QCOMPARE(ChapterMarker::IsMarker(line), marker);
        QCOMPARE(ChapterMarker::IsMarkerOf(line, 3), ofThree);
        QCOMPARE(ChapterMarker::Number(line), number);
        QCOMPARE(ChapterMarker::MayReadAsMarker(line), mayRead);
    }

    void translationCheck()
    {
        QTemporaryDir dir;
        makeTranslation(
            dir.path(), QStringLiteral("OK"),
            {{QStringLiteral("Genesis"), false, chapters(QStringLiteral("Genesis"), {2, 2})},
             {QStringLiteral("Mark"), true, chapters(QStringLiteral("Mark"), {1})}});
        QCOMPARE(TranslationCheck::Check(dir.path() + QStringLiteral("/OK")), QStringList());

        makeTranslation(
            dir.path(), QStringLiteral("BAD"),
            {{QStringLiteral("Genesis"),
              false,
              {"CHAPTER 1", "1 a", "3 c", "2 b", "CHAPTER 2", "CHAPTER 4", "stray line", "1 x"},
              3},
             {QStringLiteral("Exodus"), false, {"CHAPTER 1", "1 a"}},
             {QStringLiteral("Mark"), true, {"CHAPTER 01", "1 a"}}});
        QFile::remove(dir.path() + QStringLiteral("/BAD/oldtest/EXODUS.dat"));
        const QStringList problems = TranslationCheck::Check(dir.path() + QStringLiteral("/BAD"));
        const QString all = problems.join(u'\n');
        for (const char *problem :
             {"Genesis 1: verse 2 is missing", "Genesis 1: verse 2 is out of order",
              "Genesis 2: chapter has no verses",
              "Genesis 4: chapter marker 4 where chapter 3 was expected",
              "neither a chapter marker nor a verse: \"stray line\"",
              "Exodus: book file EXODUS.dat is missing",
              "Mark 1: line 1: \"CHAPTER 01\" is not found as chapter 1"})
            QVERIFY2(all.contains(QLatin1String(problem)), qPrintable(all));
        QVERIFY(TranslationCheck::Check(dir.path() + QStringLiteral("/NONE"))
                    .value(0)
                    .contains(QStringLiteral("does not exist")));
    }
};

QTEST_GUILESS_MAIN(TestHelpers)
#include "tst_helpers.moc"
