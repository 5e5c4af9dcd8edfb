// Fetching passages, parsing references, formatting and the quick search over a Bible-sized
// translation.
#include "SyntheticBible.h"
#include "platform/MsgBox.h"
#include "scripture/BookFiles.h"
#include "scripture/PassageFormatter.h"
#include "scripture/QuickSearch.h"
#include "scripture/ReferenceParser.h"
#include "scripture/clsBible.h"

#include <benchmark/benchmark.h>

namespace {

clsBible &store()
{
    static clsBible bible = [] {
        clsBible b;
        b.setVersionPath(bench::syntheticBible());
        return b;
    }();
    return bible;
}

void FetchVerse(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(store().Passagebystandard(QStringLiteral("John 3:16")));
}
BENCHMARK(FetchVerse)->Unit(benchmark::kMicrosecond);

void FetchVerseFirstRead(benchmark::State &state)
{
    for (auto _ : state) {
        BookFiles::clear();
        benchmark::DoNotOptimize(store().Passagebystandard(QStringLiteral("John 3:16")));
    }
}
BENCHMARK(FetchVerseFirstRead)->Unit(benchmark::kMicrosecond);

void FetchLongChapter(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(store().Passagebystandard(QStringLiteral("Psalms 119")));
}
BENCHMARK(FetchLongChapter)->Unit(benchmark::kMicrosecond);

void FetchReferenceList(benchmark::State &state)
{
    const QString list = QStringLiteral(
        "Genesis 1:1-5,Exodus 20:1-17,Psalms 23,Isaiah 53:3-6,John 3:16-18,Romans 8:28-39,1John 4:8");
    for (auto _ : state)
        benchmark::DoNotOptimize(store().Passagebystandard(list));
}
BENCHMARK(FetchReferenceList)->Unit(benchmark::kMicrosecond);

void ParseReference(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(ReferenceParser::Parse(QStringLiteral("1 Jn 3:16-4:2")));
}
BENCHMARK(ParseReference);

void FormatLongChapter(benchmark::State &state)
{
    const QString text = store().Passagebystandard(QStringLiteral("Psalms 119"));
    for (auto _ : state)
        benchmark::DoNotOptimize(PassageFormatter::ToRichText(text, true));
}
BENCHMARK(FormatLongChapter)->Unit(benchmark::kMicrosecond);

void QuickSearchWarm(benchmark::State &state)
{
    QuickSearch search;
    for (auto _ : state)
        benchmark::DoNotOptimize(search.run(store(), QStringLiteral("light"), state.range(0) != 0, 500));
}
BENCHMARK(QuickSearchWarm)->Arg(0)->Arg(1)->ArgName("wholeword")->Unit(benchmark::kMillisecond);

void QuickSearchFirstRead(benchmark::State &state)
{
    QuickSearch search;
    for (auto _ : state) {
        BookFiles::clear();
        benchmark::DoNotOptimize(search.run(store(), QStringLiteral("light"), false, 500));
    }
}
void QuickSearchTwoWords(benchmark::State &state)
{
    QuickSearch search;
    for (auto _ : state)
        benchmark::DoNotOptimize(search.run(store(), QStringLiteral("the love"), false, 500));
}
BENCHMARK(QuickSearchTwoWords)->Unit(benchmark::kMillisecond);

BENCHMARK(QuickSearchFirstRead)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    platform::setMsgBoxHandler([](const QString &, int b, const QString &) { return platform::DefaultAnswer(b); });
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
