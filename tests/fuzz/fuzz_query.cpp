// Queries of any shape, and verses of any shape to match them against: parsing, matching and
// highlighting never crash or hang, a refused query always says what and where, and highlights
// stay inside the text, in order and apart.
#include "FuzzSupport.h"
#include "scripture/FoldedVerses.h"
#include "scripture/SearchQuery.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::quietMessages();
    if (size > 4096)
        return 0;
    // The first line is the query, the others verse lines as a book file holds them.
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
    QStringList lines = text.split(u'\n');
    const QString typed = lines.takeFirst();
    QueryProblem problem;
    const std::optional<SearchQuery> query = SearchQuery::Parse(typed, &problem);
    if (!query) {
        if (problem.message.isEmpty() || problem.position < 0 || problem.position > typed.size())
            std::abort();
        return 0;
    }
    const FoldedVerses verses = FoldedVerses::OfLines(lines);
    const std::vector<bool> matching = query->MatchingVerses(verses);
    if (qsizetype(matching.size()) != lines.size())
        std::abort();
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (query->Matches(lines.at(i)) != matching[size_t(i)])
            std::abort();
        const QString shown = SearchQuery::DisplayedText(lines.at(i));
        int end = 0;
        for (const auto &[start, length] : query->Highlights(shown)) {
            if (start < end || length <= 0 || start + length > shown.size())
                std::abort();
            end = start + length;
        }
    }
    return 0;
}
