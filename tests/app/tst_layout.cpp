// The main window's layout and remembered session: splitters held 250 twips from either side,
// the smallest window, the keys written at closing, and the start-up window's own place.
#include "../support/ProgramHarness.h"
#include "../support/TranslationFixture.h"
#include "platform/MsgBoxAnswerer.h"

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QSplitter>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

using namespace fixture;
using support::ProgramHarness;

class TestLayout : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    // At 96 dots an inch a pixel is 15 twips; 250 twips round up to 17 pixels.
    static constexpr int kClampPixels = 17;

    void drag(QSplitter *splitter, int handle, int dx)
    {
        QWidget *bar = splitter->handle(handle);
        const QPoint start(bar->width() / 2, bar->height() / 2);
        QTest::mousePress(bar, Qt::LeftButton, {}, start);
        QTest::mouseMove(bar, start + QPoint(dx / 2, 0));
        QTest::mouseMove(bar, start + QPoint(dx, 0));
        QTest::mouseRelease(bar, Qt::LeftButton, {}, start + QPoint(dx, 0));
    }

    int data(const char *section, const char *key) const
    {
        return ProgramSettings::instance().Ini().Data(QLatin1String(section), QLatin1String(key));
    }

private slots:
    void initTestCase()
    {
        makeTranslation(m_dir.path(), QStringLiteral("TEST"), wholeBible(),
                        QStringLiteral("Test Version"));
    }

    void startUpWithoutFirstMarker()
    {
        // Genesis lost its "CHAPTER 1" line: the first view is empty, but titled for what it is.
        QList<Book> books = wholeBible();
        books[0].lines.removeFirst();
        books[0].mapChapters = 3;
        makeTranslation(m_dir.path(), QStringLiteral("NOMARK"), books, QStringLiteral("No Mark"));
        writeFile(m_dir.filePath(QStringLiteral("window.ini")),
                  "[]\r\nrememberwindowsetting=0\r\n");
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("NOMARK")));
        QCOMPARE(program.title(), QStringLiteral("GENESIS 1"));
    }

    void splittersAndSmallestWindow()
    {
        writeFile(m_dir.filePath(QStringLiteral("window.ini")),
                  "[]\r\nrememberwindowsetting=0\r\n");
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("TEST")));
        frmMain *main = program.main();
        main->resize(900, 600);
        main->show();
        QVERIFY(QTest::qWaitForWindowExposed(main));
        auto *splitter = program.control<QSplitter>("splitter");
        auto *books = program.control<QListWidget>("lstBooks");
        auto *chapters = program.control<QListWidget>("lstChapters");
        auto *tabs = program.control<QTabWidget>("SSTab1");

        // Far left: the books list keeps 250 twips; the testament list ends with the chapters.
        drag(splitter, 1, -2000);
        QCOMPARE(books->width(), kClampPixels);
        QTest::qWait(10);
        QCOMPARE(program.control<QComboBox>("cmbTestaments")->width(),
                 chapters->geometry().right() - books->geometry().left() + 1);

        // Splitter 1 past the right edge stops 250 twips inside it.
        drag(splitter, 2, 4000);
        QCOMPARE(tabs->width(), kClampPixels);
        QTest::qWait(10);
        QCOMPARE(program.control<QLabel>("lbltitle")->width(), tabs->width());

        // Below 3000 by 4080 twips, frame included, the window snaps back to that size.
        main->resize(50, 50);
        QCOMPARE(main->frameGeometry().size(), QSize(200, 272));
        // The reference and keyword boxes stay along the bottom.
        auto *frame = program.control<QFrame>("Frame1");
        QVERIFY(frame->geometry().bottom() >= main->centralWidget()->height() - 10);
    }

    void sessionWrittenAtClose()
    {
        writeFile(
            m_dir.filePath(QStringLiteral("window.ini")),
            "[]\r\nrememberwindowsetting=1\r\n[main]\r\nwindowstate=0\r\nLeft=1500\r\ntop=1200\r\n"
            "width=9000\r\nheight=7200\r\nsplit0=3000\r\nsplit1=4500\r\n");
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("TEST")));
        frmMain *main = program.main();
        QCOMPARE(main->pos(), QPoint(100, 80));
        main->show();
        QVERIFY(QTest::qWaitForWindowExposed(main));
        QTRY_COMPARE(program.control<QListWidget>("lstBooks")->width(), 200 - 6);
        // The testament list follows the restored splitters.
        auto *chapters = program.control<QListWidget>("lstChapters");
        QCOMPARE(program.control<QComboBox>("cmbTestaments")->width(),
                 chapters->geometry().right() -
                     program.control<QListWidget>("lstBooks")->geometry().left() + 1);

        // The user moves a splitter and maximises the window.
        drag(program.control<QSplitter>("splitter"), 1, 30);
        main->showMaximized();
        QTest::qWait(20);
        program.closeMain();
        QCOMPARE(data("main", "windowstate"), 2);
        // A maximised window keeps the normal placement of before.
        QCOMPARE(data("main", "Left"), 1500);
        QCOMPARE(data("main", "width"), 9000);
        QCOMPARE(data("main", "split0"), 3000 + 30 * 15);
    }

    void noMainSectionLeavesPlacementAlone()
    {
        // windowstate reads -1, which is not 0: the place and size are not read.
        writeFile(m_dir.filePath(QStringLiteral("window.ini")),
                  "[]\r\nrememberwindowsetting=1\r\n");
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("TEST")));
        // The window has the size it is first given, as a window that keeps no place does.
        const frmMain fresh;
        QCOMPARE(program.main()->size(), fresh.size());
    }

    void chooserKeepsItsPlaceHoweverClosed()
    {
        for (const bool escape : {true, false}) {
            writeFile(m_dir.filePath(QStringLiteral("window.ini")),
                      "[]\r\nrememberwindowsetting=1\r\n[load]\r\nautoload=0\r\nleft=1500\r\ntop="
                      "1500\r\n");
            platform::MsgBoxAnswerer answers;
            ProgramHarness program(m_dir.path());
            QVERIFY(program.start());
            frmLoadVersion *chooser = program.chooser();
            QCOMPARE(chooser->pos(), QPoint(100, 100));
            chooser->show();
            QVERIFY(QTest::qWaitForWindowExposed(chooser));
            chooser->move(150, 120);
            if (escape)
                QTest::keyClick(chooser, Qt::Key_Escape);
            else
                chooser->close();
            QVERIFY(!chooser->isVisible());
            QCOMPARE(data("load", "left"), 150 * 15);
            QCOMPARE(data("load", "top"), 120 * 15);
        }
    }
};

QTEST_MAIN(TestLayout)
#include "tst_layout.moc"
