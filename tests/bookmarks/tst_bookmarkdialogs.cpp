// The Add and Organize dialogs driven as a user would, on a program folder of their own: what
// reaches "bookmarks.dat", what the shared reference list holds, and what the user is told.
#include "../support/OpenedWindow.h"
#include "../support/TranslationFixture.h"
#include "bookmarks/Bookmarks.h"
#include "bookmarks/frmAddBookmark.h"
#include "bookmarks/frmOrganizeBookmarks.h"
#include "platform/MsgBoxAnswerer.h"
#include "settings/ProgramSettings.h"

#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

using namespace fixture;
using support::OpenedWindow;

namespace {

const QByteArray
    kThree("\"Shepherd\",\"Psalm 23\"\r\n\"Vine\",\"John 15:1-2\"\r\n\"Light\",\"John 8:12\"\r\n");

} // namespace

class TestBookmarkDialogs : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    clsBible m_bible;
    Bookmarks m_bookmarks;
    int m_reloads = 0;

    QString file() const { return m_dir.filePath(QStringLiteral("bookmarks.dat")); }

    std::function<void()> reload()
    {
        return [this] {
            ++m_reloads;
            m_bookmarks.Load();
        };
    }

    // Loads the bookmarks from the file's bytes, as the main window does at start-up.
    void start(const QByteArray &bytes)
    {
        writeFile(file(), bytes);
        m_bookmarks.Load();
        m_reloads = 0;
    }

    frmOrganizeBookmarks *organize()
    {
        return new frmOrganizeBookmarks(m_bookmarks.Names(), m_bookmarks.References(), m_bible,
                                        reload());
    }

private slots:
    void initTestCase()
    {
        makeTranslation(
            m_dir.path(), QStringLiteral("TEST"),
            {{QStringLiteral("Psalms"), false,
              chapters(QStringLiteral("Psalms"), QList<int>(23, 2))},
             {QStringLiteral("John"), true, chapters(QStringLiteral("John"), QList<int>(15, 2))}});
        m_bible.setVersionPath(m_dir.filePath(QStringLiteral("TEST")));
        ProgramSettings::instance().setProgramFolder(m_dir.path());
    }

    void cleanup() { ProgramSettings::instance().rememberWindows = false; }

    void adding()
    {
        start("\"Vine\",\"John 15:1\"\r\n");
        platform::MsgBoxAnswerer answers;
        OpenedWindow<frmAddBookmark> form(new frmAddBookmark(QStringLiteral("Psalm 23"), reload()));
        // A quote could not be read back: refused, and the dialog stays open.
        QTest::keyClicks(form.control<QLineEdit>("txtName"), QStringLiteral("The \"good\" one"));
        form.click("Command1");
        QVERIFY(answers.last().prompt.startsWith(
            QStringLiteral("A bookmark name cannot contain a double quote")));
        QVERIFY(form->isVisible());
        QCOMPARE(m_reloads, 0);

        form.type("txtName", QStringLiteral("Shepherd"));
        form.click("Command1");
        QCOMPARE(readFile(file()),
                 QByteArray("\"Vine\",\"John 15:1\"\r\n\"Shepherd\",\"Psalm 23\"\r\n"));
        QCOMPARE(m_reloads, 1);
        QCOMPARE(m_bookmarks.Names(), (QStringList{"Vine", "Shepherd"}));
        QVERIFY(!form->isVisible());
        QCOMPARE(answers.count(), 1);

        // Cancel empties both boxes and closes without writing.
        OpenedWindow<frmAddBookmark> cancelled(
            new frmAddBookmark(QStringLiteral("John 3"), reload()));
        QTest::keyClicks(cancelled.control<QLineEdit>("txtName"), QStringLiteral("Born again"));
        cancelled.click("Command2");
        QVERIFY(!cancelled->isVisible());
        QCOMPARE(cancelled.text("txtName") + cancelled.text("txtReference"), QString());
        QCOMPARE(m_reloads, 1);
        QCOMPARE(m_bookmarks.Count(), 2);
    }

    void choosingAndUpdating()
    {
        start(kThree);
        platform::MsgBoxAnswerer answers;
        OpenedWindow<frmOrganizeBookmarks> form(organize());
        QCOMPARE(form.entries("lstBookmarks"), (QStringList{"Shepherd", "Vine", "Light"}));
        QVERIFY(!form.control<QLineEdit>("txtName")->isEnabled());

        form.clickRow("lstBookmarks", 1);
        QVERIFY(form.control<QLineEdit>("txtName")->isEnabled());
        QCOMPARE(form.text("txtName"), QStringLiteral("Vine"));
        QCOMPARE(form.text("txtReference"), QStringLiteral("John 15:1-2"));
        QCOMPARE(form.text("txtPassage"),
                 QStringLiteral("JOHN 15 \n1 Text of John 15:1\n2 Text of John 15:2\n"));

        // The new reference takes the old one's place; the others keep theirs.
        form.type("txtName", QStringLiteral("Love, patient"));
        form.type("txtReference", QStringLiteral("Psalm 1:1"));
        form.click("cmdUpdate");
        QCOMPARE(form.entries("lstBookmarks"), (QStringList{"Shepherd", "Love, patient", "Light"}));
        QCOMPARE(m_bookmarks.References(), (QStringList{"Psalm 23", "Psalm 1:1", "John 8:12"}));
        QVERIFY(form.text("txtPassage").contains(QStringLiteral("Text of Psalms 1:1")));
        QCOMPARE(readFile(file()), kThree);

        // Text the file could not give back is refused and changes nothing.
        form.type("txtName", QStringLiteral("A \"quoted\" name"));
        form.click("cmdUpdate");
        QCOMPARE(answers.count(), 1);
        QCOMPARE(form.entries("lstBookmarks").at(1), QStringLiteral("Love, patient"));

        // Saved and read again, the comma stays inside its quotes.
        form.click("cmdSave");
        QVERIFY(!form->isVisible());
        QCOMPARE(m_reloads, 1);
        QCOMPARE(readFile(file()),
                 QByteArray("\"Shepherd\",\"Psalm 23\"\r\n\"Love, patient\",\"Psalm "
                            "1:1\"\r\n\"Light\",\"John 8:12\"\r\n"));
        QCOMPARE(m_bookmarks.Names(), (QStringList{"Shepherd", "Love, patient", "Light"}));
    }

    void removingTheOnlyBookmark()
    {
        start("\"Shepherd\",\"Psalm 23\"\r\n");
        platform::MsgBoxAnswerer answers({vb::vbNo, vb::vbYes});
        OpenedWindow<frmOrganizeBookmarks> form(organize());
        form.clickRow("lstBookmarks", 0);
        form.click("cmdRemove");
        QCOMPARE(form.entries("lstBookmarks"), QStringList{"Shepherd"});
        form.click("cmdRemove");
        QCOMPARE(answers.prompts(), (QStringList{"Are you sure?", "Are you sure?"}));
        QCOMPARE(answers.last().buttons, int(vb::vbYesNo | vb::vbCritical));
        QCOMPARE(form.entries("lstBookmarks"), QStringList());
        for (const char *box : {"txtName", "txtReference", "txtPassage"})
            QCOMPARE(form.text(box), QString());
        form.click("cmdSave");
        QCOMPARE(readFile(file()), QByteArray());
        QCOMPARE(m_bookmarks.Count(), 0);
    }

    void removeThenCancelShiftsLaterEntries()
    {
        start(kThree);
        platform::MsgBoxAnswerer answers({vb::vbYes});
        OpenedWindow<frmOrganizeBookmarks> form(organize());
        form.clickRow("lstBookmarks", 1);
        form.click("cmdRemove");
        QCOMPARE(form.entries("lstBookmarks"), (QStringList{"Shepherd", "Light"}));
        // Nothing is chosen now, so Update has nothing to work on.
        form.click("cmdUpdate");
        QCOMPARE(form.entries("lstBookmarks"), (QStringList{"Shepherd", "Light"}));
        form.click("cmdCancel");
        QVERIFY(!form->isVisible());
        QCOMPARE(m_reloads, 0);

        // The file and the names are as they were (what the menu then shows is the menu's test).
        QCOMPARE(readFile(file()), kThree);
        QCOMPARE(m_bookmarks.Names(), (QStringList{"Shepherd", "Vine", "Light"}));
    }

    void unreadableLinesSurviveSave()
    {
        const QByteArray damaged(
            "\"Caf\xE9 only one field\"\r\n\"open quote,\"x\r\n\x01\x02\xFF\r\n");
        platform::MsgBoxAnswerer answers({vb::vbYes});
        start(kThree + damaged);
        QVERIFY(answers.last().prompt.startsWith(
            QStringLiteral("3 lines of 'bookmarks.dat' could not be read")));
        OpenedWindow<frmOrganizeBookmarks> form(organize());
        form.clickRow("lstBookmarks", 0);
        form.click("cmdRemove");
        form.click("cmdSave");
        QCOMPARE(readFile(file()),
                 QByteArray("\"Vine\",\"John 15:1-2\"\r\n\"Light\",\"John 8:12\"\r\n") + damaged);
        QCOMPARE(answers.count(), 2); // the reload found the same lines and did not ask again
    }

    void placementIsKept()
    {
        start(kThree);
        // Every dialog before this one wrote its place at close.
        writeFile(m_dir.filePath(QStringLiteral("window.ini")),
                  "[organizebookmarks]\r\nleft=1500\r\ntop=1200\r\n");
        ProgramSettings::instance().setProgramFolder(m_dir.path());
        ProgramSettings::instance().rememberWindows = true;
        platform::MsgBoxAnswerer answers({vb::vbYes});
        OpenedWindow<frmOrganizeBookmarks> form(organize());
        const int perPixel = 1440 / form->logicalDpiX();
        const QPoint saved(1500 / perPixel, 1200 / perPixel);
        QCOMPARE(form->frameGeometry().topLeft(), saved);
        // A Remove takes the saved place again.
        form->move(saved + QPoint(40, 30));
        form.clickRow("lstBookmarks", 0);
        form.click("cmdRemove");
        QCOMPARE(form->frameGeometry().topLeft(), saved);
        form->move(saved + QPoint(40, 30));
        form.click("cmdCancel");
        QCOMPARE(ProgramSettings::instance().Ini().Data(QStringLiteral("organizebookmarks"),
                                                        QStringLiteral("left")),
                 1500 + 40 * perPixel);
    }
};

QTEST_MAIN(TestBookmarkDialogs)
#include "tst_bookmarkdialogs.moc"
