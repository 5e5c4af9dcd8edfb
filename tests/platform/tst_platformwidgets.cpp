// Message boxes, the common dialogs' test answers, shell open and edit commands.
#include "../support/HookGuards.h"
#include "platform/CSendMessage.h"
#include "platform/CShell.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/QtMsgBox.h"
#include "platform/clsCommonColorDialog.h"
#include "platform/clsCommonFontDialog.h"
#include "platform/clsCommonOpenDialog.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <QTimer>

using namespace vb;

class TestPlatformWidgets : public QObject
{
    Q_OBJECT

private slots:
    void answererRecordsAndRestores()
    {
        platform::MsgBoxAnswerer outer({vbNo});
        QCOMPARE(platform::MsgBox(QStringLiteral("Save?"), vbYesNo | vbExclamation), int(vbNo));
        QCOMPARE(platform::MsgBox(QStringLiteral("Again?"), vbYesNo, QStringLiteral("Mine")),
                 int(vbYes));
        {
            platform::MsgBoxAnswerer inner;
            inner.enqueue(vbCancel);
            QCOMPARE(platform::MsgBox(QStringLiteral("Inner"), vbOKCancel), int(vbCancel));
            QCOMPARE(platform::MsgBox(QStringLiteral("Inner 2"), vbOKOnly), int(vbOK));
            QCOMPARE(inner.count(), 2);
        }
        platform::MsgBox(QStringLiteral("Outer again"));
        QCOMPARE(outer.prompts(), (QStringList{QStringLiteral("Save?"), QStringLiteral("Again?"),
                                               QStringLiteral("Outer again")}));
        QCOMPARE(outer.calls().at(0).buttons, vbYesNo | vbExclamation);
        QCOMPARE(outer.calls().at(0).title, platform::AppTitle());
        QCOMPARE(outer.calls().at(1).title, QStringLiteral("Mine"));
        QCOMPARE(outer.last().prompt, QStringLiteral("Outer again"));
    }

    void widgetMsgBox_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<int>("press");
        QTest::addColumn<int>("answer");
        QTest::addColumn<int>("icon");
        QTest::addColumn<int>("buttonCount");
        QTest::newRow("critical ok") << int(vbCritical) << int(QMessageBox::Ok) << int(vbOK)
                                     << int(QMessageBox::Critical) << 1;
        QTest::newRow("question no") << (vbYesNo | vbQuestion) << int(QMessageBox::No) << int(vbNo)
                                     << int(QMessageBox::Question) << 2;
        QTest::newRow("exclamation yes") << (vbYesNoCancel | vbExclamation) << int(QMessageBox::Yes)
                                         << int(vbYes) << int(QMessageBox::Warning) << 3;
        QTest::newRow("escape cancels") << (vbYesNoCancel | vbInformation) << -1 << int(vbCancel)
                                        << int(QMessageBox::Information) << 3;
        QTest::newRow("escape on ok")
            << int(vbOKOnly) << -1 << int(vbOK) << int(QMessageBox::NoIcon) << 1;
        QTest::newRow("retry") << int(vbAbortRetryIgnore) << int(QMessageBox::Retry) << int(vbRetry)
                               << int(QMessageBox::NoIcon) << 3;
    }

    void widgetMsgBox()
    {
        QFETCH(int, style);
        QFETCH(int, press);
        QFETCH(int, answer);
        QFETCH(int, icon);
        QFETCH(int, buttonCount);
        platform::InstallWidgetMsgBox();
        QString shownText;
        QString shownTitle;
        int shownIcon = -1;
        int shownButtons = -1;
        bool titleFits = false;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (!box)
                return;
            timer.stop();
            shownText = box->text();
            shownTitle = box->windowTitle();
            shownIcon = int(box->icon());
            shownButtons = int(box->buttons().size());
            // A short message still leaves room for the whole title beside the title bar buttons.
            titleFits =
                box->width() >= box->fontMetrics().horizontalAdvance(box->windowTitle()) + 150;
            if (press < 0)
                QTest::keyClick(box, Qt::Key_Escape);
            else
                box->button(QMessageBox::StandardButton(press))->click();
        });
        timer.start(10);
        const int result = platform::MsgBox(QStringLiteral("First line\r\nSecond line"), style);
        platform::setMsgBoxHandler({});
        QCOMPARE(result, answer);
        QCOMPARE(shownText, QStringLiteral("First line\nSecond line"));
        QCOMPARE(shownTitle, platform::AppTitle());
        QCOMPARE(shownIcon, icon);
        QCOMPARE(shownButtons, buttonCount);
        QVERIFY(titleFits);
    }

    void colorDialog()
    {
        clsCommonColorDialog dialog;
        dialog.setColor(0x0000FF);

        int seen = -1;
        {
            support::ColorAnswer cancel([&](clsCommonColorDialog &d) {
                seen = d.Color();
                d.setColor(0x00FF00);
                d.setCustomColors(3, 0x123456);
                return false;
            });
            QVERIFY(!dialog.Show());
            QCOMPARE(seen, 0x0000FF);
            QCOMPARE(dialog.Color(), 0x0000FF);
            QCOMPARE(dialog.CustomColors(3), 0);
        }
        support::ColorAnswer ok([&](clsCommonColorDialog &d) {
            seen = d.CustomColors(3);
            d.setColor(0x00FF00);
            d.setCustomColors(3, 0x123456);
            return true;
        });
        QVERIFY(dialog.Show());
        QCOMPARE(dialog.Color(), 0x00FF00);
        // The custom colours of one opening are there at the next.
        QVERIFY(dialog.Show());
        QCOMPARE(seen, 0x123456);
    }

    void fontDialog()
    {
        clsCommonFontDialog dialog;
        dialog.setFontName(QStringLiteral("DejaVu Sans"));
        dialog.setFontSize(12);
        {
            support::FontAnswer cancel([](clsCommonFontDialog &d) {
                d.setFontName(QStringLiteral("DejaVu Serif"));
                d.setFontBold(true);
                return false;
            });
            QVERIFY(!dialog.Show());
            QCOMPARE(dialog.FontName(), QStringLiteral("DejaVu Sans"));
            QVERIFY(!dialog.FontBold());
        }
        support::FontAnswer ok([](clsCommonFontDialog &d) {
            d.setFontName(QStringLiteral("DejaVu Serif"));
            d.setFontSize(d.FontSize() + 2);
            return true;
        });
        QVERIFY(dialog.Show());
        QCOMPARE(dialog.FontName(), QStringLiteral("DejaVu Serif"));
        QCOMPARE(dialog.FontSize(), 14.0);
    }

    void nameFilters_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("save filter")
            << QStringLiteral(
                   "Text Files (*.txt)|*.txt|Rich Text Format (*.rtf)|*.rtf|All Files (*.*)|*.*")
            << QStringList{QStringLiteral("Text Files (*.txt)"),
                           QStringLiteral("Rich Text Format (*.rtf)"),
                           QStringLiteral("All Files (*)")};
        QTest::newRow("several patterns") << QStringLiteral("Pictures|*.bmp;*.jpg")
                                          << QStringList{QStringLiteral("Pictures (*.bmp *.jpg)")};
        QTest::newRow("pattern missing") << QStringLiteral("Text|") << QStringList();
        QTest::newRow("empty") << QString() << QStringList();
    }

    void nameFilters()
    {
        QFETCH(QString, filter);
        QFETCH(QStringList, expected);
        QCOMPARE(clsCommonOpenDialog::NameFilters(filter), expected);
    }

    void openDialog()
    {
        clsCommonOpenDialog dialog;
        dialog.setFilter(QStringLiteral("Text Files (*.txt)|*.txt|Rich Text Format (*.rtf)|*.rtf"));
        dialog.setFilterIndex(1);
        dialog.setOverWritePrompt(true);
        bool sawSave = false;
        {
            support::FileAnswer save([&](clsCommonOpenDialog &d, bool isSave) {
                sawSave = isSave;
                d.setFilename(QStringLiteral("/tmp/notes"));
                d.setFiletitle(QStringLiteral("notes"));
                d.setFilterIndex(2);
                return true;
            });
            QVERIFY(dialog.ShowSave());
            QVERIFY(sawSave);
            QCOMPARE(dialog.filename(), QStringLiteral("/tmp/notes"));
            QCOMPARE(dialog.FilterIndex(), 2);
        }
        support::FileAnswer cancel([](clsCommonOpenDialog &d, bool) {
            d.setFilename(QStringLiteral("/elsewhere"));
            return false;
        });
        QVERIFY(!dialog.ShowOpen());
        QCOMPARE(dialog.filename(), QStringLiteral("/tmp/notes"));
    }

    void shellUrl()
    {
        QTemporaryDir dir;
        QVERIFY(QDir(dir.path()).mkpath(QStringLiteral("Help")));
        QFile help(dir.filePath(QStringLiteral("Help/Bible.chm")));
        QVERIFY(help.open(QIODevice::WriteOnly));
        help.close();

        const QList<std::pair<QString, QUrl>> cases = {
            {QStringLiteral("mailto:support@quillstone.example.org"),
             QUrl(QStringLiteral("mailto:support@quillstone.example.org"))},
            {QStringLiteral("https://quillstone.example.org"),
             QUrl(QStringLiteral("https://quillstone.example.org"))},
            {QStringLiteral("www.example.org"), QUrl(QStringLiteral("http://www.example.org"))},
            {QStringLiteral("help\\bible.chm"),
             QUrl::fromLocalFile(dir.filePath(QStringLiteral("Help/Bible.chm")))},
        };
        support::ShellRecorder shellOpens;
        for (const auto &[name, url] : cases) {
            CShell shell;
            shell.setFilename(name);
            shell.setWorkingDirectory(dir.path());
            QVERIFY(shell.Execute());
            QCOMPARE(shellOpens.opened.last(), url);
        }
    }

    void editCommands()
    {
        QLineEdit edit(QStringLiteral("hello"));
        edit.selectAll();
        CSendMessage message(&edit);
        QVERIFY(message.Copy());
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("hello"));
        QVERIFY(message.Cut());
        QCOMPARE(edit.text(), QString());
        QVERIFY(message.Undo());
        QCOMPARE(edit.text(), QStringLiteral("hello"));
        edit.setCursorPosition(5);
        QVERIFY(message.Paste());
        QCOMPARE(edit.text(), QStringLiteral("hellohello"));

        QLabel label;
        message.setHwnd(&label);
        QVERIFY(!message.Copy());
        QVERIFY(!message.SizeWindow(QStringLiteral("X")));
        {
            QTextEdit gone;
            message.setHwnd(&gone);
        }
        QVERIFY(!message.Copy());
    }
};

QTEST_MAIN(TestPlatformWidgets)
#include "tst_platformwidgets.moc"
