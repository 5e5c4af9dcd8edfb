#include "ParallelCommand.h"

#include "CliOutput.h"
#include "MapCommand.h"
#include "scripture/ParallelRows.h"

#include <memory>
#include <vector>

namespace cli {

int ParallelCommand(const QString &programFolder, const QStringList &args)
{
    if (args.size() != 3 || args.first() != u"--translations") {
        err(QStringLiteral("usage: quillstone-cli parallel --translations A,B[,C,D] REFERENCE"));
        return Usage;
    }
    QStringList names = args.at(1).split(u',');
    for (QString &name : names)
        name = name.trimmed();
    if (names.size() < ParallelRows::MinTranslations ||
        names.size() > ParallelRows::MaxTranslations) {
        err(QStringLiteral("parallel reads two to four translations side by side, such as "
                           "--translations KJV,WEB; \"%1\" names %2.")
                .arg(args.at(1))
                .arg(names.size()));
        return Usage;
    }
    std::vector<std::unique_ptr<clsBible>> opened;
    QList<const clsBible *> translations;
    for (const QString &name : std::as_const(names)) {
        opened.push_back(OpenTranslation(programFolder, name));
        if (!opened.back())
            return NoInput;
        translations.append(opened.back().get());
    }

    const ParallelRows::Result result = ParallelRows::Build(translations, args.at(2));
    if (!result.ok()) {
        err(result.problem);
        return result.unknownBook ? BookNotFound : Problems;
    }
    out(names.join(u'\t') + u'\n');
    for (const ParallelRow &row : result.rows) {
        QStringList fields;
        for (const ParallelCell &cell : row.cells)
            fields << cell.reference << QString(cell.text).replace(u'\t', u' ');
        out(fields.join(u'\t') + u'\n');
    }
    return Ok;
}

} // namespace cli
