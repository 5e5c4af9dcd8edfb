// What the Search window does with what it found: the words marked in the list and the passage,
// the chart of hits per book and its filter, searching within results, several translations at
// once, export as CSV and text, and Stop.
#include "../support/Controls.h"
#include "../support/HookGuards.h"
#include "../support/ProgramHarness.h"
#include "../support/TranslationFixture.h"
#include "app/BookHitsChart.h"
#include "app/FoundVerseDelegate.h"
#include "app/frmSearch.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/RichTextBox.h"
#include "platform/clsCommonOpenDialog.h"

#include <QAction>
#include <QCheckBox>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace fixture;
using support::control;
using support::ProgramHarness;

class TestSearchResults : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    // The references the list shows, hidden rows left out.
    static QStringList shown(QWidget *window)
    {
        QStringList items;
        auto *list = control<QListWidget>(window, "lstResults");
        for (int i = 0; i < list->count(); ++i) {
            if (!list->isRowHidden(i))
                items << list->item(i)->text();
        }
        return items;
    }
    static void search(QWidget *window, const QString &query)
    {
        auto *box = control<QLineEdit>(window, "txtQuery");
        box->selectAll();
        QTest::keyClicks(box, query);
        QTest::mouseClick(control<QPushButton>(window, "cmdSearch"), Qt::LeftButton);
    }
    static frmSearch *open(ProgramHarness &program)
    {
        program.control<QAction>("mnuToolsSearch")->trigger();
        auto *window = program.main()->findChild<frmSearch *>();
        if (!window)
            qFatal("no Search window");
        window->show();
        return window;
    }
    // How many pixels of the list show the colour behind what was found.
    static int markedPixels(QWidget *window)
    {
        auto *list = control<QListWidget>(window, "lstResults");
        const QImage image = list->viewport()->grab().toImage();
        const QRgb mark = FoundVerseDelegate::MarkColor().rgb();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += image.pixel(x, y) == mark;
        }
        return count;
    }
    static QStringList passageMarks(ProgramHarness &program)
    {
        QStringList marked;
        for (const auto &mark :
             program.control<platform::RichTextBox>("rtfPassage")->extraSelections())
            marked << mark.cursor.selectedText();
        return marked;
    }

private slots:
    void initTestCase()
    {
        const QStringList genesis{"Genesis",
                                  "CHAPTER 1",
                                  "1 God is love",
                                  "2 love of God",
                                  "CHAPTER 2",
                                  "1 nothing here",
                                  "2 He said, \"love [ye] God{H430}\""};
        const QStringList john{"John",      "CHAPTER 1",      "1 In the beginning",
                               "CHAPTER 2", "1 God so loved", "2 for God is love"};
        makeTranslation(m_dir.path(), QStringLiteral("KJV"),
                        wholeBible({{QStringLiteral("Genesis"), false, genesis},
                                    {QStringLiteral("John"), true, john}}),
                        QStringLiteral("Test Version"));
        const QStringList otherJohn{"John",      "CHAPTER 1",      "1 In the beginning",
                                    "CHAPTER 2", "1 God loved so", "2 for God is love indeed"};
        makeTranslation(m_dir.path(), QStringLiteral("ASV"),
                        wholeBible({{QStringLiteral("John"), true, otherJohn}}),
                        QStringLiteral("Other Version"));
        writeFile(m_dir.filePath(QStringLiteral("bookmarks.dat")), "");
    }

    void init()
    {
        writeFile(
            m_dir.filePath(QStringLiteral("window.ini")),
            "[]\r\nrememberwindowsetting=0\r\n[load]\r\nautoload=0\r\n[verseofday]\r\nshow=0\r\n");
    }

    // The words found are marked in the list and in the passage; the chart counts each book and a
    // click on a bar keeps the list to that book until it is clicked again.
    void marksChartAndFilter()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        frmSearch *window = open(program);
        control<QRadioButton>(window, "optAllWords")->click();
        search(window, QStringLiteral("love god"));
        QCOMPARE(shown(window), (QStringList{"Genesis 1:1", "Genesis 1:2", "Genesis 2:2",
                                             "John 2:1", "John 2:2"}));
        QCOMPARE(control<QLabel>(window, "lbltitle")->text(), QStringLiteral("5 Matches"));
        QTRY_VERIFY(markedPixels(window) > 50);
        // Each row shows its own verse under its reference: "God is love", "love of God".
        auto *list = control<QListWidget>(window, "lstResults");
        const QImage rows = list->viewport()->grab().toImage();
        const auto verseLine = [&](int row) {
            const QRect r = list->visualItemRect(list->item(row));
            return rows.copy(r.adjusted(0, r.height() / 2, 0, 0));
        };
        QVERIFY(verseLine(0) != verseLine(1));

        // The chart: three in Genesis, two in John; a bar's click filters, a second click clears.
        auto *chart = control<BookHitsChart>(window, "picChart");
        const QRect genesis = chart->barRect(1);
        const QRect john = chart->barRect(43);
        QVERIFY(!genesis.isEmpty() && !john.isEmpty());
        QVERIFY(chart->barRect(2).isEmpty());
        QVERIFY(genesis.height() > john.height());
        QTest::mouseClick(chart, Qt::LeftButton, {}, john.center());
        QCOMPARE(shown(window), (QStringList{"John 2:1", "John 2:2"}));
        QVERIFY(control<QPushButton>(window, "cmdClearFilter")->isEnabled());
        QTest::mouseClick(chart, Qt::LeftButton, {}, genesis.center());
        QCOMPARE(shown(window).size(), 3);
        QTest::mouseClick(chart, Qt::LeftButton, {}, genesis.center());
        QCOMPARE(shown(window).size(), 5);
        QTest::mouseClick(chart, Qt::LeftButton, {}, john.center());
        QTest::mouseClick(control<QPushButton>(window, "cmdClearFilter"), Qt::LeftButton);
        QCOMPARE(shown(window).size(), 5);

        // Opening a result marks the words in the passage, until the passage changes.
        const QPoint at = list->visualItemRect(list->item(4)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
        QCOMPARE(program.control<QLabel>("lbltitle")->text(), QStringLiteral("JOHN 2:2"));
        QCOMPARE(passageMarks(program), (QStringList{"God", "love"}));
        program.control<QLineEdit>("txtReference")->setText(QStringLiteral("John 1"));
        QTest::mouseClick(program.control<QPushButton>("cmdGet"), Qt::LeftButton);
        QVERIFY(passageMarks(program).isEmpty());

        // Within these results: only the verses listed that also hold "said", or "god" (the list
        // kept to John).
        control<QCheckBox>(window, "chkWithin")->click();
        search(window, QStringLiteral("said"));
        QCOMPARE(shown(window), QStringList{"Genesis 2:2"});
        control<QCheckBox>(window, "chkWithin")->click();
        search(window, QStringLiteral("love god"));
        QTest::mouseClick(chart, Qt::LeftButton, {}, chart->barRect(43).center());
        control<QCheckBox>(window, "chkWithin")->click();
        search(window, QStringLiteral("god"));
        QCOMPARE(shown(window), (QStringList{"John 2:1", "John 2:2"}));
        QCOMPARE(answers.count(), 0);
    }

    // The Query mode reads the query language and marks what each verse matched; a query it
    // cannot read is told in words, and the list keeps what it held.
    void queryModeFindsAndMarks()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        frmSearch *window = open(program);
        control<QRadioButton>(window, "optQuery")->click();
        search(window, QStringLiteral("lov* -loved"));
        QCOMPARE(shown(window),
                 (QStringList{"Genesis 1:1", "Genesis 1:2", "Genesis 2:2", "John 2:2"}));
        QCOMPARE(control<QLabel>(window, "lbltitle")->text(), QStringLiteral("4 Matches"));
        QTRY_VERIFY(markedPixels(window) > 50);
        auto *list = control<QListWidget>(window, "lstResults");
        list->setCurrentRow(3);
        QTest::mouseClick(control<QPushButton>(window, "cmdShowVerse"), Qt::LeftButton);
        QCOMPARE(passageMarks(program), QStringList{"love"});

        search(window, QStringLiteral("(love god"));
        QCOMPARE(answers.count(), 1);
        QVERIFY2(!answers.last().prompt.isEmpty(), "the message says what is wrong");
        QCOMPARE(answers.last().buttons, int(vb::vbExclamation));
        QCOMPARE(shown(window).size(), 4);
        QCOMPARE(control<QLineEdit>(window, "txtQuery")->cursorPosition(), 0);
    }

    // The verses listed go to a file chosen in the save dialog: CSV quoted by the rules, or text,
    // a line a verse; with a second translation ticked its verses stand by the open one's.
    void exportSeveralTranslations()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        frmSearch *window = open(program);
        auto *translations = control<QListWidget>(window, "lstTranslations");
        QCOMPARE(translations->count(), 1);
        translations->item(0)->setCheckState(Qt::Checked);
        control<QRadioButton>(window, "optAllWords")->click();
        search(window, QStringLiteral("god love"));
        QCOMPARE(shown(window), (QStringList{"Genesis 1:1", "Genesis 1:2", "Genesis 2:2",
                                             "John 2:1", "John 2:1", "John 2:2", "John 2:2"}));
        QCOMPARE(control<QLabel>(window, "lbltitle")->text(), QStringLiteral("7 Matches"));

        // The save dialog answers with a file and a type, or as Cancel does.
        QString target = m_dir.filePath(QStringLiteral("found.csv"));
        int type = 2;
        bool chosen = true;
        QString asked;
        support::FileAnswer answer([&](clsCommonOpenDialog &dialog, bool save) {
            asked = dialog.Filter();
            dialog.setFilename(target);
            dialog.setFilterIndex(type);
            return save && chosen;
        });
        QTest::mouseClick(control<BookHitsChart>(window, "picChart"), Qt::LeftButton, {},
                          control<BookHitsChart>(window, "picChart")->barRect(1).center());
        QTest::mouseClick(control<QPushButton>(window, "cmdExport"), Qt::LeftButton);
        QFile csv(target);
        QVERIFY(csv.open(QIODevice::ReadOnly));
        QCOMPARE(csv.readAll(), QByteArray("translation,reference,book,chapter,verse,text\r\n"
                                           "KJV,GENESIS 1:1,Genesis,1,1,God is love\r\n"
                                           "KJV,GENESIS 1:2,Genesis,1,2,love of God\r\n"
                                           "KJV,GENESIS 2:2,Genesis,2,2,\"He said, \"\"love ye "
                                           "God\"\"\"\r\n"));
        QVERIFY(asked.contains(QStringLiteral("*.csv")));

        // Every book again, as text: the translation first, a reference's verses together.
        target = m_dir.filePath(QStringLiteral("found.txt"));
        type = 1;
        QTest::mouseClick(control<QPushButton>(window, "cmdClearFilter"), Qt::LeftButton);
        QTest::mouseClick(control<QPushButton>(window, "cmdExport"), Qt::LeftButton);
        QFile text(target);
        QVERIFY(text.open(QIODevice::ReadOnly));
        const QList<QByteArray> lines = text.readAll().split('\n');
        QCOMPARE(lines.size(), 9);
        QCOMPARE(lines.at(3), QByteArray("KJV\tJOHN 2:1\tGod so loved\r"));
        QCOMPARE(lines.at(4), QByteArray("ASV\tJOHN 2:1\tGod loved so\r"));
        QCOMPARE(lines.at(7), QByteArray("7 verses in 2 translations\r"));

        // A cancelled dialog writes nothing.
        QFile::remove(target);
        chosen = false;
        QTest::mouseClick(control<QPushButton>(window, "cmdExport"), Qt::LeftButton);
        QVERIFY(!QFile::exists(target));
        QCOMPARE(answers.count(), 0);
    }

    // A book ticked in the open translation's list is searched in another translation by what it
    // is: Genesis there, though that translation lists Exodus first.
    void otherTranslationsSearchTheTickedBooks()
    {
        QTemporaryDir dir;
        makeTranslation(
            dir.path(), QStringLiteral("KJV"),
            wholeBible(
                {{QStringLiteral("Genesis"), false, {"Genesis", "CHAPTER 1", "1 God is love"}}}));
        makeTranslation(
            dir.path(), QStringLiteral("ODD"),
            {{QStringLiteral("Exodus"), false, {"Exodus", "CHAPTER 1", "1 love of God in Exodus"}},
             {QStringLiteral("Genesis"), false, {"Genesis", "CHAPTER 1", "1 God is love too"}},
             {QStringLiteral("John"), true, {"John", "CHAPTER 1", "1 God so loved"}}},
            QStringLiteral("Odd Version"));
        writeFile(dir.filePath(QStringLiteral("bookmarks.dat")), "");
        writeFile(dir.filePath(QStringLiteral("window.ini")),
                  "[]\r\nrememberwindowsetting=0\r\n[load]\r\nautoload=0\r\n[verseofday]\r\n"
                  "show=0\r\n");
        ProgramHarness program(dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        frmSearch *window = open(program);
        control<QListWidget>(window, "lstTranslations")->item(0)->setCheckState(Qt::Checked);
        control<QCheckBox>(window, "chkOldTestament")->click();
        control<QCheckBox>(window, "chkNewTestament")->click();
        auto *books = control<QListWidget>(window, "lstBooks");
        QTest::mouseClick(books->viewport(), Qt::LeftButton, {},
                          books->visualItemRect(books->item(0)).center());
        QCOMPARE(books->selectedItems().size(), 1);
        for (const char *mode : {"optAllWords", "optQuery"}) {
            control<QRadioButton>(window, mode)->click();
            search(window, QStringLiteral("god love"));
            QCOMPARE(shown(window), (QStringList{"Genesis 1:1", "Genesis 1:1"}));
            QCOMPARE(control<QLabel>(window, "lbltitle")->text(), QStringLiteral("2 Matches"));
        }
    }

    // The translations ticked beside the open one are ticked again in the next session.
    void tickedTranslationsAreKept()
    {
        for (const bool tick : {true, false}) {
            {
                ProgramHarness program(m_dir.path());
                QVERIFY(program.start(QStringLiteral("KJV")));
                frmSearch *window = open(program);
                control<QListWidget>(window, "lstTranslations")
                    ->item(0)
                    ->setCheckState(tick ? Qt::Checked : Qt::Unchecked);
                window->close();
            }
            QVERIFY(readFile(m_dir.filePath(QStringLiteral("window.ini")))
                        .contains(tick ? "translations=ASV\r\n" : "translations=\r\n"));
            ProgramHarness program(m_dir.path());
            QVERIFY(program.start(QStringLiteral("KJV")));
            QCOMPARE(control<QListWidget>(open(program), "lstTranslations")->item(0)->checkState(),
                     tick ? Qt::Checked : Qt::Unchecked);
        }
    }

    // Stop, clicked while the search lets the window take clicks, ends the scan before the next
    // book is read: nothing of the books after is listed.
    void stopEndsTheScan()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        frmSearch *window = open(program);
        auto *stop = control<QPushButton>(window, "cmdStop");
        QVERIFY(!stop->isEnabled());
        bool enabledWhileRunning = false;
        QTimer::singleShot(0, window, [&] {
            enabledWhileRunning = stop->isEnabled();
            QTest::mouseClick(stop, Qt::LeftButton);
        });
        search(window, QStringLiteral("god"));
        QVERIFY(enabledWhileRunning);
        QVERIFY(shown(window).isEmpty());
        QCOMPARE(control<QLabel>(window, "lbltitle")->text(),
                 QStringLiteral("0 Matches before the search was stopped"));
        QVERIFY(!stop->isEnabled());
        // The next search runs whole again.
        search(window, QStringLiteral("god"));
        QCOMPARE(shown(window).size(), 5);
        // The Query mode stops the same way.
        control<QRadioButton>(window, "optQuery")->click();
        QTimer::singleShot(0, window, [&] { QTest::mouseClick(stop, Qt::LeftButton); });
        search(window, QStringLiteral("god"));
        QVERIFY(shown(window).isEmpty());
        QCOMPARE(control<QLabel>(window, "lbltitle")->text(),
                 QStringLiteral("0 Matches before the search was stopped"));
        search(window, QStringLiteral("god"));
        QCOMPARE(shown(window).size(), 5);
        QCOMPARE(answers.count(), 0);
    }
};

QTEST_MAIN(TestSearchResults)
#include "tst_searchresults.moc"
