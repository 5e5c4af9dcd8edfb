// The window side: start-up to the first chapter on screen, and a long chapter formatted and
// loaded into the passage view.
#include "SyntheticBible.h"
#include "app/frmLoadVersion.h"
#include "app/frmMain.h"
#include "library/ReferenceLists.h"
#include "library/frmTopics.h"
#include "platform/MsgBox.h"
#include "platform/RichTextBox.h"
#include "scripture/NotesStore.h"
#include "scripture/PassageFormatter.h"
#include "settings/ProgramSettings.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QProcess>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

// A program folder holding the synthetic translation and a settings file.
QString programFolder()
{
    static const QString folder = [] {
        const QString bible = bench::syntheticBible();
        const QString root = QFileInfo(bible).absolutePath();
        QFile ini(root + QStringLiteral("/window.ini"));
        if (ini.open(QIODevice::WriteOnly))
            ini.write("[]\r\nrememberwindowsetting=0\r\n[load]\r\nautoload=1\r\nversion=SYN\r\n["
                      "verseofday]\r\nshow=0\r\n");
        return root;
    }();
    return folder;
}

// The program started on a program folder as a reader starts it: the main window, sized, on the
// first chapter of the translation loaded at start. The window is the caller's to delete.
frmMain *openMainWindow(const QString &folder)
{
    ProgramSettings::instance().setProgramFolder(folder);
    frmLoadVersion chooser;
    chooser.Form_Load();
    frmMain *main = chooser.MainWindow();
    main->resize(1000, 720);
    QApplication::processEvents();
    return main;
}

void StartToFirstChapter(benchmark::State &state)
{
    ProgramSettings::instance().setProgramFolder(programFolder());
    for (auto _ : state) {
        frmLoadVersion chooser;
        chooser.Form_Load();
        frmMain *main = chooser.MainWindow();
        QApplication::processEvents();
        // Painting the window is part of having the chapter on screen.
        benchmark::DoNotOptimize(main->grab());
        state.PauseTiming();
        delete main;
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(StartToFirstChapter)->Unit(benchmark::kMillisecond);

void LongChapterOnScreen(benchmark::State &state)
{
    frmMain *main = openMainWindow(programFolder());
    for (auto _ : state) {
        const Passage psalm = main->Bible().Fetch(QStringLiteral("Psalms 119"));
        main->ShowPassage(PassageFormatter::ToRichText(psalm.text, true), psalm.Standard());
        benchmark::DoNotOptimize(
            main->findChild<platform::RichTextBox *>(QStringLiteral("rtfPassage"))
                ->viewport()
                ->grab());
    }
    delete main;
}
BENCHMARK(LongChapterOnScreen)->Unit(benchmark::kMillisecond);

// A program folder made from the imported one (QS_BENCH_PROGRAM, else the build's), so that the
// benchmark's notes and settings never touch the user's.
QString realProgramFolder()
{
    static QTemporaryDir dir;
    static const QString folder = [] {
        QString source = qEnvironmentVariable("QS_BENCH_PROGRAM");
        if (source.isEmpty())
            source = QStringLiteral(QS_PROGRAM_DIR);
        for (const QString &name :
             {QStringLiteral("KJV"), QStringLiteral("tvc"), QStringLiteral("notes")}) {
            QProcess::execute(QStringLiteral("cp"),
                              {QStringLiteral("-r"), source + u'/' + name, dir.path()});
        }
        for (const QString &name : {QStringLiteral("general.cfg"), QStringLiteral("display.cfg"),
                                    QStringLiteral("topics.dat")})
            QFile::copy(source + u'/' + name, dir.filePath(name));
        QFile ini(dir.filePath(QStringLiteral("window.ini")));
        if (ini.open(QIODevice::WriteOnly))
            ini.write("[]\r\nrememberwindowsetting=0\r\n[load]\r\nautoload=1\r\nversion=KJV\r\n["
                      "verseofday]\r\nshow=0\r\n");
        // John 4 carries a page of formatted notes.
        QString notes = QStringLiteral(
            "{\\rtf1\\ansi{\\fonttbl{\\f0 DejaVu Sans;}}{\\colortbl;\\red190\\green0\\blue0;}\r\n");
        for (int i = 0; i < 60; ++i)
            notes += QStringLiteral("\\pard\\b Note %1\\b0  on the woman at the well, \\cf1 living "
                                    "water\\cf0 , verses 10-14.\\par\r\n")
                         .arg(i);
        notes += u'}';
        NotesStore(dir.path()).Write(1, QStringLiteral("JOHN"), 4, notes);
        return dir.path();
    }();
    return folder;
}

// Entering a study tab on a chapter it has not shown yet: the commentary or the notes of the
// chapter are read, loaded into their view and painted. The chapter changes between rounds
// (untimed), as it does when a reader moves on and comes back to the tab.
void switchToTab(benchmark::State &state, const QString &caption, const QString &view)
{
    frmMain *main = openMainWindow(realProgramFolder());
    auto *tabs = main->findChild<QTabWidget *>(QStringLiteral("SSTab1"));
    auto *target = main->findChild<platform::RichTextBox *>(view);
    int tab = 0;
    while (tab < tabs->count() && tabs->tabText(tab) != caption)
        ++tab;
    int round = 0;
    for (auto _ : state) {
        state.PauseTiming();
        tabs->setCurrentIndex(0);
        main->GoToReference(++round % 2 ? QStringLiteral("John 4") : QStringLiteral("John 3"));
        QApplication::processEvents();
        state.ResumeTiming();
        tabs->setCurrentIndex(tab);
        benchmark::DoNotOptimize(target->viewport()->grab());
    }
    delete main;
}

void SwitchToCommentary(benchmark::State &state)
{
    switchToTab(state, QStringLiteral("TVC"), QStringLiteral("rtfTVC"));
}
BENCHMARK(SwitchToCommentary)->Unit(benchmark::kMillisecond);

void SwitchToNotes(benchmark::State &state)
{
    switchToTab(state, QStringLiteral("Notes"), QStringLiteral("rtfNotes"));
}
BENCHMARK(SwitchToNotes)->Unit(benchmark::kMillisecond);

// The topic with the most references chosen in the topics window: every passage fetched,
// formatted and shown in the main window, which is painted. Another topic is chosen between
// rounds (untimed), so that each round shows the topic afresh.
void LargestTopicInMainWindow(benchmark::State &state)
{
    ProgramSettings::instance().setProgramFolder(realProgramFolder());
    NamedReferences topics;
    topics.Load(realProgramFolder() + QStringLiteral("/topics.dat"));
    int largest = 1;
    for (int record = 1; record <= topics.Count(); ++record) {
        if (topics.References(record).size() > topics.References(largest).size())
            largest = record;
    }
    frmMain *main = openMainWindow(realProgramFolder());
    auto *window = new frmTopics(*main, main);
    window->show();
    auto *list = window->findChild<QListWidget *>(QStringLiteral("lstTopics"));
    auto *passage = main->findChild<platform::RichTextBox *>(QStringLiteral("rtfPassage"));
    QApplication::processEvents();
    for (auto _ : state) {
        state.PauseTiming();
        list->setCurrentRow(largest == 1 ? 1 : 0);
        QApplication::processEvents();
        state.ResumeTiming();
        list->setCurrentRow(largest - 1);
        benchmark::DoNotOptimize(passage->viewport()->grab());
    }
    state.SetLabel(topics.Names().at(largest - 1).left(24).toStdString() + "..., " +
                   std::to_string(topics.References(largest).size()) + " references, " +
                   std::to_string(passage->Text().size()) + " characters");
    delete main;
}
BENCHMARK(LargestTopicInMainWindow)->Unit(benchmark::kMillisecond);

// A quick search for "e" with the limit at 32,000: some 31,000 results gathered and shown in the
// passage view at once, then painted.
void QuickSearchManyResults(benchmark::State &state)
{
    frmMain *main = openMainWindow(realProgramFolder());
    ProgramSettings::instance().searchLimit = 32000;
    auto *query = main->findChild<QLineEdit *>(QStringLiteral("txtQuery"));
    auto *passage = main->findChild<platform::RichTextBox *>(QStringLiteral("rtfPassage"));
    query->setText(QStringLiteral("e"));
    for (auto _ : state) {
        main->SearchFor(QStringLiteral("e"));
        benchmark::DoNotOptimize(passage->viewport()->grab());
    }
    state.SetLabel(main->findChild<QLabel *>(QStringLiteral("lbltitle"))->text().toStdString());
    ProgramSettings::instance().searchLimit = 500;
    delete main;
}
BENCHMARK(QuickSearchManyResults)->Unit(benchmark::kMillisecond)->Iterations(3);

// The Search window's "Show All" after an any-word search for "e" with the limit at 32,000.
void ShowAllManyResults(benchmark::State &state)
{
    frmMain *main = openMainWindow(realProgramFolder());
    ProgramSettings::instance().searchLimit = 32000;
    main->findChild<QPushButton *>(QStringLiteral("cmdAdvanced"))->click();
    auto *search = main->findChild<QWidget *>(QStringLiteral("frmSearch"));
    search->findChild<QLineEdit *>(QStringLiteral("txtQuery"))->setText(QStringLiteral("e"));
    search->findChild<QPushButton *>(QStringLiteral("cmdSearch"))->click();
    auto *passage = main->findChild<platform::RichTextBox *>(QStringLiteral("rtfPassage"));
    for (auto _ : state) {
        search->findChild<QPushButton *>(QStringLiteral("cmdShowAll"))->click();
        benchmark::DoNotOptimize(passage->viewport()->grab());
    }
    state.SetLabel(main->findChild<QLabel *>(QStringLiteral("lbltitle"))->text().toStdString());
    ProgramSettings::instance().searchLimit = 500;
    delete main;
}
BENCHMARK(ShowAllManyResults)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
