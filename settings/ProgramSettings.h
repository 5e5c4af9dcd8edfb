#pragma once

#include "settings/SettingsRecords.h"
#include "settings/clsIni.h"

#include <QString>
#include <memory>

// The few values the whole program shares, kept in one place: the look and general-options
// records, the remember-windows flag, the search limit, and the one settings store on
// "window.ini". All of them live in the program folder, never in a translation folder.
class ProgramSettings
{
public:
    static ProgramSettings &instance();

    // The program folder for a start with the given "--dir" option (empty when none): the
    // option, else the environment variable QUILLSTONE_DIR, else the executable's folder, or for
    // an installed copy the user's own folder, prepared from the installed data (InstalledCopy).
    // The window and the command line both start from this.
    static QString ResolveProgramFolder(const QString &dirOption);

    // The executable's folder unless start-up names another (a command-line option, a test).
    QString programFolder() const;
    // Also points the settings store at the new folder's "window.ini".
    void setProgramFolder(const QString &folder);

    QString windowIniPath() const;
    QString generalFilePath() const;
    QString displayFilePath() const;

    // The store on "window.ini" of the program folder, created on first use.
    clsIni &Ini();
    // Creates the store afresh and tells whether "window.ini" exists; start-up stops without it.
    bool CreateIni();

    // Both binary files into the records; a missing or short file gives the defaults silently.
    void readSettingsFiles();
    // Atomic writes; on failure the user has been told and the old file is whole.
    bool writeGeneralSettings() const;
    bool writeDisplaySettings() const;

    GeneralSettings general;
    DisplaySettings display;
    bool rememberWindows = false; // "rememberwindowsetting" of the section with the empty name
    qint16 searchLimit = GeneralSettings().maxSearchResults; // copied from general at each apply

private:
    ProgramSettings() = default;

    QString m_programFolder;
    std::unique_ptr<clsIni> m_ini;
};
