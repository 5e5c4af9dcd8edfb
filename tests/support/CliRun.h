#pragma once

#include <QByteArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace support {

// What one run of the command line gave back.
struct CliRun
{
    int status = -1;
    QByteArray out;
    QByteArray err;
};

// Runs the command line over a program folder named through the environment, as an installed
// copy finds its folder.
inline CliRun RunCli(const QString &cli, const QString &programFolder, const QStringList &args)
{
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QUILLSTONE_DIR"), programFolder);
    p.setProcessEnvironment(env);
    p.start(cli, args);
    p.waitForFinished(30000);
    return {p.exitCode(), p.readAllStandardOutput(), p.readAllStandardError()};
}

} // namespace support
