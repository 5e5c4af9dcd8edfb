// Fetching passages, parsing references, formatting and the quick search over a Bible-sized
// translation; saving and reading notes, and the commentary on a chapter.
#include "SyntheticBible.h"
#include "scripture/AdvancedSearch.h"
#include "scripture/BookFiles.h"
#include "scripture/CommentaryStore.h"
#include "scripture/NotesStore.h"
#include "scripture/PassageFormatter.h"
#include "scripture/QuickSearch.h"
#include "scripture/ReferenceParser.h"
#include "scripture/StrongConcordance.h"
#include "scripture/clsBible.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
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
    const QString list = QStringLiteral("Genesis 1:1-5,Exodus 20:1-17,Psalms 23,Isaiah 53:3-6,John "
                                        "3:16-18,Romans 8:28-39,1John 4:8");
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
        benchmark::DoNotOptimize(
            search.run(store(), QStringLiteral("light"), state.range(0) != 0, 500));
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

void QuickSearchLoveGod(benchmark::State &state)
{
    QuickSearch search;
    for (auto _ : state)
        benchmark::DoNotOptimize(search.run(store(), QStringLiteral("love god"), false, 500));
}
BENCHMARK(QuickSearchLoveGod)->Unit(benchmark::kMillisecond);

void QuickSearchLoveGodFirstRead(benchmark::State &state)
{
    QuickSearch search;
    for (auto _ : state) {
        BookFiles::clear();
        benchmark::DoNotOptimize(search.run(store(), QStringLiteral("love god"), false, 500));
    }
}
BENCHMARK(QuickSearchLoveGodFirstRead)->Unit(benchmark::kMillisecond);

// "love god" over the whole Bible in each mode: 0 any word, 1 all words, 2 the exact phrase.
void AdvancedSearchMode(benchmark::State &state)
{
    const auto mode = AdvancedSearch::Mode(state.range(0));
    AdvancedSearch search;
    const AdvancedSearch::Options options{QStringLiteral("love god"), mode, false,
                                          QList<bool>(store().BooksCount(), true), 32767};
    qsizetype found = 0;
    for (auto _ : state) {
        const AdvancedSearch::Result result = search.run(store(), options);
        found = result.hits.size();
        benchmark::DoNotOptimize(result);
    }
    state.SetLabel(std::to_string(found) + " results");
}
BENCHMARK(AdvancedSearchMode)
    ->Arg(0)
    ->Arg(1)
    ->Arg(2)
    ->ArgName("mode")
    ->Unit(benchmark::kMillisecond);

// About 3 KB of rich text, as the notes view writes it.
QString notesRtf(int chapter, int version)
{
    QString rtf =
        QStringLiteral("{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0 Times New Roman;}}"
                       "{\\colortbl ;\\red255\\green0\\blue0;}\r\n");
    for (int p = 0; p < 25; ++p)
        rtf +=
            QStringLiteral(
                "\\pard\\f0\\fs24 Paragraph %1 on chapter %2, version %3: \\b a few words\\b0  and "
                "\\cf1 more\\cf0  words to fill a line.\\par\r\n")
                .arg(p)
                .arg(chapter)
                .arg(version);
    return rtf + QStringLiteral("}\r\n");
}

// A program folder whose commentary is the benchmark Bible and whose notes of Psalms hold 150
// chapters of notes.
QString programFolder()
{
    static QTemporaryDir dir;
    static const QString folder = [] {
        QFile::link(bench::syntheticBible(), dir.filePath(QStringLiteral("tvc")));
        QDir().mkpath(dir.filePath(QStringLiteral("notes/oldtest")));
        QFile file(dir.filePath(QStringLiteral("notes/oldtest/PSALMS.dat")));
        if (file.open(QIODevice::WriteOnly)) {
            for (int c = 1; c <= 150; ++c)
                file.write("CHAPTER " + QByteArray::number(c) + "\r\n" + notesRtf(c, 0).toUtf8());
        }
        return dir.path();
    }();
    return folder;
}

void NotesSave(benchmark::State &state)
{
    const NotesStore notes(programFolder());
    const QString versions[2] = {notesRtf(75, 1), notesRtf(75, 2)};
    int i = 0;
    for (auto _ : state) {
        const QString failure = notes.Write(0, QStringLiteral("PSALMS"), 75, versions[++i % 2]);
        if (!failure.isEmpty())
            state.SkipWithError(failure.toUtf8().constData());
    }
}
BENCHMARK(NotesSave)->Unit(benchmark::kMillisecond);

void NotesRead(benchmark::State &state)
{
    const NotesStore notes(programFolder());
    for (auto _ : state)
        benchmark::DoNotOptimize(notes.Read(0, QStringLiteral("PSALMS"), 75));
}
BENCHMARK(NotesRead)->Unit(benchmark::kMicrosecond);

void CommentaryViewText(benchmark::State &state)
{
    // Two readers on neighbouring chapters, so that every call fetches a chapter.
    clsBible translation;
    translation.setVersionPath(bench::syntheticBible());
    const Passage chapters[2] = {translation.Fetch(QStringLiteral("Psalms 118")),
                                 translation.Fetch(QStringLiteral("Psalms 119"))};
    CommentaryStore commentary(programFolder());
    int i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(commentary.ViewText(translation, chapters[++i % 2]));
}
BENCHMARK(CommentaryViewText)->Unit(benchmark::kMicrosecond);

// The Strong's concordance of H430 (about 2,600 verses) over a translation tagged with the numbers:
// QS_BENCH_STRONG_BIBLE names its folder (the imported KJVS); skipped without it.
void StrongConcordanceH430(benchmark::State &state)
{
    const QString folder = qEnvironmentVariable("QS_BENCH_STRONG_BIBLE");
    if (folder.isEmpty()) {
        state.SkipWithError("QS_BENCH_STRONG_BIBLE is not set");
        return;
    }
    clsBible tagged;
    tagged.setVersionPath(folder);
    int matches = 0;
    for (auto _ : state) {
        QuickSearch search;
        const QuickSearch::Result result =
            StrongConcordance::Run(search, tagged, QStringLiteral("H430"), 32767);
        matches = result.matchCount;
        benchmark::DoNotOptimize(result);
    }
    state.counters["matches"] = matches;
}
BENCHMARK(StrongConcordanceH430)->Unit(benchmark::kMillisecond);

} // namespace
