// The Bookmarks menu of the main window: adding the passage on display, choosing an entry, and
// what the Organize dialog's Remove, Save and Cancel leave in the menu and the file.
#include "../support/ProgramHarness.h"
#include "../support/TranslationFixture.h"
#include "platform/MsgBoxAnswerer.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>

using namespace fixture;
using support::ProgramHarness;

class TestBookmarksMenu : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    QString bookmarksFile() const { return m_dir.filePath(QStringLiteral("bookmarks.dat")); }

    // Runs a menu entry whose dialog is modal, acting in the dialog once it shows.
    void inDialog(QAction *entry, const std::function<void(QDialog *)> &act)
    {
        bool acted = false;
        QTimer::singleShot(0, this, [&] {
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            if (dialog) {
                acted = true;
                act(dialog);
            }
        });
        entry->trigger();
        QVERIFY(acted);
    }

    // The bookmark entries of the menu: what follows its separator.
    static QStringList entries(ProgramHarness &program)
    {
        QStringList captions;
        bool after = false;
        for (QAction *action : program.control<QMenu>("mnuBookmarks")->actions()) {
            if (after)
                captions << action->text();
            after = after || action->isSeparator();
        }
        return captions;
    }

private slots:
    void initTestCase()
    {
        QList<int> psalms(150, 2);
        makeTranslation(m_dir.path(), QStringLiteral("TEST"),
                        wholeBible({{QStringLiteral("Psalms"), false,
                                     chapters(QStringLiteral("Psalms"), psalms)}}));
        writeFile(m_dir.filePath(QStringLiteral("window.ini")), "[load]\r\nautoload=0\r\n");
    }

    void addAndChoose()
    {
        writeFile(bookmarksFile(), "\"First\",\"Gen 1\"\r\n");
        platform::MsgBoxAnswerer answers;
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("TEST")));
        program.getReference(QStringLiteral("Psalm 23"));
        QString offered;
        inDialog(program.control<QAction>("mnuBookmarksAdd"), [&](QDialog *dialog) {
            auto *reference = dialog->findChild<QLineEdit *>(QStringLiteral("txtReference"));
            offered = reference->text();
            dialog->findChild<QLineEdit *>(QStringLiteral("txtName"))
                ->setText(QStringLiteral("Shepherd"));
            reference->setText(QStringLiteral("Psalm 23"));
            QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("Command1")),
                              Qt::LeftButton);
        });
        // The dialog offers the reference on display.
        QCOMPARE(offered, QStringLiteral("PSALMS 23"));
        QCOMPARE(readFile(bookmarksFile()),
                 QByteArray("\"First\",\"Gen 1\"\r\n\"Shepherd\",\"Psalm 23\"\r\n"));
        QCOMPARE(entries(program),
                 (QStringList{QStringLiteral("First"), QStringLiteral("Shepherd")}));

        program.getReference(QStringLiteral("John 1"));
        program.control<QAction>("mnuBookmarksBookmarks2")->trigger();
        QCOMPARE(program.title(), QStringLiteral("Bookmark: PSALMS 23 -- Shepherd"));
        QCOMPARE(answers.count(), 0);
    }

    void removeThenCancelShiftsLaterEntries()
    {
        writeFile(bookmarksFile(), "\"A\",\"Gen 1\"\r\n\"B\",\"Exo 2\"\r\n\"C\",\"Lev 3\"\r\n");
        const QByteArray before = readFile(bookmarksFile());
        platform::MsgBoxAnswerer answers({vb::vbYes});
        ProgramHarness program(m_dir.path());
        QVERIFY(program.start(QStringLiteral("TEST")));
        inDialog(program.control<QAction>("mnuBookmarksOrganize"), [&](QDialog *dialog) {
            auto *list = dialog->findChild<QListWidget *>(QStringLiteral("lstBookmarks"));
            QCOMPARE(list->count(), 3);
            list->setCurrentRow(0);
            QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("cmdRemove")),
                              Qt::LeftButton);
            QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("cmdCancel")),
                              Qt::LeftButton);
        });
        QCOMPARE(answers.prompts(), QStringList{QStringLiteral("Are you sure?")});
        // The file and the menu are as they were; entry B now shows the reference after its own.
        QCOMPARE(readFile(bookmarksFile()), before);
        QCOMPARE(entries(program),
                 (QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}));
        program.control<QAction>("mnuBookmarksBookmarks2")->trigger();
        QCOMPARE(program.title(), QStringLiteral("Bookmark: LEVITICUS 3 -- B"));
        // Until the next load.
        program.main()->LoadBookmarks();
        program.control<QAction>("mnuBookmarksBookmarks2")->trigger();
        QCOMPARE(program.title(), QStringLiteral("Bookmark: EXODUS 2 -- B"));
    }
};

QTEST_MAIN(TestBookmarksMenu)
#include "tst_bookmarksmenu.moc"
