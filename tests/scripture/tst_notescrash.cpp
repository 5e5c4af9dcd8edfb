// Saving notes is killed at random moments: every chapter's notes must still be there, each one
// of the versions ever saved, never missing or half written.
#include "NotesCrashTexts.h"
#include "scripture/BookFiles.h"
#include "scripture/ChapterSection.h"

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
    }
};

QTEST_GUILESS_MAIN(TestNotesCrash)
#include "tst_notescrash.moc"
