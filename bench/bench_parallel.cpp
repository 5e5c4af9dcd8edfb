// Translations side by side: Psalm 119 (176 verses) in four imported translations, lined up and
// laid out as one table in the "Parallel" tab, and painted.
#include "app/ParallelView.h"
#include "app/frmLoadVersion.h"
#include "app/frmMain.h"
#include "platform/RichTextBox.h"
#include "scripture/ParallelRows.h"
#include "settings/ProgramSettings.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTabWidget>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <memory>

namespace {

const QStringList kTranslations = {QStringLiteral("KJV"), QStringLiteral("WEB"),
                                   QStringLiteral("RV1909"), QStringLiteral("KJVS")};

// A copy of the imported program folder's four translations (QS_BENCH_PROGRAM, else the
// build's), with settings that show them side by side.
QString programFolder()
{
    static QTemporaryDir dir;
    static const QString folder = [] {
        QString source = qEnvironmentVariable("QS_BENCH_PROGRAM");
        if (source.isEmpty())
            source = QStringLiteral(QS_PROGRAM_DIR);
        for (const QString &name : kTranslations)
            QProcess::execute(QStringLiteral("cp"),
                              {QStringLiteral("-r"), source + u'/' + name, dir.path()});
        for (const QString &name : {QStringLiteral("general.cfg"), QStringLiteral("display.cfg")})
            QFile::copy(source + u'/' + name, dir.filePath(name));
        QFile ini(dir.filePath(QStringLiteral("window.ini")));
        if (ini.open(QIODevice::WriteOnly))
            ini.write("[]\r\nrememberwindowsetting=0\r\n[load]\r\nautoload=1\r\nversion=KJV\r\n["
                      "verseofday]\r\nshow=0\r\n[parallel]\r\ntranslations=" +
                      kTranslations.join(u',').toUtf8() + "\r\n");
        return dir.path();
    }();
    return folder;
}

// The rows alone: four stores, book files already read.
void ParallelRowsPsalm119(benchmark::State &state)
{
    std::vector<std::unique_ptr<clsBible>> stores;
    QList<const clsBible *> translations;
    for (const QString &name : kTranslations) {
        stores.push_back(std::make_unique<clsBible>());
        stores.back()->setVersionPath(programFolder() + u'/' + name);
        translations << stores.back().get();
    }
    qsizetype rows = 0;
    for (auto _ : state) {
        const ParallelRows::Result result =
            ParallelRows::Build(translations, QStringLiteral("Psalms 119"));
        rows = result.rows.size();
        benchmark::DoNotOptimize(rows);
    }
    state.SetLabel(std::to_string(rows) + " rows");
}
BENCHMARK(ParallelRowsPsalm119)->Unit(benchmark::kMillisecond);

// The tab on show in the main window: Psalm 119 lined up in four translations, the table built
// in the view and the view painted.
void ParallelTabPsalm119(benchmark::State &state)
{
    ProgramSettings::instance().setProgramFolder(programFolder());
    frmLoadVersion chooser;
    chooser.Form_Load();
    frmMain *main = chooser.MainWindow();
    main->resize(1000, 720);
    main->GoToReference(QStringLiteral("Psalms 119"));
    auto *tabs = main->findChild<QTabWidget *>(QStringLiteral("SSTab1"));
    tabs->setCurrentWidget(main->findChild<QWidget *>(QStringLiteral("parallelTab")));
    QApplication::processEvents();
    auto *view = main->findChild<ParallelView *>();
    const Passage psalm = main->Bible().Fetch(QStringLiteral("Psalms 119"));
    for (auto _ : state) {
        view->setPassage(psalm);
        benchmark::DoNotOptimize(view->view()->viewport()->grab());
    }
    // The lines of the table but the heading and the translations' names: one a verse.
    const qsizetype rows =
        view->view()->Text().split(QStringLiteral("\r\n"), Qt::SkipEmptyParts).size() - 2;
    state.SetLabel(std::to_string(rows) + " rows");
    delete main;
}
BENCHMARK(ParallelTabPsalm119)->Unit(benchmark::kMillisecond);

} // namespace
