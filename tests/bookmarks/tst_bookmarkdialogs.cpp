// The Add and Organize dialogs driven as a user would, on a program folder of their own: what
// reaches "bookmarks.dat", what the shared reference list holds, and what the user is told.
#include "../support/Controls.h"
#include "../support/TranslationFixture.h"
#include "bookmarks/Bookmarks.h"
#include "bookmarks/frmAddBookmark.h"
#include "bookmarks/frmOrganizeBookmarks.h"
#include "platform/MsgBoxAnswerer.h"
#include "settings/ProgramSettings.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace fixture;
using support::control;

namespace {

void click(QWidget *form, const char *button)
{
    QTest::mouseClick(control<QPushButton>(form, button), Qt::LeftButton);
}

void choose(QWidget *form, int row)
{
    auto *list = control<QListWidget>(form, "lstBookmarks");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(row)).center());
}

void retype(QWidget *form, const char *box, const QString &text)
{
    auto *edit = control<QLineEdit>(form, box);
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
}

QString text(QWidget *form, const char *box)
{
    if (auto *edit = form->findChild<QLineEdit *>(QLatin1String(box)))
        return edit->text();
    return control<QPlainTextEdit>(form, box)->toPlainText();
}

QStringList entries(QWidget *form)
{
    QStringList names;
    auto *list = control<QListWidget>(form, "lstBookmarks");
    for (int i = 0; i < list->count(); ++i)
        names << list->item(i)->text();
    return names;
}

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

    std::unique_ptr<frmOrganizeBookmarks> organize()
    {
        auto form = std::make_unique<frmOrganizeBookmarks>(
            m_bookmarks.Names(), m_bookmarks.References(), m_bible, reload());
        form->show();
        if (!QTest::qWaitForWindowExposed(form.get()))
            qFatal("the dialog did not show");
        return form;
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
        frmAddBookmark form(QStringLiteral("Psalm 23"), reload());
        form.show();
        // A quote could not be read back: refused, and the dialog stays open.
        QTest::keyClicks(control<QLineEdit>(&form, "txtName"), QStringLiteral("The \"good\" one"));
        click(&form, "Command1");
        QVERIFY(answers.last().prompt.startsWith(
            QStringLiteral("A bookmark name cannot contain a double quote")));
        QVERIFY(form.isVisible());
        QCOMPARE(m_reloads, 0);

        retype(&form, "txtName", QStringLiteral("Shepherd"));
        click(&form, "Command1");
        QCOMPARE(readFile(file()),
                 QByteArray("\"Vine\",\"John 15:1\"\r\n\"Shepherd\",\"Psalm 23\"\r\n"));
        QCOMPARE(m_reloads, 1);
        QCOMPARE(m_bookmarks.Names(), (QStringList{"Vine", "Shepherd"}));
        QVERIFY(!form.isVisible());
        QCOMPARE(answers.count(), 1);

        // Cancel empties both boxes and closes without writing.
        frmAddBookmark cancelled(QStringLiteral("John 3"), reload());
        cancelled.show();
        QTest::keyClicks(control<QLineEdit>(&cancelled, "txtName"), QStringLiteral("Born again"));
        click(&cancelled, "Command2");
        QVERIFY(!cancelled.isVisible());
        QCOMPARE(text(&cancelled, "txtName") + text(&cancelled, "txtReference"), QString());
        QCOMPARE(m_reloads, 1);
        QCOMPARE(m_bookmarks.Count(), 2);
    }

    void choosingAndUpdating()
    {
        start(kThree);
        platform::MsgBoxAnswerer answers;
        auto form = organize();
        QCOMPARE(entries(form.get()), (QStringList{"Shepherd", "Vine", "Light"}));
        QVERIFY(!control<QLineEdit>(form.get(), "txtName")->isEnabled());

        choose(form.get(), 1);
        QVERIFY(control<QLineEdit>(form.get(), "txtName")->isEnabled());
        QCOMPARE(text(form.get(), "txtName"), QStringLiteral("Vine"));
        QCOMPARE(text(form.get(), "txtReference"), QStringLiteral("John 15:1-2"));
        QCOMPARE(text(form.get(), "txtPassage"),
                 QStringLiteral("JOHN 15 \n1 Text of John 15:1\n2 Text of John 15:2\n"));

        // The new reference takes the old one's place; the others keep theirs.
        retype(form.get(), "txtName", QStringLiteral("Love, patient"));
        retype(form.get(), "txtReference", QStringLiteral("Psalm 1:1"));
        click(form.get(), "cmdUpdate");
        QCOMPARE(entries(form.get()), (QStringList{"Shepherd", "Love, patient", "Light"}));
        QCOMPARE(m_bookmarks.References(), (QStringList{"Psalm 23", "Psalm 1:1", "John 8:12"}));
        QVERIFY(text(form.get(), "txtPassage").contains(QStringLiteral("Text of Psalms 1:1")));
        QCOMPARE(readFile(file()), kThree);

        // Text the file could not give back is refused and changes nothing.
        retype(form.get(), "txtName", QStringLiteral("A \"quoted\" name"));
        click(form.get(), "cmdUpdate");
        QCOMPARE(answers.count(), 1);
        QCOMPARE(entries(form.get()).at(1), QStringLiteral("Love, patient"));

        // Saved and read again, the comma stays inside its quotes.
        click(form.get(), "cmdSave");
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
        auto form = organize();
        choose(form.get(), 0);
        click(form.get(), "cmdRemove");
        QCOMPARE(entries(form.get()), QStringList{"Shepherd"});
        click(form.get(), "cmdRemove");
        QCOMPARE(answers.prompts(), (QStringList{"Are you sure?", "Are you sure?"}));
        QCOMPARE(answers.last().buttons, int(vb::vbYesNo | vb::vbCritical));
        QCOMPARE(entries(form.get()), QStringList());
        for (const char *box : {"txtName", "txtReference", "txtPassage"})
            QCOMPARE(text(form.get(), box), QString());
        click(form.get(), "cmdSave");
        QCOMPARE(readFile(file()), QByteArray());
        QCOMPARE(m_bookmarks.Count(), 0);
    }

    void removeThenCancelShiftsLaterEntries()
    {
        start(kThree);
        platform::MsgBoxAnswerer answers({vb::vbYes});
        auto form = organize();
        choose(form.get(), 1);
        click(form.get(), "cmdRemove");
        QCOMPARE(entries(form.get()), (QStringList{"Shepherd", "Light"}));
        // Nothing is chosen now, so Update has nothing to work on.
        click(form.get(), "cmdUpdate");
        QCOMPARE(entries(form.get()), (QStringList{"Shepherd", "Light"}));
        click(form.get(), "cmdCancel");
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
        auto form = organize();
        choose(form.get(), 0);
        click(form.get(), "cmdRemove");
        click(form.get(), "cmdSave");
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
        auto form = organize();
        const int perPixel = 1440 / form->logicalDpiX();
        const QPoint saved(1500 / perPixel, 1200 / perPixel);
        QCOMPARE(form->frameGeometry().topLeft(), saved);
        // A Remove takes the saved place again.
        form->move(saved + QPoint(40, 30));
        choose(form.get(), 0);
        click(form.get(), "cmdRemove");
        QCOMPARE(form->frameGeometry().topLeft(), saved);
        form->move(saved + QPoint(40, 30));
        click(form.get(), "cmdCancel");
        QCOMPARE(ProgramSettings::instance().Ini().Data(QStringLiteral("organizebookmarks"),
                                                        QStringLiteral("left")),
                 1500 + 40 * perPixel);
    }
};

QTEST_MAIN(TestBookmarkDialogs)
#include "tst_bookmarkdialogs.moc"
