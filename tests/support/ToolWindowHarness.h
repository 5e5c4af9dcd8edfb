#pragma once

// For tests of the reference windows: the main window as those windows see it, recording what it
// was asked to do, and the settings the windows read.
#include "OpenedWindow.h"
#include "TranslationFixture.h"
#include "library/MainWindowLink.h"
#include "scripture/clsBible.h"
#include "settings/ProgramSettings.h"
#include "settings/clsIni.h"

#include <QList>
#include <QStringList>

namespace support {

class FakeMain : public MainWindowLink
{
public:
    struct Shown
    {
        QString rtf;
        QString title;
    };

    void GoToReference(const QString &reference) override { references << reference; }
    void ShowPassage(const QString &rtf, const QString &title) override
    {
        shown.append({rtf, title});
    }
    const clsBible &Bible() const override { return bible; }
    void ShowConcordance(const QString &number) override { concordance << number; }

    // A program folder whose translation "T" holds Genesis 1 and 2, three verses each
    // ("n Text of Genesis c:n"), opened in the store.
    void openGenesis(const QString &programFolder)
    {
        bible.setVersionPath(
            fixture::makeTranslation(programFolder, QStringLiteral("T"),
                                     {{QStringLiteral("Genesis"), false,
                                       fixture::chapters(QStringLiteral("Genesis"), {3, 3})}}));
        bible.setSeparator(QStringLiteral("\r\n"));
    }

    clsBible bible;
    QStringList references;
    QStringList concordance;
    QList<Shown> shown;
};

// Gives the program folder this "window.ini" and makes it the program's. The remember-windows
// option is read with the rest of the program's settings, not with the folder, so it is set here.
inline void useSettings(const QString &programFolder, const QByteArray &windowIni)
{
    fixture::writeFile(programFolder + QStringLiteral("/window.ini"), windowIni);
    ProgramSettings::instance().setProgramFolder(programFolder);
    ProgramSettings::instance().rememberWindows = windowIni.contains("rememberwindowsetting=1");
}

// A number the program folder's "window.ini" holds, -1 when it is not there.
inline int iniData(const QString &programFolder, const char *section, const char *key)
{
    clsIni ini;
    ini.Create(programFolder + QStringLiteral("/window.ini"));
    return ini.Data(QLatin1String(section), QLatin1String(key));
}

} // namespace support
