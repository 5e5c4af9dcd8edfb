// The Search window as a reader uses it: opened from Tools and from the Advanced Search button, a
// query over the books of one testament, a result shown, all results shown, a second start while
// one runs, and the place and books it keeps.
#include "../support/ProgramHarness.h"
#include "../support/TranslationFixture.h"
#include "app/frmSearch.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/RichTextBox.h"
#include "settings/clsIni.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace fixture;
using support::ProgramHarness;

class TestSearchWindow : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    template <typename T> static T *in(QWidget *window, const char *name)
    {
        T *found = window->findChild<T *>(QLatin1String(name));
        if (!found)
            qFatal("no control named %s", name);
        return found;
    }
    static QStringList results(QWidget *window)
    {
        QStringList items;
        auto *list = in<QListWidget>(window, "lstResults");
        for (int i = 0; i < list->count(); ++i)
            items << list->item(i)->text();
        return items;
    }
    static void search(QWidget *window, const QString &query)
    {
        auto *box = in<QLineEdit>(window, "txtQuery");
        box->selectAll();
        QTest::keyClicks(box, query);
        QTest::mouseClick(in<QPushButton>(window, "cmdSearch"), Qt::LeftButton);
    }

private slots:
    void initTestCase()
    {
        const QStringList genesis{"CHAPTER 1", "1 God is love", "2 love of God", "CHAPTER 2",
                                  "1 nothing here"};
        const QStringList john{"CHAPTER 1", "1 In the beginning", "CHAPTER 2", "1 God so loved",
                               "2 for God is love"};
        makeTranslation(m_dir.path(), QStringLiteral("KJV"),
                        wholeBible({{QStringLiteral("Genesis"), false, genesis},
                                    {QStringLiteral("John"), true, john}}),
                        QStringLiteral("Test Version"));
        writeFile(m_dir.filePath(QStringLiteral("bookmarks.dat")), "");
    }

    void init()
    {
        writeFile(
            m_dir.filePath(QStringLiteral("window.ini")),
            "[]\r\nrememberwindowsetting=0\r\n[load]\r\nautoload=0\r\n[verseofday]\r\nshow=0\r\n");
    }

    void searchOneTestamentAndShow()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        program.control<QPushButton>("cmdAdvanced")->click();
        auto *window = program.main()->findChild<frmSearch *>();
        QVERIFY(window && window->isVisible());
        QCOMPARE(window->windowTitle(), QStringLiteral("Search"));
        // The menu entry brings the same window forward.
        program.control<QAction>("mnuToolsSearch")->trigger();
        QCOMPARE(program.main()->findChildren<frmSearch *>().size(), 1);

        // Every book is chosen the first time; the Old Testament box clears its books.
        auto *books = in<QListWidget>(window, "lstBooks");
        QCOMPARE(books->count(), 66);
        QCOMPARE(books->selectedItems().size(), 66);
        QVERIFY(in<QCheckBox>(window, "chkOldTestament")->isChecked());
        in<QCheckBox>(window, "chkOldTestament")->click();
        QCOMPARE(books->selectedItems().size(), 27);
        QVERIFY(!in<QCheckBox>(window, "chkOldTestament")->isChecked());
        QVERIFY(in<QCheckBox>(window, "chkNewTestament")->isChecked());

        in<QRadioButton>(window, "optAllWords")->click();
        search(window, QStringLiteral("love god"));
        QCOMPARE(results(window), (QStringList{"John 2:1", "John 2:2"}));
        QCOMPARE(in<QLabel>(window, "lbltitle")->text(), QStringLiteral("2 Matches"));
        in<QCheckBox>(window, "chkOldTestament")->click();
        search(window, QStringLiteral("love god"));
        QCOMPARE(results(window).size(), 4);

        // A double click shows the verse as "Get it" would.
        auto *list = in<QListWidget>(window, "lstResults");
        const QPoint at = list->visualItemRect(list->item(3)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
        QCOMPARE(program.control<QLabel>("lbltitle")->text(), QStringLiteral("JOHN 2:2"));
        QVERIFY(program.control<platform::RichTextBox>("rtfPassage")
                    ->Text()
                    .contains(QStringLiteral("2 for God is love")));

        // Show All: every verse found, under the query.
        QTest::mouseClick(in<QPushButton>(window, "cmdShowAll"), Qt::LeftButton);
        QCOMPARE(program.control<QLabel>("lbltitle")->text(),
                 QStringLiteral("Search results for \"love god\" (4 matches)"));
        const QString all = program.control<platform::RichTextBox>("rtfPassage")->Text();
        QVERIFY2(all.contains(QStringLiteral("John 2:1 God so loved")) &&
                     all.contains(QStringLiteral("1 God is love")),
                 qPrintable(all));
        QCOMPARE(answers.count(), 0);
    }

    void secondStartWhileRunning()
    {
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        program.control<QAction>("mnuToolsSearch")->trigger();
        auto *window = program.main()->findChild<frmSearch *>();
        // A timer fires while the search lets the windows take events between books: a click on
        // Search is refused in words, a click in the main window waits for the search to end.
        QTimer::singleShot(0, window, [window, &program] {
            QTest::mouseClick(in<QPushButton>(window, "cmdSearch"), Qt::LeftButton);
            program.control<QLineEdit>("txtReference")->setText(QStringLiteral("John 2"));
            QTest::mouseClick(program.control<QPushButton>("cmdGet"), Qt::LeftButton);
        });
        search(window, QStringLiteral("god"));
        QCOMPARE(answers.prompts(),
                 QStringList{"A search is already running, please wait until it is finished"});
        QCOMPARE(answers.last().buttons, int(vb::vbCritical));
        QCOMPARE(results(window).size(), 4);
        QCOMPARE(program.control<QLabel>("lbltitle")->text(), QStringLiteral("GENESIS 1"));
    }

    void keepsPlaceAndBooks()
    {
        {
            ProgramHarness program(m_dir.path());
            QVERIFY(program.start(QStringLiteral("KJV")));
            program.control<QAction>("mnuToolsSearch")->trigger();
            auto *window = program.main()->findChild<frmSearch *>();
            in<QCheckBox>(window, "chkNewTestament")->click();
            in<QListWidget>(window, "lstBooks")->item(39)->setSelected(true);
            window->close();
        }
        clsIni ini;
        ini.Create(m_dir.filePath(QStringLiteral("window.ini")));
        const QString books = ini.Text(QStringLiteral("search"), QStringLiteral("books"));
        QCOMPARE(books, QString(39, u'1') + u'1' + QString(26, u'0'));
        QVERIFY(ini.Data(QStringLiteral("search"), QStringLiteral("left")) >= 0);

        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("KJV")));
        program.control<QAction>("mnuToolsSearch")->trigger();
        auto *window = program.main()->findChild<frmSearch *>();
        auto *list = in<QListWidget>(window, "lstBooks");
        QCOMPARE(list->selectedItems().size(), 40);
        QVERIFY(list->item(39)->isSelected() && !list->item(40)->isSelected());
        QVERIFY(in<QCheckBox>(window, "chkOldTestament")->isChecked());
        QVERIFY(!in<QCheckBox>(window, "chkNewTestament")->isChecked());
    }
};

QTEST_MAIN(TestSearchWindow)
#include "tst_searchwindow.moc"
