#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

// One installed SWORD module as its ".conf" file in a library's "mods.d" describes it, read
// directly so that the command line can list modules without the SWORD library.
class ModuleConfig
{
public:
    // The entries of one configuration file; nothing when it holds no [section].
    static std::optional<ModuleConfig> Parse(const QString &text);

    QString Name() const { return m_name; }
    // The first value of a key ("ModDrv", "Lang", "Description"); empty when absent.
    QString Value(const QString &key) const { return m_entries.value(key); }
    bool Has(const QString &key) const { return m_entries.contains(key); }

    // "Bible", "Commentary", "Lexicon / Dictionary", "Generic Book", or the module's own category.
    QString Type() const;
    // Read by verse: Bibles and commentaries.
    bool IsVerseKeyed() const;
    bool IsBible() const;
    // The verse numbering ("KJV" when the file names none); empty for modules not read by verse.
    QString Versification() const;
    // Enciphered and without a usable key: the text cannot be read.
    bool IsLocked() const;

    // The library folder holding the "mods.d" this came from, and the file itself.
    QString LibraryFolder() const { return m_libraryFolder; }
    QString ConfPath() const { return m_confPath; }

private:
    QString m_name;
    QHash<QString, QString> m_entries;
    QString m_libraryFolder;
    QString m_confPath;

    friend QList<ModuleConfig> InstalledModules(const QStringList &);
};

// ~/.sword, then /usr/share/sword: the user's modules come first.
QStringList DefaultLibraryFolders();

// Every module of the libraries' "mods.d" folders, sorted by name; a name found in an earlier
// library hides the same name in a later one.
QList<ModuleConfig> InstalledModules(const QStringList &libraryFolders);

// The module of that name (any case), searched as InstalledModules does.
std::optional<ModuleConfig> FindModule(const QStringList &libraryFolders, const QString &name);
