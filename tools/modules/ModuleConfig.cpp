#include "tools/modules/ModuleConfig.h"

#include "platform/FileSystem.h"
#include "platform/TextCodec.h"

#include <QDir>
#include <QSet>

#include <algorithm>

namespace {

const QStringList BibleDrivers = {QStringLiteral("zText"), QStringLiteral("zText4"),
                                  QStringLiteral("RawText"), QStringLiteral("RawText4")};
const QStringList CommentaryDrivers = {QStringLiteral("zCom"),    QStringLiteral("zCom4"),
                                       QStringLiteral("RawCom"),  QStringLiteral("RawCom4"),
                                       QStringLiteral("HREFCom"), QStringLiteral("RawFiles")};
const QStringList LexiconDrivers = {QStringLiteral("RawLD"), QStringLiteral("RawLD4"),
                                    QStringLiteral("zLD")};

bool containsIgnoringCase(const QStringList &list, const QString &value)
{
    return list.contains(value, Qt::CaseInsensitive);
}

} // namespace

std::optional<ModuleConfig> ModuleConfig::Parse(const QString &text)
{
    ModuleConfig config;
    QString pendingKey;
    QString pendingValue;
    const auto keep = [&] {
        if (!pendingKey.isEmpty() && !config.m_entries.contains(pendingKey))
            config.m_entries.insert(pendingKey, pendingValue.trimmed());
        pendingKey.clear();
        pendingValue.clear();
    };
    bool continued = false;
    for (const QString &raw : text.split(u'\n')) {
        QString line = raw;
        if (line.endsWith(u'\r'))
            line.chop(1);
        // A value ending in a backslash goes on over the next line (long "About" texts).
        if (continued) {
            continued = line.endsWith(u'\\');
            pendingValue =
                pendingValue.trimmed() + u' ' + (continued ? line.chopped(1) : line).trimmed();
            if (!continued)
                keep();
            continue;
        }
        const QString trimmed = line.trimmed();
        if (trimmed.isEmpty() || trimmed.startsWith(u'#'))
            continue;
        if (trimmed.startsWith(u'[') && trimmed.endsWith(u']')) {
            if (!config.m_name.isEmpty())
                break; // one module a file
            config.m_name = trimmed.mid(1, trimmed.size() - 2).trimmed();
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (config.m_name.isEmpty() || equals <= 0)
            continue;
        pendingKey = line.left(equals).trimmed();
        pendingValue = line.mid(equals + 1);
        continued = pendingValue.endsWith(u'\\');
        if (continued)
            pendingValue.chop(1);
        else
            keep();
    }
    keep();
    if (config.m_name.isEmpty())
        return std::nullopt;
    return config;
}

QString ModuleConfig::Type() const
{
    const QString category = Value(QStringLiteral("Category"));
    const QString driver = Value(QStringLiteral("ModDrv"));
    if (!category.isEmpty() && category != u"Biblical Texts" && category != u"Commentaries" &&
        category != u"Lexicons / Dictionaries" && category != u"Generic Books")
        return category;
    if (containsIgnoringCase(BibleDrivers, driver))
        return QStringLiteral("Bible");
    if (containsIgnoringCase(CommentaryDrivers, driver))
        return QStringLiteral("Commentary");
    if (containsIgnoringCase(LexiconDrivers, driver))
        return QStringLiteral("Lexicon / Dictionary");
    if (driver.compare(u"RawGenBook", Qt::CaseInsensitive) == 0)
        return QStringLiteral("Generic Book");
    return driver.isEmpty() ? QStringLiteral("unknown") : driver;
}

bool ModuleConfig::IsBible() const
{
    return containsIgnoringCase(BibleDrivers, Value(QStringLiteral("ModDrv")));
}

bool ModuleConfig::IsVerseKeyed() const
{
    return IsBible() || containsIgnoringCase(CommentaryDrivers, Value(QStringLiteral("ModDrv")));
}

QString ModuleConfig::Versification() const
{
    if (!IsVerseKeyed())
        return QString();
    const QString v = Value(QStringLiteral("Versification"));
    return v.isEmpty() ? QStringLiteral("KJV") : v;
}

bool ModuleConfig::IsLocked() const
{
    return Has(QStringLiteral("CipherKey")) && Value(QStringLiteral("CipherKey")).isEmpty();
}

QStringList DefaultLibraryFolders()
{
    return {QDir::homePath() + QStringLiteral("/.sword"), QStringLiteral("/usr/share/sword")};
}

QList<ModuleConfig> InstalledModules(const QStringList &libraryFolders)
{
    QList<ModuleConfig> modules;
    QSet<QString> seen;
    for (const QString &library : libraryFolders) {
        const QDir modsD(QDir(library).filePath(QStringLiteral("mods.d")));
        for (const QString &file :
             modsD.entryList({QStringLiteral("*.conf")}, QDir::Files, QDir::Name)) {
            const std::optional<QByteArray> bytes = platform::ReadFileBytes(modsD.filePath(file));
            if (!bytes)
                continue;
            std::optional<ModuleConfig> config =
                ModuleConfig::Parse(platform::DecodeText(*bytes).text);
            // "globals.conf" and the like hold settings, not a module.
            if (!config || !config->Has(QStringLiteral("ModDrv")) ||
                seen.contains(config->m_name.toLower()))
                continue;
            seen.insert(config->m_name.toLower());
            config->m_libraryFolder = QDir(library).absolutePath();
            config->m_confPath = modsD.absoluteFilePath(file);
            modules.append(*config);
        }
    }
    std::sort(modules.begin(), modules.end(), [](const ModuleConfig &a, const ModuleConfig &b) {
        return a.Name().compare(b.Name(), Qt::CaseInsensitive) < 0;
    });
    return modules;
}

std::optional<ModuleConfig> FindModule(const QStringList &libraryFolders, const QString &name)
{
    for (const ModuleConfig &module : InstalledModules(libraryFolders)) {
        if (module.Name().compare(name, Qt::CaseInsensitive) == 0)
            return module;
    }
    return std::nullopt;
}
