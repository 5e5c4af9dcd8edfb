// The "Parallel" tab as a reader uses it: it follows the main window's moves, keeps the chosen
// translations, and a click on a cell's reference opens that verse in its translation.
#include "../support/ProgramHarness.h"
#include "../support/TranslationFixture.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/RichTextBox.h"
#include "settings/WindowSettings.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

using namespace fixture;
using support::ProgramHarness;

namespace {

QStringList psalms(const QString &name, int chapters, const QHash<int, int> &counts)
{
    QList<int> verses;
    for (int c = 1; c <= chapters; ++c)
        verses << counts.value(c, 2);
    return fixture::chapters(name, verses);
}

// The table's rows in the view's plain text (cells by tabs, rows by CR LF, an empty line between
// two rows), after the passage's heading.
QStringList rows(ProgramHarness &program, const QString &heading = QString())
{
    const QStringList lines = program.control<platform::RichTextBox>("rtfParallel")
                                  ->Text()
                                  .split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    if (!heading.isEmpty() && lines.value(0) != heading)
        return {QStringLiteral("heading: ") + lines.join(u"/")};
    return lines.mid(1);
}

} // namespace

class TestParallelTab : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    void showParallelTab(ProgramHarness &program)
    {
        QTabBar *bar = program.control<QTabWidget>("SSTab1")->tabBar();
        for (int i = 0; i < bar->count(); ++i) {
            if (bar->tabText(i) == u"Parallel")
                QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(i).center());
        }
        QVERIFY(program.control<QTabWidget>("SSTab1")->currentWidget()->objectName() ==
                u"parallelTab");
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        makeTranslation(
            m_dir.path(), QStringLiteral("KJV"),
            {{QStringLiteral("Psalms"), false, psalms("Psalms", 10, {{9, 20}, {10, 18}})},
             {QStringLiteral("John"), true, psalms("John", 3, {})}},
            QStringLiteral("King James"));
        const QString syn =
            makeTranslation(m_dir.path(), QStringLiteral("SYN"),
                            {{QStringLiteral("Псалтирь"), false, psalms("Псалтирь", 10, {{9, 39}})},
                             {QStringLiteral("Иоанна"), true, psalms("Иоанна", 3, {})}},
                            QStringLiteral("Synodal"));
        QStringList numbering{QStringLiteral("Synodal"), QStringLiteral("BOOKS Ps John"),
                              QStringLiteral("TOKJV Ps.9.1 Ps.9.0")};
        for (int v = 1; v <= 20; ++v)
            numbering << QStringLiteral("TOKJV Ps.9.%1 Ps.9.%2").arg(v + 1).arg(v)
                      << QStringLiteral("FROMKJV Ps.9.%1 Ps.9.%2").arg(v).arg(v + 1);
        for (int v = 1; v <= 18; ++v)
            numbering << QStringLiteral("TOKJV Ps.9.%1 Ps.10.%2").arg(v + 21).arg(v)
                      << QStringLiteral("FROMKJV Ps.10.%1 Ps.9.%2").arg(v).arg(v + 21);
        writeFile(syn + QStringLiteral("/versification.dat"), crlf(numbering));
        makeTranslation(
            m_dir.path(), QStringLiteral("WEB"),
            {{QStringLiteral("Psalms"), false, psalms("Psalms", 10, {{9, 20}, {10, 18}})},
             {QStringLiteral("John"), true, psalms("John", 3, {})}},
            QStringLiteral("World English"));
        writeFile(m_dir.filePath(QStringLiteral("window.ini")),
                  "[load]\r\nautoload=0\r\n[verseofday]\r\nshow=0\r\n[parallel]\r\ntranslations="
                  "KJV,SYN\r\n");
    }

    void followsTheMainWindowAndOpensAReference()
    {
        platform::MsgBoxAnswerer answers;
        {
            ProgramHarness program(m_dir.path());
            QVERIFY(program.start(QStringLiteral("KJV")));
            QVERIFY(QTest::qWaitForWindowExposed(program.main()));
            answers.clear(); // what start-up said about the files it made
            program.getReference(QStringLiteral("Psalm 10"));
            showParallelTab(program);
            QStringList table = rows(program, QStringLiteral("PSALMS 10"));
            QCOMPARE(table.value(0), QStringLiteral("KJV\tSYN"));
            QCOMPARE(table.value(1), QStringLiteral("PSALMS 10:1 Text of Psalms 10:1\t"
                                                    "ПСАЛТИРЬ 9:22 Text of Псалтирь 9:22"));
            QCOMPARE(table.size(), 19);

            // The chapter list moves the table with the passage, and so does a typed reference.
            program.control<QListWidget>("lstChapters")->setCurrentRow(8);
            QCOMPARE(program.control<QLabel>("lbltitle")->text(), QStringLiteral("PSALMS 9"));
            table = rows(program, QStringLiteral("PSALMS 9"));
            QCOMPARE(table.value(1), QStringLiteral("PSALMS 9:1 Text of Psalms 9:1\tПСАЛТИРЬ "
                                                    "9:1-2 Text of Псалтирь 9:1 Text of "
                                                    "Псалтирь 9:2"));
            QCOMPARE(table.size(), 21);
            program.getReference(QStringLiteral("John 3:1-2"));
            QCOMPARE(rows(program, QStringLiteral("JOHN 3:1-2")).mid(1),
                     (QStringList{QStringLiteral("JOHN 3:1 Text of John 3:1\tИОАННА 3:1 Text of "
                                                 "Иоанна 3:1"),
                                  QStringLiteral("JOHN 3:2 Text of John 3:2\tИОАННА 3:2 Text of "
                                                 "Иоанна 3:2")}));

            // A third translation joins the table and is remembered.
            auto *third = program.control<QComboBox>("cboParallel3");
            third->setFocus();
            QTest::keyClick(third, Qt::Key_End);
            QCOMPARE(third->currentText(), QStringLiteral("WEB"));
            QCOMPARE(rows(program).value(0), QStringLiteral("KJV\tSYN\tWEB"));
            QCOMPARE(WindowSettings::Get(WindowSettings::ParallelTranslations),
                     QStringLiteral("KJV,SYN,WEB"));

            // A click on the Synodal's reference opens it in the Synodal, on the passage tab.
            program.getReference(QStringLiteral("Psalm 10:2"));
            auto *view = program.control<platform::RichTextBox>("rtfParallel");
            const int at = view->Find(QStringLiteral("ПСАЛТИРЬ 9:23"), 0,
                                      platform::RichTextBox::rtfNoHighlight);
            QVERIFY(at >= 0);
            QTextCursor cursor(view->document());
            cursor.setPosition(view->documentPosition(at) + 3);
            const QPoint point = view->cursorRect(cursor).center();
            QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, point);
            QVERIFY(program.main()->windowTitle().startsWith(QStringLiteral("Synodal - ")));
            QCOMPARE(program.control<QTabWidget>("SSTab1")->currentIndex(), 0);
            QCOMPARE(program.control<QLabel>("lbltitle")->text(), QStringLiteral("ПСАЛТИРЬ 9:23"));
            QVERIFY(program.control<platform::RichTextBox>("rtfPassage")
                        ->Text()
                        .contains(QStringLiteral("23 Text of Псалтирь 9:23")));
            QCOMPARE(answers.prompts(), QStringList());
        }
        // The next start shows the same three.
        ProgramHarness again(m_dir.path());
        QVERIFY(again.start(QStringLiteral("SYN")));
        showParallelTab(again);
        QCOMPARE(rows(again).value(0), QStringLiteral("KJV\tSYN\tWEB"));
    }
};

QTEST_MAIN(TestParallelTab)
#include "tst_paralleltab.moc"
