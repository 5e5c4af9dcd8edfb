#include "MapCommand.h"

#include "CliOutput.h"
#include "scripture/ReferenceParser.h"
#include "scripture/VerseMapping.h"
#include "scripture/basStrings.h"

#include <QDir>
#include <algorithm>
#include <memory>

namespace cli {

// A translation folder named inside the program folder, or by its own path.
std::unique_ptr<clsBible> OpenTranslation(const QString &programFolder, const QString &name)
{
    const QString path =
        QDir::isAbsolutePath(name) ? name : basStrings::JoinPath(programFolder, name);
    if (name.isEmpty() ||
        !basStrings::FileExists(basStrings::JoinPath(path, QStringLiteral("bible.dat")))) {
        err(QStringLiteral("No translation \"%1\" in %2 (a translation folder holds bible.dat).")
                .arg(name, QDir::toNativeSeparators(programFolder)));
        return nullptr;
    }
    auto bible = std::make_unique<clsBible>();
    bible->setVersionPath(path);
    return bible->LastReadFailed() ? nullptr : std::move(bible);
}

int MapCommand(const QString &programFolder, const QStringList &args)
{
    if (args.size() < 3 || args.first() != u"--translations")
        return Usage;
    const QStringList names = args.at(1).split(u',');
    if (names.size() != 2)
        return Usage;
    const std::unique_ptr<clsBible> from = OpenTranslation(programFolder, names.first().trimmed());
    const std::unique_ptr<clsBible> to = OpenTranslation(programFolder, names.last().trimmed());
    if (!from || !to)
        return NoInput;
    const VerseMapping mapping = VerseMapping::Between(*from, *to);

    int status = Ok;
    for (const QString &reference : args.mid(2)) {
        const ReferenceParser::Reference ref = ReferenceParser::Parse(reference);
        const int book = BookOfTypedName(*from, mapping.From(), ref.book);
        if (book == 0) {
            err(QStringLiteral("No book of %1 matches \"%2\".").arg(names.first(), reference));
            out(QStringLiteral("\n"));
            status = BookNotFound;
            continue;
        }
        const std::optional<VerseMapping::Numbers> mapped =
            mapping.Map({book, ref.chapterFrom, ref.verseFrom, ref.chapterTo, ref.verseTo});
        if (!mapped || mapped->book > to->BooksCount()) {
            err(QStringLiteral("\"%1\" has no counterpart in %2.").arg(reference, names.last()));
            out(QStringLiteral("\n"));
            status = std::max(status, int(Problems));
            continue;
        }
        out(StandardOf(*to, *mapped) + u'\n');
    }
    return status;
}

} // namespace cli
