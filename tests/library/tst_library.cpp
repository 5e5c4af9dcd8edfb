// What the reference windows share: the table of optional data files with its missing-file
// message, and the one-window-per-tool rule of the main window.
#include "../support/TranslationFixture.h"
#include "library/DataFiles.h"
#include "library/ToolWindowSlot.h"
#include "platform/MsgBoxAnswerer.h"
#include "settings/ProgramSettings.h"

#include <QLabel>
#include <QTemporaryDir>
#include <QTest>

class TestLibrary : public QObject
{
    Q_OBJECT

private slots:
    void dataFilesFoundWhateverTheirCase()
    {
        QTemporaryDir dir;
        ProgramSettings::instance().setProgramFolder(dir.path());
        fixture::writeFile(dir.filePath(QStringLiteral("tvc/oldtest/GENESIS.dat")),
                           "CHAPTER 1\r\n");
        fixture::writeFile(dir.filePath(QStringLiteral("STRONG/Hebrew.DAT")), "x\r\n");
        QVERIFY(DataFiles::Exists(DataFiles::File::Commentary));
        QVERIFY(DataFiles::Exists(DataFiles::File::StrongHebrew));
        QVERIFY(!DataFiles::Exists(DataFiles::File::StrongGreek));
    }

    void missingFileMessage()
    {
        platform::MsgBoxAnswerer answers;
        DataFiles::ReportMissing(QStringLiteral("\"names.dat\""));
        QCOMPARE(answers.prompts(),
                 QStringList{QStringLiteral("\"names.dat\" is missing.  Feature will be "
                                            "disabled.\r\nReinstall the program to restore it")});
        QVERIFY(answers.last().buttons & vb::vbCritical);
    }

    void oneWindowPerTool()
    {
        QWidget owner;
        ToolWindowSlot<QLabel> slot;
        int made = 0;
        const auto make = [&] {
            ++made;
            auto *window = new QLabel(QStringLiteral("tool"), &owner);
            window->setAttribute(Qt::WA_DeleteOnClose);
            return window;
        };
        QLabel *first = slot.open(make);
        QVERIFY(first->isWindow());
        QVERIFY(first->isVisible());
        first->showMinimized();
        QCOMPARE(slot.open(make), first);
        QCOMPARE(made, 1);
        QVERIFY(!first->isMinimized());
        // Closed and gone: the next request makes a new one.
        first->close();
        QTest::qWait(0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!slot.window());
        QVERIFY(slot.open(make));
        QCOMPARE(made, 2);
    }
};

QTEST_MAIN(TestLibrary)
#include "tst_library.moc"
