// The notes and the commentary belong to the chapter on display, whatever the other windows fetch
// meanwhile: the verse of the day, the parables and miracles, the prophecies, topics and stories,
// the Search window in every mode, the side-by-side tab, the concordance and the bookmarks all read
// scripture while notes are typed.
#include "../support/HookGuards.h"
#include "../support/ProgramHarness.h"
#include "../support/TranslationFixture.h"
#include "app/frmSearch.h"
#include "library/frmParables.h"
#include "library/frmProphecies.h"
#include "library/frmStories.h"
#include "library/frmTopics.h"
#include "library/frmVerseOfDay.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/RichTextBox.h"

#include <QAction>
#include <QApplication>
#include <QDirIterator>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMap>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

using namespace fixture;
using support::ProgramHarness;

namespace {

using Action = std::function<void(ProgramHarness &)>;

QMap<QString, QByteArray> filesUnder(const QString &folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator it(folder, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        if (file.open(QIODevice::ReadOnly))
            files.insert(it.filePath(), file.readAll());
    }
    return files;
}

void clickRow(QListWidget *list, int row)
{
    QVERIFY(list && row < list->count());
    list->scrollToItem(list->item(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(row)).center());
}

template <typename Window> Window *window(ProgramHarness &program)
{
    auto *found = program.main()->findChild<Window *>();
    if (!found)
        qFatal("the window is not open");
    return found;
}

// The parables or the miracles window on show, by its tag.
frmParables *openList(const QString &tag)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        auto *list = qobject_cast<frmParables *>(window);
        if (list && list->Tag() == tag && list->isVisible())
            return list;
    }
    qFatal("the list is not open");
}

void trigger(ProgramHarness &program, const char *action)
{
    program.control<QAction>(action)->trigger();
}

QListWidget *list(QWidget *window, const char *name)
{
    return window->findChild<QListWidget *>(QLatin1String(name));
}

} // namespace

class TestNotesAcrossWindows : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    QString file(const QString &name) const { return m_dir.filePath(name); }

    // Starts as a new user does, on Genesis 1 with the verse of the day open, and types notes.
    void startTyping(ProgramHarness &program)
    {
        QVERIFY(program.start(QStringLiteral("TEST")));
        QVERIFY(program.main()->findChild<frmVerseOfDay *>());
        program.main()->activateWindow();
        auto *tabs = program.control<QTabWidget>("SSTab1");
        tabs->setCurrentIndex(1);
        QCOMPARE(program.control<QLabel>("lbltitle")->text(),
                 QStringLiteral("Notes For: GENESIS 1"));
        auto *notes = program.control<platform::RichTextBox>("rtfNotes");
        QVERIFY(notes->Text().startsWith(QStringLiteral("Genesis notes 1")));
        notes->setFocus();
        notes->moveCursor(QTextCursor::End);
        QTest::keyClicks(notes, QStringLiteral(" and more"));
    }

private slots:
    void initTestCase()
    {
        // Genesis carries a Strong's number, so the open translation serves the concordance.
        QList<Book> special = {
            {QStringLiteral("Genesis"), false, chapters(QStringLiteral("Genesis"), {3, 3, 3})}};
        special[0].lines[special[0].lines.indexOf(QStringLiteral("3 Text of Genesis 3:3"))] =
            QStringLiteral("3 Text of Genesis 3:3 {H430}");
        makeTranslation(m_dir.path(), QStringLiteral("TEST"), wholeBible(special),
                        QStringLiteral("Test Version"));
        makeCommentary(m_dir.path());
        writeFile(file(QStringLiteral("verses.dat")), "2Timothy 1:2\r\nLuke 2:1\r\n");
        writeFile(file(QStringLiteral("parables.dat")),
                  "Parables\r\nThe sower|Matthew 2:1|Mark 2:1|Luke 2:1|\r\n");
        writeFile(file(QStringLiteral("miracles.dat")), "Miracles\r\nWine||||John 2:1\r\n");
        writeFile(file(QStringLiteral("prophecy.dat")),
                  "header\r\nThe seed|Numbers 3:1|Galatians 3:1\r\n");
        writeFile(file(QStringLiteral("topics.dat")),
                  "header\r\nCreation|Exodus 2:1;Exodus 3:1\r\n");
        writeFile(file(QStringLiteral("stories.dat")), "header\r\nThe flood|Genesis 2:1-3\r\n");
        writeFile(file(QStringLiteral("bookmarks.dat")), "\"Psalm\",\"Psalms 2:1\"\r\n");
    }

    void init()
    {
        writeFile(file(QStringLiteral("window.ini")),
                  "[load]\r\nautoload=0\r\n[verseofday]\r\nshow=1\r\n");
        // Every chapter of every book holds notes of its own.
        for (const QString &name : canonNames()) {
            const bool newTestament = canonNames().indexOf(name) >= 39;
            QByteArray bytes;
            for (int c = 1; c <= 3; ++c)
                bytes += "CHAPTER " + QByteArray::number(c) + "\r\n" + name.toUtf8() + " notes " +
                         QByteArray::number(c) + "\r\n";
            writeFile(file((newTestament ? QStringLiteral("notes/newtest/")
                                         : QStringLiteral("notes/oldtest/")) +
                           name.toUpper() + QStringLiteral(".dat")),
                      bytes);
        }
    }

    void notesStayWithTheirChapter_data()
    {
        QTest::addColumn<Action>("act");
        // What the Notes and TVC tabs belong to afterwards: the chapter on display.
        QTest::addColumn<QString>("chapterAfter");

        QTest::newRow("verse of the day at start-up")
            << Action([](ProgramHarness &) {}) << "GENESIS 1";
        QTest::newRow("next verse") << Action([](ProgramHarness &program) {
            QTest::mouseClick(window<frmVerseOfDay>(program)->findChild<QPushButton *>(
                                  QStringLiteral("cmdNextverse")),
                              Qt::LeftButton);
        }) << "GENESIS 1";
        QTest::newRow("parable") << Action([](ProgramHarness &program) {
            trigger(program, "mnuReferencesParables");
            clickRow(list(openList(frmParables::ParablesTag), "lstParables"), 0);
        }) << "GENESIS 1";
        QTest::newRow("miracle") << Action([](ProgramHarness &program) {
            trigger(program, "mnuReferencesMiracles");
            clickRow(list(openList(frmParables::MiraclesTag), "lstParables"), 0);
        }) << "GENESIS 1";
        QTest::newRow("prophecy") << Action([](ProgramHarness &program) {
            trigger(program, "mnuReferencesProphecies");
            clickRow(list(window<frmProphecies>(program), "lstProphecies"), 0);
        }) << "GENESIS 1";
        QTest::newRow("topic") << Action([](ProgramHarness &program) {
            trigger(program, "mnuReferencesTopics");
            clickRow(list(window<frmTopics>(program), "lstTopics"), 0);
        }) << "GENESIS 1";
        QTest::newRow("story") << Action([](ProgramHarness &program) {
            trigger(program, "mnuReferencesStories");
            auto *stories = window<frmStories>(program);
            clickRow(list(stories, "lstStories"), 0);
            clickRow(list(stories, "lstReferences"), 0);
        }) << "GENESIS 1";
        QTest::newRow("search result") << Action([](ProgramHarness &program) {
            trigger(program, "mnuToolsSearch");
            auto *search = window<frmSearch>(program);
            search->findChild<QLineEdit *>(QStringLiteral("txtQuery"))
                ->setText(QStringLiteral("Text of Ruth 3:3"));
            QTest::mouseClick(search->findChild<QPushButton *>(QStringLiteral("cmdSearch")),
                              Qt::LeftButton);
            clickRow(list(search, "lstResults"), 0);
            QTest::mouseClick(search->findChild<QPushButton *>(QStringLiteral("cmdShowVerse")),
                              Qt::LeftButton);
        }) << "RUTH 3";
        QTest::newRow("query result, marked") << Action([](ProgramHarness &program) {
            trigger(program, "mnuToolsSearch");
            auto *search = window<frmSearch>(program);
            search->findChild<QRadioButton *>(QStringLiteral("optQuery"))->click();
            search->findChild<QLineEdit *>(QStringLiteral("txtQuery"))
                ->setText(QStringLiteral("\"text of ruth 3 3\""));
            QTest::mouseClick(search->findChild<QPushButton *>(QStringLiteral("cmdSearch")),
                              Qt::LeftButton);
            clickRow(list(search, "lstResults"), 0);
            QTest::mouseClick(search->findChild<QPushButton *>(QStringLiteral("cmdShowVerse")),
                              Qt::LeftButton);
        }) << "RUTH 3";
        QTest::newRow("side by side") << Action([](ProgramHarness &program) {
            QTabBar *bar = program.control<QTabWidget>("SSTab1")->tabBar();
            QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(3).center());
        }) << "GENESIS 1";
        QTest::newRow("concordance") << Action([](ProgramHarness &program) {
            support::InputBoxAnswers number({QStringLiteral("H430")});
            trigger(program, "mnuReferencesConcordance");
            QVERIFY(program.control<platform::RichTextBox>("rtfPassage")
                        ->Text()
                        .contains(QStringLiteral("Genesis 3:3")));
        }) << "GENESIS 1";
        QTest::newRow("bookmark") << Action([](ProgramHarness &program) {
            trigger(program, "mnuBookmarksBookmarks1");
        }) << "PSALMS 2";
    }

    // Notes typed for Genesis 1 and not saved, another window acts, then Save (or Yes when the
    // action leaves the tab): Genesis 1's notes hold the text and no other chapter's changed.
    void notesStayWithTheirChapter()
    {
        QFETCH(Action, act);
        QFETCH(QString, chapterAfter);
        const QMap<QString, QByteArray> before = filesUnder(file(QStringLiteral("notes")));
        ProgramHarness program(m_dir.path());
        startTyping(program);
        auto *tabs = program.control<QTabWidget>("SSTab1");
        auto *title = program.control<QLabel>("lbltitle");
        {
            // A move away from the notes asks first; otherwise the notes are still on show.
            platform::MsgBoxAnswerer answers({vb::vbYes});
            act(program);
            if (answers.count() == 0) {
                QCOMPARE(tabs->currentIndex(), 1);
                QCOMPARE(title->text(), QStringLiteral("Notes For: GENESIS 1"));
                QTest::mouseClick(program.control<QPushButton>("cmdSaveNotes"), Qt::LeftButton);
            }
            QCOMPARE(answers.count(),
                     chapterAfter == u"GENESIS 1" && tabs->currentIndex() == 1 ? 0 : 1);
        }
        const QString genesis = file(QStringLiteral("notes/oldtest/GENESIS.dat"));
        const QMap<QString, QByteArray> after = filesUnder(file(QStringLiteral("notes")));
        for (auto it = before.begin(); it != before.end(); ++it) {
            if (it.key() != genesis)
                QVERIFY2(after.value(it.key()) == it.value(), qPrintable(it.key()));
        }
        const QByteArray saved = after.value(genesis);
        QVERIFY(saved.contains("and more"));
        QVERIFY(saved.indexOf("and more") < saved.indexOf("CHAPTER 2"));
        QVERIFY(saved.endsWith("CHAPTER 2\r\nGenesis notes 2\r\nCHAPTER 3\r\nGenesis notes 3\r\n"));

        // Both study tabs name the chapter on display and show what belongs to it.
        const QString book = chapterAfter.section(u' ', 0, 0);
        const QString chapter = chapterAfter.section(u' ', 1);
        QString name;
        for (const QString &candidate : canonNames())
            if (candidate.toUpper() == book)
                name = candidate;
        tabs->setCurrentIndex(2);
        QCOMPARE(title->text(), QStringLiteral("Commentary For: ") + chapterAfter);
        QCOMPARE(
            program.control<platform::RichTextBox>("rtfTVC")->Text(),
            QStringLiteral("Tovelian's Commentary \r\nOn %1 chapter %2.\r\n").arg(name, chapter));
        tabs->setCurrentIndex(1);
        QCOMPARE(title->text(), QStringLiteral("Notes For: ") + chapterAfter);
        QVERIFY(program.control<platform::RichTextBox>("rtfNotes")
                    ->Text()
                    .startsWith(name + QStringLiteral(" notes ") + chapter));
    }
};

QTEST_MAIN(TestNotesAcrossWindows)
#include "tst_notesacrosswindows.moc"
