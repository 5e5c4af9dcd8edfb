#include "tools/import/SwordLibrary.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <swmgr.h>
#include <swmodule.h>

namespace importer {

SwordLibrary::SwordLibrary(const QString &confFolder, const QString &swordFolder)
{
    if (!m_folder.isValid()) {
        m_error = QStringLiteral("cannot create a temporary folder: ") + m_folder.errorString();
        return;
    }
    const QDir confs(confFolder);
    const QStringList files = confs.entryList({QStringLiteral("*.conf")}, QDir::Files, QDir::Name);
    if (files.isEmpty()) {
        m_error = QStringLiteral("no module configuration files in ") + confFolder;
        return;
    }
    const QString modsD = m_folder.path() + QStringLiteral("/mods.d");
    QDir().mkpath(modsD);
    for (const QString &file : files) {
        if (!QFile::copy(confs.filePath(file), modsD + u'/' + file)) {
            m_error = QStringLiteral("cannot copy ") + confs.filePath(file);
            return;
        }
    }
    const QString modules = QDir(swordFolder).filePath(QStringLiteral("modules"));
    if (!QFileInfo(modules).isDir()) {
        m_error =
            QStringLiteral("no SWORD module data in ") + modules +
            QStringLiteral(" (install the sword-text-*, sword-comm-* and sword-dict-* packages)");
        return;
    }
    if (!QFile::link(QFileInfo(modules).absoluteFilePath(),
                     m_folder.path() + QStringLiteral("/modules"))) {
        m_error = QStringLiteral("cannot link ") + modules;
        return;
    }
    // No search of the user's or the system's own configuration: only our files count.
    m_manager = std::make_unique<sword::SWMgr>(QFile::encodeName(m_folder.path()).constData(), true,
                                               nullptr, false, false);
}

SwordLibrary::~SwordLibrary() = default;

sword::SWModule *SwordLibrary::module(const char *name, QString *why) const
{
    if (!m_manager) {
        *why = m_error;
        return nullptr;
    }
    sword::SWModule *module = m_manager->getModule(name);
    if (!module) {
        *why = QStringLiteral("module %1 is not configured").arg(QString::fromLatin1(name));
        return nullptr;
    }
    // The data path is a folder for Bibles and commentaries, a file stem ("dict") for lexicons.
    const QString dataPath = QString::fromUtf8(module->getConfigEntry("AbsoluteDataPath"));
    const QFileInfo data(dataPath);
    const bool present =
        data.exists() || !QDir(data.absolutePath())
                              .entryList({data.fileName() + QStringLiteral(".*")}, QDir::Files)
                              .isEmpty();
    if (dataPath.isEmpty() || !present) {
        *why = QStringLiteral("the data of module %1 is missing (%2)")
                   .arg(QString::fromLatin1(name), dataPath);
        return nullptr;
    }
    return module;
}

} // namespace importer
