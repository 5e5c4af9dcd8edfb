// An installed copy gives each user a program folder of their own; a build's folder stays its own.
#include "settings/InstalledCopy.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

namespace {

void write(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestInstalledCopy : public QObject
{
    Q_OBJECT

private slots:
    void tellsAnInstalledCopyFromABuild()
    {
        QTemporaryDir dir;
        const QString prefix = dir.filePath(QStringLiteral("usr"));
        QDir().mkpath(prefix + QStringLiteral("/bin"));
        QCOMPARE(InstalledCopy::DataFolder(prefix + QStringLiteral("/bin")), QString());
        write(prefix + QStringLiteral("/share/quillstone/window.ini"), "[load]\r\n");
        QCOMPARE(InstalledCopy::DataFolder(prefix + QStringLiteral("/bin")),
                 prefix + QStringLiteral("/share/quillstone"));
        // A program folder holding its executables, as a build's is, is used as it is.
        write(prefix + QStringLiteral("/bin/window.ini"), "[load]\r\n");
        QCOMPARE(InstalledCopy::DataFolder(prefix + QStringLiteral("/bin")), QString());
    }

    void preparesTheUsersFolder()
    {
        QTemporaryDir dir;
        const QString data = dir.filePath(QStringLiteral("share/quillstone"));
        const QString user = dir.filePath(QStringLiteral("home/quillstone"));
        write(data + QStringLiteral("/window.ini"), "installed");
        write(data + QStringLiteral("/KJV/bible.dat"), "King James Version\r\n");
        write(data + QStringLiteral("/notes/oldtest/GENESIS.dat"), "CHAPTER 1\r\n");
        write(data + QStringLiteral("/gone/bible.dat"), "Removed later\r\n");
        QCOMPARE(InstalledCopy::Prepare(data, user), QString());

        QVERIFY(QFileInfo(user + QStringLiteral("/KJV")).isSymLink());
        QVERIFY(!QFileInfo(user + QStringLiteral("/window.ini")).isSymLink());
        QVERIFY(!QFileInfo(user + QStringLiteral("/notes/oldtest/GENESIS.dat")).isSymLink());

        // The next start keeps what the user changed and drops links to works no longer there.
        write(user + QStringLiteral("/window.ini"), "mine");
        QVERIFY(QDir(data + QStringLiteral("/gone")).removeRecursively());
        QCOMPARE(InstalledCopy::Prepare(data, user), QString());
        QCOMPARE(read(user + QStringLiteral("/window.ini")), QByteArray("mine"));
        QVERIFY(!QFileInfo(user + QStringLiteral("/gone")).isSymLink());
        QCOMPARE(read(user + QStringLiteral("/KJV/bible.dat")),
                 QByteArray("King James Version\r\n"));
    }
};

QTEST_GUILESS_MAIN(TestInstalledCopy)
#include "tst_installedcopy.moc"
