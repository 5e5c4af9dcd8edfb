#pragma once

#include <QString>
#include <QTemporaryDir>
#include <memory>

namespace sword {
class SWMgr;
class SWModule;
} // namespace sword

namespace importer {

// The SWORD modules, read through our own corrected configuration files instead of the ones the
// packages install (some name the wrong driver or leave out the markup and encoding, which makes
// the library return garbage). A private library folder holds copies of our files in "mods.d"
// and points "modules" at the packages' module data.
class SwordLibrary
{
public:
    // confFolder: our "*.conf" files; swordFolder: the folder holding "modules/" (the packages
    // install it as /usr/share/sword).
    SwordLibrary(const QString &confFolder, const QString &swordFolder);
    ~SwordLibrary();

    // Empty when the library could be opened, else why not.
    QString error() const { return m_error; }

    // The module of that name, or nullptr with the reason in why: not configured, or its data
    // files are missing.
    sword::SWModule *module(const char *name, QString *why) const;

private:
    QTemporaryDir m_folder;
    std::unique_ptr<sword::SWMgr> m_manager;
    QString m_error;
};

} // namespace importer
