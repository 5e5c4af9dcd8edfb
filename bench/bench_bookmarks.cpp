// Bookmarks at start-up: a file of 5,000 read into the bookmark list, and the same list put on a
// menu as the main window fills its Bookmarks menu (old entries removed, new ones added at once).
#include "bookmarks/Bookmarks.h"
#include "platform/MsgBox.h"
#include "tests/support/TranslationFixture.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int kBookmarks = 5000;

// A program folder whose "bookmarks.dat" holds kBookmarks bookmarks with names of ordinary length.
QString programFolder()
{
    static QTemporaryDir dir;
    static const QString folder = [] {
        const QStringList &books = fixture::canonNames();
        QStringList lines;
        for (int i = 0; i < kBookmarks; ++i) {
            const QString &book = books.at(i % books.size());
            lines << QStringLiteral("\"%1 %2, kept for Sunday\",\"%1 %2:%3-%4\"")
                         .arg(book)
                         .arg(i % 50 + 1)
                         .arg(i % 20 + 1)
                         .arg(i % 20 + 5);
        }
        fixture::writeFile(dir.filePath(QStringLiteral("bookmarks.dat")), fixture::crlf(lines));
        return dir.path();
    }();
    return folder;
}

void LoadBookmarks5000(benchmark::State &state)
{
    Bookmarks bookmarks(programFolder());
    for (auto _ : state) {
        bookmarks.Load();
        benchmark::DoNotOptimize(bookmarks.Count());
    }
    state.counters["bookmarks"] = bookmarks.Count();
}
BENCHMARK(LoadBookmarks5000)->Unit(benchmark::kMillisecond);

// Fills the menu the way a Bookmarks menu is filled: every bookmark entry of the last load goes,
// then one action per bookmark, connected to its index, added in one call.
void fillMenu(QMenu &menu, QList<QAction *> &entries, const Bookmarks &bookmarks, int &chosen)
{
    qDeleteAll(entries);
    entries.clear();
    const QStringList &names = bookmarks.Names();
    entries.reserve(names.size());
    for (qsizetype i = 0; i < names.size(); ++i) {
        auto *entry = new QAction(QString(names.at(i)).replace(u'&', QStringLiteral("&&")), &menu);
        QObject::connect(entry, &QAction::triggered, &menu,
                         [&chosen, index = int(i) + 1] { chosen = index; });
        entries.append(entry);
    }
    menu.addActions(entries);
}

void LoadBookmarks5000IntoMenu(benchmark::State &state)
{
    Bookmarks bookmarks(programFolder());
    QMenu menu;
    menu.addAction(QStringLiteral("Add Passage to bookmarks"));
    menu.addAction(QStringLiteral("&Organize Bookmarks"));
    menu.addSeparator();
    QList<QAction *> entries;
    int chosen = 0;
    for (auto _ : state) {
        bookmarks.Load();
        fillMenu(menu, entries, bookmarks, chosen);
        benchmark::DoNotOptimize(menu.actions().size());
    }
    state.counters["actions"] = double(menu.actions().size());
}
BENCHMARK(LoadBookmarks5000IntoMenu)->Unit(benchmark::kMillisecond);

// What opening such a menu costs on top: the menu lays out all its entries.
void OpenMenuOf5000(benchmark::State &state)
{
    Bookmarks bookmarks(programFolder());
    QMenu menu;
    QList<QAction *> entries;
    int chosen = 0;
    for (auto _ : state) {
        state.PauseTiming();
        bookmarks.Load();
        fillMenu(menu, entries, bookmarks, chosen);
        state.ResumeTiming();
        benchmark::DoNotOptimize(menu.sizeHint());
    }
}
BENCHMARK(OpenMenuOf5000)->Unit(benchmark::kMillisecond);

} // namespace
