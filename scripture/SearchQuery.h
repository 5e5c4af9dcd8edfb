#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

class FoldedVerses;

// What is wrong with a query, and where: position is the index (from 0) of the character in the
// query at which the problem is; the message names it counted from 1, as a user reads it.
struct QueryProblem
{
    QString message;
    int position = 0;
};

// A query of the query language, parsed once and matched against any number of verses:
//
//   love god             every word in the verse, in any order, as whole words; case and accents
//                        are ignored ("jesus" finds "Jesús", "élite" finds "elite")
//   "in the beginning"   the words one after the other (marks between them do not count)
//   faith OR hope        either side; OR binds looser than the words around it
//   -fear, NOT fear      the verse must not hold it
//   (faith OR hope) love parentheses group; AND may be written between terms and does nothing
//   lov* l?ve            * any ending (or any run of letters), ? one letter
//   /lov(e|ed)\b/        a regular expression, matched case-blind against the verse text as
//                        shown (italic brackets and Strong's numbers removed); \/ for a slash
//   H430 G26 h0430       a Strong's number, found in translations that carry them
//
// The verse a query is matched against is its text as shown without its leading verse number;
// the text as the book file stores it (number, [added words], {H430} numbers) is read so. The class
// keeps no state between calls and is cheap to copy.
class SearchQuery
{
public:
    // The query read; nothing, with what is wrong and where, when it is malformed (an unbalanced
    // quote, slash or parenthesis, an empty group or phrase, an operator with nothing to work on,
    // a bad regular expression, a term with nothing to look for).
    static std::optional<SearchQuery> Parse(const QString &query, QueryProblem *problem = nullptr);

    // Whether a verse matches: its line as stored, or its text as shown when that does not begin
    // with a number (a leading number is taken for the verse number).
    bool Matches(const QString &verse) const;
    // Whether a text as shown matches (a QueryHit's text, for a search within results): every
    // character is the verse's own.
    bool MatchesShown(const QString &shownText) const;

    // The spans (start, length) of the displayed text that the query's words, phrases, regular
    // expressions found, for highlighting, in order and not overlapping. Excluded terms are not
    // marked; Strong's numbers are not in a displayed text and are not marked either.
    QList<std::pair<int, int>> Highlights(const QString &displayedText) const;

    // The text a verse line of a book file shows: its leading verse number and the blank after it
    // dropped, the brackets of added words and every {Strong's number} group removed.
    static QString DisplayedText(QStringView line);

    // Whether the query asks for Strong's numbers anywhere.
    bool UsesStrongsNumbers() const;

    // The engine's inner tree, shared by copies (it never changes once parsed).
    struct Node;

    // For the search engine: the verses of a folded text that match, one flag a verse.
    std::vector<bool> MatchingVerses(const FoldedVerses &verses) const;

private:
    std::shared_ptr<const Node> m_root;
};
