#include "QueryCommand.h"

#include "CliOutput.h"
#include "scripture/QuerySearch.h"
#include "scripture/SearchQuery.h"
#include "scripture/TranslationList.h"
#include "scripture/basStrings.h"
#include "scripture/clsBible.h"
#include "settings/SettingsRecords.h"

#include <QDir>

namespace cli {

bool IsQueryMode(const QStringList &searchArgs)
{
    for (qsizetype i = 0; i + 1 < searchArgs.size(); ++i) {
        if (!searchArgs.at(i).startsWith(QStringLiteral("--")) || searchArgs.at(i) == u"--")
            return false;
        if (searchArgs.at(i) == u"--mode")
            return searchArgs.at(i + 1) == u"query";
    }
    return false;
}

int QueryCommand(const QString &programFolder, const QString &translationPath, QStringList args,
                 const std::function<std::optional<QList<bool>>(const QString &, int)> &bookList)
{
    GeneralSettings general;
    general.read(basStrings::JoinPath(programFolder, QStringLiteral("general.cfg")));
    int limit = general.maxSearchResults;
    QStringList translations;
    QString books;
    bool csv = false;
    while (!args.isEmpty() && args.first().startsWith(QStringLiteral("--"))) {
        const QString option = args.takeFirst();
        if (option == u"--")
            break;
        if (args.isEmpty())
            return BadArguments;
        const QString value = args.takeFirst();
        if (option == u"--mode" && value == u"query")
            continue;
        if (option == u"--limit") {
            bool ok = false;
            limit = value.toInt(&ok);
            if (!ok || limit < 0)
                return BadArguments;
        } else if (option == u"--translations") {
            translations = value.split(u',', Qt::SkipEmptyParts);
            if (translations.isEmpty())
                return BadArguments;
        } else if (option == u"--books") {
            books = value;
        } else if (option == u"--format" && (value == u"text" || value == u"csv")) {
            csv = value == u"csv";
        } else {
            return BadArguments;
        }
    }
    if (args.isEmpty())
        return BadArguments;
    const QString text = args.join(u' ');

    QueryProblem problem;
    const std::optional<SearchQuery> query = SearchQuery::Parse(text, &problem);
    if (!query) {
        err(problem.message);
        err(QStringLiteral("  ") + text);
        err(QString(problem.position + 2, u' ') + u'^');
        return Usage;
    }

    QuerySearch::Options options;
    options.limit = limit;
    if (translations.isEmpty())
        translations.append(translationPath);
    for (const QString &name : std::as_const(translations)) {
        const QString path =
            QDir::isAbsolutePath(name) ? name : basStrings::JoinPath(programFolder, name);
        if (name.isEmpty() || !TranslationList::IsTranslation(path)) {
            err(QStringLiteral(
                    "No translation \"%1\" in %2 (a translation folder holds bible.dat).")
                    .arg(name, QDir::toNativeSeparators(programFolder)));
            return NoInput;
        }
        options.translations.append(path);
    }
    if (!books.isEmpty()) {
        clsBible first;
        first.setVersionPath(options.translations.first());
        const std::optional<QList<bool>> chosen = bookList(books, first.BooksCount());
        if (!chosen) {
            err(QStringLiteral("\"%1\" names no books of this translation (1 to %2), such as "
                               "1-39 or 1,19,40-43.")
                    .arg(books)
                    .arg(first.BooksCount()));
            return Usage;
        }
        options.books = *chosen;
    }

    QuerySearch search;
    const QuerySearch::Result result = search.run(*query, options);
    const bool several = options.translations.size() > 1;
    QString output;
    if (csv)
        output += QueryHit::CsvHeader();
    for (const QueryHit &hit : result.hits) {
        if (csv) {
            output += hit.CsvRecord();
            continue;
        }
        if (several)
            output += hit.translation + u'\t';
        output += hit.reference + u'\t' + hit.text + u'\n';
    }
    if (!csv) {
        output += several ? QStringLiteral("%1 verses in %2 translations\n")
                                .arg(result.hits.size())
                                .arg(result.translations)
                          : QStringLiteral("%1 verses\n").arg(result.hits.size());
    }
    out(output);
    if (!result.withoutStrongsNumbers.isEmpty())
        err(QStringLiteral("%1 carries no Strong's numbers: the query's numbers are not found "
                           "there.")
                .arg(result.withoutStrongsNumbers.join(QStringLiteral(", "))));
    if (result.found > result.hits.size())
        err(QStringLiteral("Only the first %1 of %2 verses are listed; --limit sets how many.")
                .arg(result.hits.size())
                .arg(result.found));
    if (!result.failureMessage.isEmpty()) {
        err(result.failureMessage);
        return Problems;
    }
    return Ok;
}

} // namespace cli
