// Windows keep their place in "window.ini": restored when the user keeps window settings, always
// saved, and written back unchanged when the user did not move anything.
#include "../support/TranslationFixture.h"
#include "settings/ProgramSettings.h"
#include "settings/WindowPlacement.h"

#include <QLabel>
#include <QSplitter>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

class TestWindowPlacement : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    void useIni(const QByteArray &text, bool remember)
    {
        fixture::writeFile(m_dir.filePath(QStringLiteral("window.ini")), text);
        ProgramSettings::instance().setProgramFolder(m_dir.path());
        ProgramSettings::instance().rememberWindows = remember;
    }

private slots:
    void cleanup() { ProgramSettings::instance().rememberWindows = false; }

    // First of all, so that no window has been framed yet and the frame is unknown when the
    // window is placed, as it is for the program's first window.
    void maximisedComesBackAtItsSavedSize()
    {
        useIni("[main]\r\nwindowstate=2\r\nleft=1500\r\ntop=1200\r\nwidth=9030\r\nheight=6375\r\n",
               true);
        QWidget window;
        WindowPlacement placement(&window, QStringLiteral("main"),
                                  WindowPlacement::Position | WindowPlacement::Size |
                                      WindowPlacement::State);
        placement.restore();
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(window.isMaximized());
        // Restored by the user, then closed: the saved normal placement, frame included.
        window.setWindowState(Qt::WindowNoState);
        QTRY_COMPARE(window.frameGeometry(), QRect(100, 80, 602, 425));
        window.close();
        QCOMPARE(
            fixture::readFile(m_dir.filePath(QStringLiteral("window.ini"))),
            "[main]\r\nwindowstate=0\r\nleft=1500\r\ntop=1200\r\nwidth=9030\r\nheight=6375\r\n");
    }

    void fitOnScreen_data()
    {
        QTest::addColumn<QRect>("outer");
        QTest::addColumn<QRect>("fitted");
        QTest::newRow("inside") << QRect(80, 60, 1000, 720) << QRect(80, 60, 1000, 720);
        QTest::newRow("off the bottom") << QRect(80, 300, 1000, 720) << QRect(80, 180, 1000, 720);
        QTest::newRow("off the left and top")
            << QRect(-500, -20, 400, 300) << QRect(0, 0, 400, 300);
        QTest::newRow("larger than the screen")
            << QRect(10, 10, 2000, 1200) << QRect(0, 0, 1440, 900);
        QTest::newRow("a missing key reads -1") << QRect(-1, -1, 300, 300) << QRect(0, 0, 300, 300);
    }

    void fitOnScreen()
    {
        QFETCH(QRect, outer);
        QFETCH(QRect, fitted);
        QCOMPARE(WindowPlacement::FitOnScreen(outer, QRect(0, 0, 1440, 900), QSize(200, 272)),
                 fitted);
    }

    void untouchedWindowKeepsItsValues()
    {
        // 2507 twips is no whole number of pixels: rounding must not move the window each time.
        const QByteArray ini =
            "[main]\r\nwindowstate=0\r\nLeft=1207\r\ntop=900\r\nwidth=9000\r\nheight=7200\r\n"
            "split0=2520\r\nsplit1=4507\r\n[tool]\r\nleft=300\r\ntop=450\r\ntab=2\r\n";
        useIni(ini, true);
        for (int run = 0; run < 3; ++run) {
            QWidget window;
            auto *layout = new QVBoxLayout(&window);
            layout->setContentsMargins(6, 6, 6, 6);
            auto *splitter = new QSplitter(&window);
            for (int i = 0; i < 3; ++i)
                splitter->addWidget(new QLabel(QStringLiteral("pane"), splitter));
            layout->addWidget(splitter);
            WindowPlacement placement(&window, QStringLiteral("main"),
                                      WindowPlacement::Position | WindowPlacement::Size |
                                          WindowPlacement::State);
            placement.setLeftReadKey(QStringLiteral("Left"));
            placement.addSplitter(splitter, {QStringLiteral("split0"), QStringLiteral("split1")});
            placement.restore();
            window.show();
            QVERIFY(QTest::qWaitForWindowExposed(&window));
            QTest::qWait(10);
            QCOMPARE(splitter->sizes().value(0), 168 - 6);
            window.close();
        }
        // Saved under "left" (the store finds it under "Left"), every value as it was.
        QCOMPARE(fixture::readFile(m_dir.filePath(QStringLiteral("window.ini"))), ini);
    }

    void rememberedOnlyWhenAsked()
    {
        useIni("[tool]\r\nleft=1500\r\ntop=1500\r\ntab=1\r\n", false);
        QWidget window;
        QTabWidget tabs(&window);
        tabs.addTab(new QLabel, QStringLiteral("One"));
        tabs.addTab(new QLabel, QStringLiteral("Two"));
        window.move(40, 30);
        WindowPlacement placement(&window, QStringLiteral("tool"));
        placement.addTab(&tabs);
        placement.restore();
        // The tab is always restored; the place only when windows are remembered.
        QCOMPARE(tabs.currentIndex(), 1);
        QCOMPARE(window.pos(), QPoint(40, 30));
        ProgramSettings::instance().rememberWindows = true;
        placement.restore();
        QCOMPARE(window.pos(), QPoint(100, 100));

        // Saved at every close, whatever the setting, in twips.
        ProgramSettings::instance().rememberWindows = false;
        window.move(60, 80);
        tabs.setCurrentIndex(0);
        window.show();
        window.hide();
        clsIni &ini = ProgramSettings::instance().Ini();
        QCOMPARE(ini.Data(QStringLiteral("tool"), QStringLiteral("left")), 900);
        QCOMPARE(ini.Data(QStringLiteral("tool"), QStringLiteral("top")), 1200);
        QCOMPARE(ini.Data(QStringLiteral("tool"), QStringLiteral("tab")), 0);
    }
};

QTEST_MAIN(TestWindowPlacement)
#include "tst_windowplacement.moc"
