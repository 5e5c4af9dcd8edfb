#include "settings/ProgramSettings.h"

#include "settings/InstalledCopy.h"

#include <QCoreApplication>
#include <QDir>

ProgramSettings &ProgramSettings::instance()
{
    static ProgramSettings settings;
    return settings;
}

QString ProgramSettings::ResolveProgramFolder(const QString &dirOption)
{
    if (!dirOption.isEmpty())
        return dirOption;
    const QString fromEnvironment = qEnvironmentVariable("QUILLSTONE_DIR");
    if (!fromEnvironment.isEmpty())
        return fromEnvironment;
    const QString folder = QCoreApplication::applicationDirPath();
    // An installed copy cannot write beside its executable: each user has a folder of their own.
    const QString installedData = InstalledCopy::DataFolder(folder);
    if (!installedData.isEmpty()) {
        const QString user = InstalledCopy::UserFolder();
        const QString problem = InstalledCopy::Prepare(installedData, user);
        if (!problem.isEmpty())
            qWarning("%s", qPrintable(problem));
        return user;
    }
    return folder.isEmpty() ? QDir::currentPath() : folder;
}

QString ProgramSettings::programFolder() const
{
    return m_programFolder.isEmpty() ? ResolveProgramFolder(QString()) : m_programFolder;
}

void ProgramSettings::setProgramFolder(const QString &folder)
{
    m_programFolder = folder;
    m_ini.reset();
}

QString ProgramSettings::windowIniPath() const
{
    return QDir(programFolder()).filePath(QStringLiteral("window.ini"));
}

QString ProgramSettings::generalFilePath() const
{
    return QDir(programFolder()).filePath(QStringLiteral("general.cfg"));
}

QString ProgramSettings::displayFilePath() const
{
    return QDir(programFolder()).filePath(QStringLiteral("display.cfg"));
}

clsIni &ProgramSettings::Ini()
{
    if (!m_ini)
        CreateIni();
    return *m_ini;
}

bool ProgramSettings::CreateIni()
{
    m_ini = std::make_unique<clsIni>();
    return m_ini->Create(windowIniPath());
}

void ProgramSettings::readSettingsFiles()
{
    general.read(generalFilePath());
    display.read(displayFilePath());
}

bool ProgramSettings::writeGeneralSettings() const
{
    return general.write(generalFilePath());
}

bool ProgramSettings::writeDisplaySettings() const
{
    return display.write(displayFilePath());
}
