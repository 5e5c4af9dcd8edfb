// An installed copy gives each user a program folder of their own; a build's folder stays its own.
#include "../support/TranslationFixture.h"
#include "settings/InstalledCopy.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

using fixture::readFile;

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
        fixture::writeFile(prefix + QStringLiteral("/share/quillstone/window.ini"), "[load]\r\n");
        QCOMPARE(InstalledCopy::DataFolder(prefix + QStringLiteral("/bin")),
                 prefix + QStringLiteral("/share/quillstone"));
        // A program folder holding its executables, as a build's is, is used as it is.
        fixture::writeFile(prefix + QStringLiteral("/bin/window.ini"), "[load]\r\n");
        QCOMPARE(InstalledCopy::DataFolder(prefix + QStringLiteral("/bin")), QString());
    }

    void preparesTheUsersFolder()
    {
        QTemporaryDir dir;
        const QString data = dir.filePath(QStringLiteral("share/quillstone"));
        const QString user = dir.filePath(QStringLiteral("home/quillstone"));
        fixture::writeFile(data + QStringLiteral("/window.ini"), "installed");
        fixture::writeFile(data + QStringLiteral("/KJV/bible.dat"), "King James Version\r\n");
        fixture::writeFile(data + QStringLiteral("/notes/oldtest/GENESIS.dat"), "CHAPTER 1\r\n");
        fixture::writeFile(data + QStringLiteral("/gone/bible.dat"), "Removed later\r\n");
        QCOMPARE(InstalledCopy::Prepare(data, user), QString());

        QVERIFY(QFileInfo(user + QStringLiteral("/KJV")).isSymLink());
        QVERIFY(!QFileInfo(user + QStringLiteral("/window.ini")).isSymLink());
        QVERIFY(!QFileInfo(user + QStringLiteral("/notes/oldtest/GENESIS.dat")).isSymLink());

        // The next start keeps what the user changed and drops links to works no longer there.
        fixture::writeFile(user + QStringLiteral("/window.ini"), "mine");
        QVERIFY(QDir(data + QStringLiteral("/gone")).removeRecursively());
        QCOMPARE(InstalledCopy::Prepare(data, user), QString());
        QCOMPARE(readFile(user + QStringLiteral("/window.ini")), QByteArray("mine"));
        QVERIFY(!QFileInfo(user + QStringLiteral("/gone")).isSymLink());
        QCOMPARE(readFile(user + QStringLiteral("/KJV/bible.dat")),
                 QByteArray("King James Version\r\n"));
    }
};

QTEST_GUILESS_MAIN(TestInstalledCopy)
#include "tst_installedcopy.moc"
