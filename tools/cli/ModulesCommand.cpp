#include "ModulesCommand.h"

#include "CliOutput.h"
#include "tools/modules/ModuleConfig.h"

namespace cli {

namespace {

// One field of a tab-separated line: no tabs or line breaks inside.
QString field(QString text)
{
    text.replace(u'\t', u' ');
    text.replace(u'\n', u' ');
    text.replace(u'\r', u' ');
    return text.trimmed();
}

} // namespace

int ModulesCommand(const QStringList &args)
{
    QStringList libraries = DefaultLibraryFolders();
    if (args.size() == 2 && args.first() == u"--sword")
        libraries = {args.at(1)};
    else if (!args.isEmpty())
        return Usage;
    for (const ModuleConfig &module : InstalledModules(libraries)) {
        out(QStringList{field(module.Name()), field(module.Type()),
                        field(module.Value(QStringLiteral("Lang"))), field(module.Versification()),
                        field(module.Value(QStringLiteral("Description")))}
                .join(u'\t') +
            u'\n');
    }
    return Ok;
}

} // namespace cli
