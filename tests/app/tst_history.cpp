// Back and forward over the places the main window showed, driven as a reader would: moves by
// the lists, the reference box, the Translations menu and a reference window's "go to"; back by
// Alt+Left, forward by the mouse's forward button and the button beside the tabs; the drop-down
// of recent places; the unsaved-notes question on the way back; the history of the last session.
#include "../support/ProgramHarness.h"
#include "../support/TranslationFixture.h"
#include "app/HistoryNavigator.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/RichTextBox.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

using support::ProgramHarness;

namespace {

const QString kPrompt = QStringLiteral("You have not saved your notes changes, If you switch tabs "
                                       "now, you will lose any changes you have saved\r\n"
                                       "Would you like to save your changes so far?");

// What a place looks like on screen: the translation open, the passage fetched, the tab on show.
struct Seen
{
    QString translation;
    QString passage;
    int tab = 0;
    bool operator==(const Seen &) const = default;
};

char *toString(const Seen &seen)
{
    return QTest::toString(
        QStringLiteral("%1 %2 tab %3").arg(seen.translation, seen.passage).arg(seen.tab));
}

} // namespace

class TestHistory : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    Seen seen(ProgramHarness &program) const
    {
        return {QDir(program.main()->Bible().VersionPath()).dirName(),
                program.main()->Bible().Standard(),
                program.control<QTabWidget>("SSTab1")->currentIndex()};
    }

    static void chooseTranslation(ProgramHarness &program, const QString &folder)
    {
        for (QAction *menu : program.main()->menuBar()->actions()) {
            if (menu->text() != QStringLiteral("&Translations"))
                continue;
            for (QAction *entry : menu->menu()->actions())
                if (entry->data().toString() == folder) {
                    entry->trigger();
                    return;
                }
        }
        QFAIL(qPrintable(QStringLiteral("no menu entry for ") + folder));
    }

    static void showTab(ProgramHarness &program, int index)
    {
        program.control<QTabWidget>("SSTab1")->setCurrentIndex(index);
    }

    // The paragraph (verse) at the top of the passage.
    static int top(ProgramHarness &program)
    {
        auto *view = program.control<platform::RichTextBox>("rtfPassage");
        return view->cursorForPosition(QPoint(0, 1)).blockNumber();
    }

    void start(ProgramHarness &program)
    {
        QVERIFY(program.start(QStringLiteral("KJV")));
        QVERIFY(QTest::qWaitForWindowExposed(program.main()));
        program.main()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(program.main()));
    }

private slots:
    void initTestCase()
    {
        // The imported translations and the commentary of the build's program folder, the
        // settings and notes in a folder of the test's own.
        const QString imported = qEnvironmentVariable("QS_PROGRAM_DIR");
        for (const QString &folder :
             {QStringLiteral("KJV"), QStringLiteral("KJVS"), QStringLiteral("WEB"),
              QStringLiteral("RV1909"), QStringLiteral("tvc")})
            QVERIFY2(QFile::link(imported + u'/' + folder, m_dir.filePath(folder)),
                     qPrintable(imported + u'/' + folder));
    }

    void init()
    {
        fixture::writeFile(m_dir.filePath(QStringLiteral("bookmarks.dat")), QByteArray());
        QFile::remove(m_dir.filePath(QStringLiteral("window.ini")));
        fixture::writeFile(m_dir.filePath(QStringLiteral("window.ini")),
                           "[load]\r\nautoload=0\r\n[verseofday]\r\nshow=0\r\n");
        QDir(m_dir.filePath(QStringLiteral("notes"))).removeRecursively();
    }

    void tenMixedMovesBackAndForth()
    {
        platform::MsgBoxAnswerer nobodyAsked;
        ProgramHarness program(m_dir.path());
        start(program);
        QList<Seen> places{seen(program)};
        QCOMPARE(places.first(), (Seen{QStringLiteral("KJV"), QStringLiteral("GENESIS 1"), 0}));
        int psalmTop = -1;

        // Each move: the tab the reader turns to first (-1: none), then the move. Leaving a
        // place keeps the tab the reader had turned to.
        const std::pair<int, std::function<void()>> moves[] = {
            {-1, [&] { program.getReference(QStringLiteral("John 3")); }},
            {-1,
             [&] {
                 auto *chapters = program.control<QListWidget>("lstChapters");
                 QTest::mouseClick(chapters->viewport(), Qt::LeftButton, {},
                                   chapters->visualItemRect(chapters->item(4)).center());
             }},
            {1, [&] { program.getReference(QStringLiteral("Psalm 23")); }},
            {0, [&] { chooseTranslation(program, QStringLiteral("WEB")); }},
            {-1, [&] { program.getReference(QStringLiteral("Psalm 119")); }},
            {-1,
             [&] {
                 // Well down the long psalm before the next move.
                 auto *view = program.control<platform::RichTextBox>("rtfPassage");
                 view->verticalScrollBar()->setValue(view->verticalScrollBar()->maximum() / 2);
                 psalmTop = top(program);
                 QVERIFY(psalmTop > 50);
                 program.getReference(QStringLiteral("Romans 8"));
             }},
            {2, [&] { program.getReference(QStringLiteral("Genesis 3")); }},
            {-1, [&] { chooseTranslation(program, QStringLiteral("RV1909")); }},
            {0, [&] { program.main()->GoToReference(QStringLiteral("Juan 1")); }},
            {-1, [&] { chooseTranslation(program, QStringLiteral("KJVS")); }},
        };
        for (const auto &[tab, move] : moves) {
            if (tab >= 0) {
                showTab(program, tab);
                places.last().tab = tab;
            }
            move();
            QVERIFY(!QTest::currentTestFailed());
            QVERIFY(seen(program) != places.last());
            places.append(seen(program));
        }
        QCOMPARE(places.at(2), (Seen{QStringLiteral("KJV"), QStringLiteral("JOHN 5"), 1}));
        QCOMPARE(places.at(3), (Seen{QStringLiteral("KJV"), QStringLiteral("PSALMS 23"), 0}));
        QCOMPARE(places.at(6).tab, 2);
        QCOMPARE(places.at(7).tab, 2);
        QCOMPARE(places.at(4), (Seen{QStringLiteral("WEB"), QStringLiteral("PSALMS 23"), 0}));
        QCOMPARE(places.at(8).tab, 0);
        QCOMPARE(places.at(8).translation, QStringLiteral("RV1909"));
        QCOMPARE(places.at(10).translation, QStringLiteral("KJVS"));
        const HistoryNavigator &history = program.main()->History();
        QCOMPARE(history.places().places().size(), places.size());

        // Back, one step at a time with Alt+Left, to the first place.
        for (qsizetype i = places.size() - 2; i >= 0; --i) {
            QTest::keyClick(program.main(), Qt::Key_Left, Qt::AltModifier);
            QCOMPARE(seen(program), places.at(i));
            if (i == 5)
                QCOMPARE(top(program), psalmTop);
        }
        QVERIFY(!program.control<QToolButton>("cmdBack")->isEnabled());
        QTest::keyClick(program.main(), Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(seen(program), places.first());

        // Forward again: the mouse's forward button over the passage, then the button.
        auto *passage = program.control<platform::RichTextBox>("rtfPassage");
        for (qsizetype i = 1; i < places.size(); ++i) {
            if (i % 2)
                QTest::mouseClick(passage->viewport(), Qt::ForwardButton);
            else
                QTest::mouseClick(program.control<QToolButton>("cmdForward"), Qt::LeftButton);
            QCOMPARE(seen(program), places.at(i));
        }
        QVERIFY(!program.control<QToolButton>("cmdForward")->isEnabled());

        // The drop-down lists the newest first, the one on show ticked; a pick goes there, and
        // a new move from there drops the places ahead.
        QMenu *recent = program.control<QToolButton>("cmdRecent")->menu();
        emit recent->aboutToShow();
        QCOMPARE(recent->actions().size(), places.size());
        QVERIFY(recent->actions().first()->isChecked());
        QCOMPARE(recent->actions().at(9)->text(), QStringLiteral("JOHN 3 (KJV)"));
        recent->actions().at(9)->trigger();
        QCOMPARE(seen(program), places.at(1));
        program.getReference(QStringLiteral("Acts 2"));
        QCOMPARE(history.places().places().size(), 3);
        QVERIFY(!program.control<QToolButton>("cmdForward")->isEnabled());
        QCOMPARE(nobodyAsked.prompts().join(u'|'), QString());
    }

    void backAsksAboutUnsavedNotes()
    {
        ProgramHarness program(m_dir.path());
        start(program);
        program.getReference(QStringLiteral("John 3"));
        showTab(program, 1);
        program.getReference(QStringLiteral("John 4"));
        auto *notes = program.control<platform::RichTextBox>("rtfNotes");
        notes->setFocus();
        QTest::keyClicks(notes, QStringLiteral("Living water"));

        // Kept on screen when the reader says so and the save fails is the notes' own test; here
        // Yes saves them, then the window goes back.
        {
            platform::MsgBoxAnswerer answers({vb::vbYes});
            QTest::keyClick(program.main(), Qt::Key_Left, Qt::AltModifier);
            QCOMPARE(answers.prompts(), QStringList{kPrompt});
        }
        QCOMPARE(seen(program), (Seen{QStringLiteral("KJV"), QStringLiteral("JOHN 3"), 1}));
        QFile saved(m_dir.filePath(QStringLiteral("notes/newtest/JOHN.dat")));
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QVERIFY(saved.readAll().contains("Living water"));

        // No drops them and goes on.
        QTest::keyClicks(notes, QStringLiteral("Born again"));
        {
            platform::MsgBoxAnswerer answers({vb::vbNo});
            QTest::keyClick(program.main(), Qt::Key_Right, Qt::AltModifier);
            QCOMPARE(answers.count(), 1);
        }
        QCOMPARE(seen(program), (Seen{QStringLiteral("KJV"), QStringLiteral("JOHN 4"), 1}));
        QVERIFY(notes->Text().contains(QStringLiteral("Living water")));
        saved.seek(0);
        QVERIFY(!saved.readAll().contains("Born again"));
    }

    void backFromWhatIsNoPlace()
    {
        platform::MsgBoxAnswerer nobodyAsked;
        ProgramHarness program(m_dir.path());
        start(program);
        auto *title = program.control<QLabel>("lbltitle");
        auto *passage = program.control<platform::RichTextBox>("rtfPassage");
        program.getReference(QStringLiteral("John 3"));
        program.getReference(QStringLiteral("John 4"));
        // Search results, then a reference that is not found: Back returns to the chapter they
        // covered, then to the one before, and Forward comes back.
        program.control<QLineEdit>("txtQuery")->setText(QStringLiteral("Nicodemus"));
        QTest::mouseClick(program.control<QPushButton>("cmdSearch"), Qt::LeftButton);
        QVERIFY(title->text() != QStringLiteral("JOHN 4"));
        QVERIFY(!passage->Text().startsWith(QStringLiteral("JOHN 4")));
        QTest::keyClick(program.main(), Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(title->text(), QStringLiteral("JOHN 4"));
        QVERIFY(passage->Text().startsWith(QStringLiteral("JOHN 4")));
        program.getReference(QStringLiteral("Hezekiah 3"));
        QTest::keyClick(program.main(), Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(title->text(), QStringLiteral("JOHN 4"));
        QTest::keyClick(program.main(), Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(title->text(), QStringLiteral("JOHN 3"));
        QTest::keyClick(program.main(), Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(title->text(), QStringLiteral("JOHN 4"));
        QCOMPARE(program.main()->History().places().places().size(), 3);
        QCOMPARE(nobodyAsked.prompts().join(u'|'), QString());
    }

    void aHundredPlacesAtMost()
    {
        {
            ProgramHarness program(m_dir.path());
            start(program);
            for (int chapter = 1; chapter <= 120; ++chapter)
                program.main()->GoToReference(QStringLiteral("Psalm %1").arg(chapter));
            const QList<Place> &places = program.main()->History().places().places();
            QCOMPARE(places.size(), PlaceHistory::Capacity);
            QCOMPARE(places.first().reference, QStringLiteral("PSALMS 21"));
            QCOMPARE(places.last().reference, QStringLiteral("PSALMS 120"));
        }
        // All hundred come back; the start's own place pushes the oldest out.
        ProgramHarness program(m_dir.path());
        start(program);
        const QList<Place> &places = program.main()->History().places().places();
        QCOMPARE(places.size(), PlaceHistory::Capacity);
        QCOMPARE(places.first().reference, QStringLiteral("PSALMS 22"));
        QCOMPARE(places.at(98).reference, QStringLiteral("PSALMS 120"));
        QCOMPARE(places.last().reference, QStringLiteral("GENESIS 1"));
    }

    void lastSessionKept()
    {
        {
            ProgramHarness program(m_dir.path());
            start(program);
            program.getReference(QStringLiteral("John 3"));
            chooseTranslation(program, QStringLiteral("WEB"));
            program.getReference(QStringLiteral("Mark 2"));
            QTest::keyClick(program.main(), Qt::Key_Left, Qt::AltModifier);
        }
        ProgramHarness program(m_dir.path());
        start(program);
        // The session opens on the first chapter as always; one step back is where the last
        // one was left.
        QCOMPARE(seen(program), (Seen{QStringLiteral("KJV"), QStringLiteral("GENESIS 1"), 0}));
        QTest::keyClick(program.main(), Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(seen(program), (Seen{QStringLiteral("WEB"), QStringLiteral("JOHN 3"), 0}));
        QTest::keyClick(program.main(), Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(seen(program), (Seen{QStringLiteral("KJV"), QStringLiteral("JOHN 3"), 0}));
        // A settings file spoiled by hand loses the lines that do not read, not the rest.
        program.closeMain();
        fixture::writeFile(m_dir.filePath(QStringLiteral("window.ini")),
                           "[load]\r\nautoload=0\r\n[verseofday]\r\nshow=0\r\n[history]\r\ncurrent="
                           "7\r\n[historyplaces]\r\n"
                           "place1=KJV|JOHN 3|0|0\r\nplace2=garbage\r\nplace3=WEB|MARK 2|x|0\r\n"
                           "place4=KJV|ACTS 2|1|5\r\n");
        ProgramHarness again(m_dir.path());
        start(again);
        // The two places that read, and this session's first.
        QCOMPARE(again.main()->History().places().places().size(), 3);
        QTest::keyClick(again.main(), Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(seen(again), (Seen{QStringLiteral("KJV"), QStringLiteral("ACTS 2"), 1}));
    }
};

QTEST_MAIN(TestHistory)
#include "tst_history.moc"
