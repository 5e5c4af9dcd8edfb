#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace cli {

// What QueryCommand returns for arguments it cannot read: the caller shows the usage.
inline constexpr int BadArguments = -1;

// "search --mode query [--translations A,B,...] [--books LIST] [--limit N] [--format text|csv]
// QUERY": the query language over one or several translations. Text output is one line a verse,
// REFERENCE<TAB>TEXT (the translation's folder name first when several are searched), then
// "N verses" or "N verses in M translations"; csv a header and one record a verse. A malformed
// query is told on standard error with where it is, exit status 64.
//
// translationPath is the translation searched without --translations; bookList reads a --books
// list against a number of books (nothing when it names none).
int QueryCommand(const QString &programFolder, const QString &translationPath, QStringList args,
                 const std::function<std::optional<QList<bool>>(const QString &, int)> &bookList);

// Whether the arguments of "search" ask for the query language.
bool IsQueryMode(const QStringList &searchArgs);

} // namespace cli
