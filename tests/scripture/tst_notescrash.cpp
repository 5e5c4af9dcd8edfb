// Saving notes, and saving a whole file as bookmarks and settings are saved, is killed at random
// moments: every file must still be there, in one of the versions ever saved, never missing or
// half written, and what the killed saves left behind goes at the next save or start.
#include "NotesCrashTexts.h"
#include "platform/FileSystem.h"
#include "scripture/BookFiles.h"
#include "scripture/ChapterSection.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

class TestNotesCrash : public QObject
{
    Q_OBJECT

private slots:
    void killedWhileSaving()
    {
        QTemporaryDir dir;
        const QString path = dir.path() + QStringLiteral("/notes/oldtest/PSALMS");
        for (int chapter = 1; chapter <= crash::Chapters; ++chapter)
            QCOMPARE(ChapterSection::Rewrite(path, chapter, crash::notesText(chapter, 0)),
                     QString());

        const quint32 seed = QRandomGenerator::global()->generate();
        qInfo("seed %u", seed);
        QRandomGenerator random(seed);
        QElapsedTimer clock;
        clock.start();
        int kills = 0;
        bool changed = false;
        while (kills < 30 && clock.elapsed() < 15000) {
            QProcess writer;
            writer.start(QStringLiteral(QS_NOTES_WRITER), {path});
            QVERIFY(writer.waitForStarted());
            QThread::msleep(5 + random.bounded(120));
            writer.kill();
            QVERIFY(writer.waitForFinished());
            QVERIFY2(writer.exitStatus() == QProcess::CrashExit,
                     writer.readAllStandardError().constData());
            ++kills;

            BookFiles::clear();
            for (int chapter = 1; chapter <= crash::Chapters; ++chapter) {
                const QString notes = ChapterSection::Read(path, chapter);
                const bool first = notes == crash::notesText(chapter, 0);
                QVERIFY2(first || notes == crash::notesText(chapter, 1),
                         qPrintable(QStringLiteral("chapter %1 after kill %2: %3 characters")
                                        .arg(chapter)
                                        .arg(kills)
                                        .arg(notes.size())));
                changed = changed || !first;
            }
        }
        QVERIFY(kills >= 10);
        QVERIFY2(changed, "the writer never finished a save before it was killed");

        // The notes' temporary file is removed at the next start once it is a minute old.
        const QString temporary = path + QStringLiteral(".temp");
        QFile(temporary).open(QIODevice::WriteOnly);
        platform::RemoveLeftoverTemporaryFiles(dir.path() + QStringLiteral("/notes/oldtest"));
        QVERIFY(QFile::exists(temporary));
        QFile old(temporary);
        QVERIFY(old.open(QIODevice::ReadWrite));
        QVERIFY(old.setFileTime(QDateTime::currentDateTime().addSecs(-120),
                                QFileDevice::FileModificationTime));
        old.close();
        platform::RemoveLeftoverTemporaryFiles(dir.path() + QStringLiteral("/notes/oldtest"));
        QVERIFY(!QFile::exists(temporary));
    }

    void killedWhileSavingAFile()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("bookmarks.dat"));
        QCOMPARE(platform::WriteFileAtomically(path, crash::fileBytes(0)), QString());
        QRandomGenerator random(QRandomGenerator::global()->generate());
        qint64 lastWriter = 0;
        for (int kill = 0; kill < 20; ++kill) {
            QProcess writer;
            writer.start(QStringLiteral(QS_NOTES_WRITER), {QStringLiteral("--file"), path});
            QVERIFY(writer.waitForStarted());
            lastWriter = writer.processId();
            QThread::msleep(5 + random.bounded(60));
            writer.kill();
            QVERIFY(writer.waitForFinished());
            QVERIFY2(writer.exitStatus() == QProcess::CrashExit,
                     writer.readAllStandardError().constData());
            const std::optional<QByteArray> bytes = platform::ReadFileBytes(path);
            QVERIFY(bytes && (*bytes == crash::fileBytes(0) || *bytes == crash::fileBytes(1)));
        }
        // What the killed writers left, and a file as one of them would leave it, go at the next
        // save; another file's temporary file stays.
        QFile(path + QStringLiteral(".%1.temp").arg(lastWriter)).open(QIODevice::WriteOnly);
        QFile(dir.filePath(QStringLiteral("window.ini.%1.temp").arg(lastWriter)))
            .open(QIODevice::WriteOnly);
        QCOMPARE(platform::WriteFileAtomically(path, crash::fileBytes(1)), QString());
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files),
                 (QStringList{QStringLiteral("bookmarks.dat"),
                              QStringLiteral("window.ini.%1.temp").arg(lastWriter)}));
        // At the next start.
        platform::RemoveLeftoverTemporaryFiles(dir.path());
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files),
                 QStringList{QStringLiteral("bookmarks.dat")});
    }
};

QTEST_GUILESS_MAIN(TestNotesCrash)
#include "tst_notescrash.moc"
