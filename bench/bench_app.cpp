// The window side: start-up to the first chapter on screen, and a long chapter formatted and
// loaded into the passage view.
#include "SyntheticBible.h"
#include "app/frmLoadVersion.h"
#include "app/frmMain.h"
#include "platform/MsgBox.h"
#include "platform/RichTextBox.h"
#include "scripture/PassageFormatter.h"
#include "settings/ProgramSettings.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QPixmap>
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
            ini.write("[]\r\nrememberwindowsetting=0\r\n[load]\r\nautoload=1\r\nversion=SYN\r\n");
        return root;
    }();
    return folder;
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
    ProgramSettings::instance().setProgramFolder(programFolder());
    frmLoadVersion chooser;
    chooser.Form_Load();
    frmMain *main = chooser.MainWindow();
    main->resize(1000, 720);
    QApplication::processEvents();
    for (auto _ : state) {
        const QString text = main->Bible().Passagebystandard(QStringLiteral("Psalms 119"));
        main->ShowPassage(PassageFormatter::ToRichText(text, true), main->Bible().Standard());
        benchmark::DoNotOptimize(main->findChild<platform::RichTextBox *>(QStringLiteral("rtfPassage"))->viewport()->grab());
    }
    delete main;
}
BENCHMARK(LongChapterOnScreen)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    platform::setMsgBoxHandler([](const QString &, int b, const QString &) { return platform::DefaultAnswer(b); });
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
