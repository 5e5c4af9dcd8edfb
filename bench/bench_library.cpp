// The reference library on the imported program folder: looking a word up in the dictionary and
// the names list, a Strong's entry by its number, and opening each window with its list filled and
// painted. Every look-up reads its file afresh, as the windows do.
#include "library/MainWindowLink.h"
#include "library/StrongsLexicon.h"
#include "library/WordList.h"
#include "library/frmBibleNames.h"
#include "library/frmDictionary.h"
#include "library/frmParables.h"
#include "library/frmStrongLexicon.h"
#include "library/frmTopics.h"
#include "platform/MsgBox.h"
#include "scripture/clsBible.h"
#include "settings/ProgramSettings.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

// The imported program folder (QS_BENCH_PROGRAM, else the build's).
QString importedFolder()
{
    const QString source = qEnvironmentVariable("QS_BENCH_PROGRAM");
    return source.isEmpty() ? QStringLiteral(QS_PROGRAM_DIR) : source;
}

// A copy of the imported word lists and lexicon with a settings file of its own, so that the
// windows' places are never written into the user's.
QString windowFolder()
{
    static QTemporaryDir dir;
    static const QString folder = [] {
        const QString source = importedFolder();
        QDir().mkpath(dir.filePath(QStringLiteral("strong")));
        for (const QString &name :
             {QStringLiteral("Dictionary.dat"), QStringLiteral("names.dat"),
              QStringLiteral("display.cfg"), QStringLiteral("strong/hebrew.idx"),
              QStringLiteral("strong/hebrew.dat"), QStringLiteral("strong/greek.idx"),
              QStringLiteral("strong/greek.dat"), QStringLiteral("topics.dat"),
              QStringLiteral("parables.dat"), QStringLiteral("miracles.dat")})
            QFile::copy(source + u'/' + name, dir.filePath(name));
        QFile ini(dir.filePath(QStringLiteral("window.ini")));
        if (ini.open(QIODevice::WriteOnly))
            ini.write("[]\r\nrememberwindowsetting=0\r\n[strong]\r\ntab=0\r\n");
        return dir.path();
    }();
    return folder;
}

class NoMainWindow : public MainWindowLink
{
public:
    NoMainWindow() { m_bible.setVersionPath(importedFolder() + QStringLiteral("/KJV")); }
    void GoToReference(const QString &) override {}
    void ShowPassage(const QString &, const QString &) override {}
    const clsBible &Bible() const override { return m_bible; }
    void ShowConcordance(const QString &) override {}

private:
    clsBible m_bible;
};

void lookUpLast(benchmark::State &state, WordList::Kind kind)
{
    const WordList list(importedFolder(), kind);
    const QString last = list.Headwords().value_or(QStringList{QString()}).constLast();
    for (auto _ : state) {
        const WordList::LookUp found = list.Find(last);
        if (found.outcome != WordList::Outcome::Found)
            state.SkipWithError("the last headword was not found");
        benchmark::DoNotOptimize(found);
    }
    state.SetLabel(last.toStdString());
}

void DictionaryLookUpLastWord(benchmark::State &state)
{
    lookUpLast(state, WordList::Kind::Dictionary);
}
BENCHMARK(DictionaryLookUpLastWord)->Unit(benchmark::kMillisecond);

void NamesLookUpLastName(benchmark::State &state)
{
    lookUpLast(state, WordList::Kind::Names);
}
BENCHMARK(NamesLookUpLastName)->Unit(benchmark::kMillisecond);

// The last entry: the data file is read line by line up to it.
void StrongsEntryByNumber(benchmark::State &state)
{
    StrongsLexicon lexicon(importedFolder());
    const auto language = StrongsLexicon::Language(state.range(0));
    const int last = int(lexicon.Index(language).size());
    for (auto _ : state) {
        const StrongsLexicon::Entry entry =
            lexicon.Show(language, lexicon.Choose(language, QString::number(last)).number);
        if (entry.outcome != StrongsLexicon::Outcome::Found)
            state.SkipWithError("the last entry was not found");
        benchmark::DoNotOptimize(entry);
    }
    state.SetLabel(std::to_string(last));
}
BENCHMARK(StrongsEntryByNumber)->Arg(0)->Arg(1)->ArgName("greek")->Unit(benchmark::kMillisecond);

// Constructed (list read and filled, place and look applied), shown and painted, then closed.
template <typename Window> void openWindow(benchmark::State &state)
{
    ProgramSettings::instance().setProgramFolder(windowFolder());
    NoMainWindow main;
    for (auto _ : state) {
        auto *window = new Window(main, nullptr);
        window->show();
        QApplication::processEvents();
        benchmark::DoNotOptimize(window->grab());
        state.PauseTiming();
        window->close();
        delete window;
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

void OpenDictionary(benchmark::State &state)
{
    openWindow<frmDictionary>(state);
}
BENCHMARK(OpenDictionary)->Unit(benchmark::kMillisecond);

void OpenBibleNames(benchmark::State &state)
{
    openWindow<frmBibleNames>(state);
}
BENCHMARK(OpenBibleNames)->Unit(benchmark::kMillisecond);

void OpenStrongLexicon(benchmark::State &state)
{
    openWindow<frmStrongLexicon>(state);
}
BENCHMARK(OpenStrongLexicon)->Unit(benchmark::kMillisecond);

// All 22,000 topic names listed.
void OpenTopics(benchmark::State &state)
{
    openWindow<frmTopics>(state);
}
BENCHMARK(OpenTopics)->Unit(benchmark::kMillisecond);

// A query typed into the topics window and its results listed and painted.
void TopicSearch(benchmark::State &state)
{
    ProgramSettings::instance().setProgramFolder(windowFolder());
    NoMainWindow main;
    frmTopics window(main);
    window.show();
    auto *query = window.findChild<QLineEdit *>(QStringLiteral("txtQuery"));
    auto *search = window.findChild<QPushButton *>(QStringLiteral("cmdSearch"));
    auto *results = window.findChild<QListWidget *>(QStringLiteral("lstResults"));
    window.findChild<QTabWidget *>(QStringLiteral("SSTab1"))->setCurrentIndex(1);
    const QString text = state.range(0) == 0 ? QStringLiteral("love god") : QStringLiteral("faith");
    query->setText(text);
    for (auto _ : state) {
        search->click();
        benchmark::DoNotOptimize(results->viewport()->grab());
    }
    state.SetLabel(text.toStdString() + ": " + std::to_string(results->count()) + " results");
}
BENCHMARK(TopicSearch)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// One name chosen in the parables (0) or miracles (1) window: each gospel that tells it fetched
// from the KJV, formatted and put into its view, and the tab in front painted. The rounds go
// through the whole list.
void ParallelSelection(benchmark::State &state)
{
    ProgramSettings::instance().setProgramFolder(windowFolder());
    NoMainWindow main;
    const bool miracles = state.range(0) == 1;
    auto *window = new frmParables(main);
    window->SetDataFile(windowFolder() + (miracles ? QStringLiteral("/miracles.dat")
                                                   : QStringLiteral("/parables.dat")));
    window->SetTag(miracles ? frmParables::MiraclesTag : frmParables::ParablesTag);
    window->show();
    auto *list = window->findChild<QListWidget *>(QStringLiteral("lstParables"));
    auto *tabs = window->findChild<QTabWidget *>(QStringLiteral("SSTab1"));
    int row = 0;
    for (auto _ : state) {
        list->setCurrentRow(row);
        benchmark::DoNotOptimize(tabs->currentWidget()->grab());
        row = (row + 1) % list->count();
    }
    state.SetLabel(std::to_string(list->count()) + (miracles ? " miracles" : " parables"));
    delete window;
}
BENCHMARK(ParallelSelection)->Arg(0)->Arg(1)->ArgName("miracles")->Unit(benchmark::kMillisecond);

} // namespace
