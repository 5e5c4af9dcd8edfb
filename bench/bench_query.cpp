// The query language over the imported KJV (QS_BENCH_BIBLE, else the build's program folder):
// a warm query of each kind, a regular expression, the first search after start (every book file
// read and folded), Strong's numbers on the KJV with numbers, and all installed translations at
// once.
#include "scripture/BookFiles.h"
#include "scripture/QuerySearch.h"
#include "scripture/SearchQuery.h"
#include "scripture/TranslationList.h"

#include <QDir>
#include <benchmark/benchmark.h>

namespace {

QString programFolder()
{
    const QString bible = qEnvironmentVariable("QS_BENCH_BIBLE");
    return bible.isEmpty() ? QStringLiteral(QS_PROGRAM_DIR)
                           : QDir(bible).absoluteFilePath(QStringLiteral(".."));
}

QString translation(const char *name)
{
    const QString bible = qEnvironmentVariable("QS_BENCH_BIBLE");
    if (!bible.isEmpty() && QLatin1StringView(name) == QLatin1StringView("KJV"))
        return bible;
    return QDir(programFolder()).absoluteFilePath(QString::fromLatin1(name));
}

void runQuery(benchmark::State &state, const QString &typed, const QStringList &translations,
              bool firstRead)
{
    const std::optional<SearchQuery> query = SearchQuery::Parse(typed);
    if (!query) {
        state.SkipWithError("the query does not parse");
        return;
    }
    QuerySearch::Options options;
    options.translations = translations;
    options.limit = 500;
    QuerySearch search;
    int found = 0;
    for (auto _ : state) {
        if (firstRead) {
            state.PauseTiming();
            BookFiles::clear();
            state.ResumeTiming();
        }
        const QuerySearch::Result result = search.run(*query, options);
        found = result.found;
        benchmark::DoNotOptimize(result);
    }
    state.counters["verses"] = found;
}

const QStringList kQueries{
    QStringLiteral("love god"),
    QStringLiteral("\"in the beginning\""),
    QStringLiteral("(faith OR hope) -charity"),
    QStringLiteral("lov* l?ght"),
    QStringLiteral("jesus NOT (peter OR john)"),
    QStringLiteral("the"),
};

void QueryWarm(benchmark::State &state)
{
    const QString typed = kQueries.at(state.range(0));
    state.SetLabel(typed.toStdString());
    runQuery(state, typed, {translation("KJV")}, false);
}
BENCHMARK(QueryWarm)->DenseRange(0, 5)->Unit(benchmark::kMillisecond);

void QueryRegex(benchmark::State &state)
{
    runQuery(state, QStringLiteral("/\\blov(e|ed|eth)\\b.*\\bGod\\b/"), {translation("KJV")},
             false);
}
BENCHMARK(QueryRegex)->Unit(benchmark::kMillisecond);

void QueryFirstSearch(benchmark::State &state)
{
    runQuery(state, QStringLiteral("love god"), {translation("KJV")}, true);
}
BENCHMARK(QueryFirstSearch)->Unit(benchmark::kMillisecond);

void QueryStrongs(benchmark::State &state)
{
    runQuery(state, QStringLiteral("H430 love"), {translation("KJVS")}, false);
}
BENCHMARK(QueryStrongs)->Unit(benchmark::kMillisecond);

void QueryAllTranslations(benchmark::State &state)
{
    QStringList all;
    for (const InstalledTranslation &t : TranslationList::List(programFolder()))
        all.append(QDir(programFolder()).absoluteFilePath(t.folder));
    runQuery(state, QStringLiteral("love god"), all, false);
}
BENCHMARK(QueryAllTranslations)->Unit(benchmark::kMillisecond);

void QueryParse(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(
            SearchQuery::Parse(QStringLiteral("(\"in the beginning\" OR lov*) -/hate/ H430")));
}
BENCHMARK(QueryParse)->Unit(benchmark::kMicrosecond);

} // namespace
