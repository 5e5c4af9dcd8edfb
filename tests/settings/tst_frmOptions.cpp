// "Bible Options" driven through its controls: the preview follows the swatches and fonts, Discard
// writes nothing, and Save writes the records and keys in their order.
#include "../support/Controls.h"
#include "../support/HookGuards.h"
#include "../support/TranslationFixture.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/WinQColor.h"
#include "settings/ProgramSettings.h"
#include "settings/frmOptions.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using fixture::readFile;
using support::control;

namespace {

QColor background(QLabel *label)
{
    return label->palette().color(QPalette::Window);
}

} // namespace

class TestOptions : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    const QList<InstalledTranslation> m_translations = {
        {QStringLiteral("KJV"), QStringLiteral("King James")},
        {QStringLiteral("WEB"), QStringLiteral("World English")}};

    QString file(const char *name) const { return m_dir.filePath(QLatin1String(name)); }

private slots:
    void init()
    {
        ProgramSettings &settings = ProgramSettings::instance();
        settings.setProgramFolder(m_dir.path());
        fixture::writeFile(
            file("window.ini"),
            "[]\r\nrememberwindowsetting=1\r\n[load]\r\nautoload=0\r\nversion=KJV\r\n");
        settings.general = GeneralSettings::Defaults();
        settings.display = DisplaySettings::Defaults();
        settings.rememberWindows = true;
        QVERIFY(settings.writeGeneralSettings());
        QVERIFY(settings.writeDisplaySettings());
    }

    void opensOnTheSettingsInUse()
    {
        frmOptions options(m_translations, QStringLiteral("web"));
        QVERIFY(control<QCheckBox>(&options, "chkRememberWindowSetting")->isChecked());
        QVERIFY(control<QCheckBox>(&options, "chkLineBreaks")->isChecked());
        QVERIFY(!control<QCheckBox>(&options, "chkAutoLoad")->isChecked());
        QCOMPARE(control<QLineEdit>(&options, "txtSearchResults")->text(), QStringLiteral("500"));
        QCOMPARE(control<QListWidget>(&options, "lstVersions")->currentRow(), 1);
        // The title's system colours show as the desktop's button face.
        QCOMPARE(background(control<QLabel>(&options, "lblTitBack")), QColor(240, 240, 240));
        QCOMPARE(background(control<QLabel>(&options, "lblTitle")), QColor(240, 240, 240));
    }

    void previewFollowsSwatchesAndFonts()
    {
        frmOptions options(m_translations, QStringLiteral("KJV"));
        auto *swatch = control<QLabel>(&options, "lblPassBack");
        auto *passage = control<QLabel>(&options, "lblPassage");
        const QColor before = background(passage);
        {
            // Cancelled: nothing changes.
            support::ColorAnswer cancel([](clsCommonColorDialog &d) {
                d.setColor(0x0000FF);
                return false;
            });
            QTest::mouseClick(swatch, Qt::LeftButton);
            QCOMPARE(background(swatch), before);
            QCOMPARE(background(passage), before);
        }
        {
            // A click on the preview line stands for its background swatch; the dialog opens on
            // the swatch's colour.
            int seen = -1;
            support::ColorAnswer red([&](clsCommonColorDialog &d) {
                seen = d.Color();
                d.setColor(0x0000FF);
                return true;
            });
            QTest::mouseClick(passage, Qt::LeftButton);
            QCOMPARE(seen, platform::QColorToWindowsColor(before));
            QCOMPARE(background(swatch), QColor(255, 0, 0));
            QCOMPARE(background(passage), QColor(255, 0, 0));
        }
        support::FontAnswer serif([](clsCommonFontDialog &d) {
            d.setFontName(QStringLiteral("DejaVu Serif"));
            d.setFontSize(14);
            d.setFontItalic(true);
            return true;
        });
        QTest::mouseClick(control<QPushButton>(&options, "cmdNavFont"), Qt::LeftButton);
        for (const char *name : {"lblTestament", "lblBooks", "lblChapters"}) {
            const QFont font = control<QLabel>(&options, name)->font();
            QCOMPARE(font.family(), QStringLiteral("DejaVu Serif"));
            QCOMPARE(font.pointSize(), 14);
            QVERIFY(font.italic());
        }
        QVERIFY(control<QLabel>(&options, "lblPassage")->font().family() !=
                QStringLiteral("DejaVu Serif"));
    }

    void discardWritesNothing()
    {
        const QByteArray ini = readFile(file("window.ini"));
        const QByteArray display = readFile(file("display.cfg"));
        frmOptions options(m_translations, QStringLiteral("KJV"));
        support::ColorAnswer red([](clsCommonColorDialog &d) {
            d.setColor(0x0000FF);
            return true;
        });
        QTest::mouseClick(control<QLabel>(&options, "lblNavBack"), Qt::LeftButton);
        control<QCheckBox>(&options, "chkRememberWindowSetting")->setChecked(false);
        QSignalSpy saved(&options, &frmOptions::settingsSaved);
        QTest::mouseClick(control<QPushButton>(&options, "cmdDiscard"), Qt::LeftButton);
        QCOMPARE(saved.count(), 0);
        QCOMPARE(readFile(file("window.ini")), ini);
        QCOMPARE(readFile(file("display.cfg")), display);
        QVERIFY(ProgramSettings::instance().rememberWindows);
        QCOMPARE(ProgramSettings::instance().display.navigation.BackColor,
                 DisplaySettings().navigation.BackColor);
    }

    void saveWritesEverything()
    {
        frmOptions options(m_translations, QStringLiteral("KJV"));
        support::ColorAnswer green([](clsCommonColorDialog &d) {
            d.setColor(0x00FF00);
            return true;
        });
        QTest::mouseClick(control<QLabel>(&options, "lblRightClickColor"), Qt::LeftButton);
        QTest::mouseClick(control<QLabel>(&options, "lblTitFont"), Qt::LeftButton);
        control<QCheckBox>(&options, "chkLineBreaks")->setChecked(false);
        control<QCheckBox>(&options, "chkRememberWindowSetting")->setChecked(false);
        control<QCheckBox>(&options, "chkAutoLoad")->setChecked(true);
        control<QListWidget>(&options, "lstVersions")->setCurrentRow(1);
        control<QLineEdit>(&options, "txtSearchResults")->setText(QStringLiteral("250 results"));
        QSignalSpy saved(&options, &frmOptions::settingsSaved);
        QTest::mouseClick(control<QPushButton>(&options, "cmdSaveSettings"), Qt::LeftButton);
        QCOMPARE(saved.count(), 1);

        // The files hold exactly what the records write, and read back equal.
        const ProgramSettings &settings = ProgramSettings::instance();
        QCOMPARE(readFile(file("general.cfg")), settings.general.toBytes());
        QCOMPARE(readFile(file("display.cfg")), settings.display.toBytes());
        GeneralSettings general;
        QVERIFY(general.read(file("general.cfg")));
        QCOMPARE(general.lineBreaks, qint16(0));
        QCOMPARE(general.maxSearchResults, qint16(250));
        DisplaySettings display;
        QVERIFY(display.read(file("display.cfg")));
        QCOMPARE(display.RightClickColor, 0x00FF00);
        QCOMPARE(display.title.ForeColor, 0x00FF00);
        // Untouched system colours stay system colours.
        QCOMPARE(display.title.BackColor, qint32(0x8000000F));
        QCOMPARE(
            readFile(file("window.ini")),
            QByteArray("[]\r\nrememberwindowsetting=0\r\n[load]\r\nautoload=1\r\nversion=WEB\r\n"));
        QVERIFY(!settings.rememberWindows);
    }

    void maximumThatDoesNotFit()
    {
        const QByteArray general = readFile(file("general.cfg"));
        frmOptions options(m_translations, QStringLiteral("KJV"));
        control<QLineEdit>(&options, "txtSearchResults")->setText(QStringLiteral("40000"));
        platform::MsgBoxAnswerer answers;
        QTest::mouseClick(control<QPushButton>(&options, "cmdSaveSettings"), Qt::LeftButton);
        QCOMPARE(answers.prompts(), QStringList{QStringLiteral("Err #6 ocurred(Overflow)")});
        QCOMPARE(readFile(file("general.cfg")), general);
        // Text that is no number is 0.
        control<QLineEdit>(&options, "txtSearchResults")->setText(QStringLiteral("many"));
        QTest::mouseClick(control<QPushButton>(&options, "cmdSaveSettings"), Qt::LeftButton);
        QCOMPARE(ProgramSettings::instance().general.maxSearchResults, qint16(0));
    }

    void loadSelectedVersionNow()
    {
        frmOptions options(m_translations, QStringLiteral("KJV"));
        QSignalSpy load(&options, &frmOptions::loadTranslationRequested);
        control<QListWidget>(&options, "lstVersions")->setCurrentRow(1);
        QTest::mouseClick(control<QPushButton>(&options, "cmdLoadVersion"), Qt::LeftButton);
        QCOMPARE(load.count(), 1);
        QCOMPARE(load.first().first().toString(), QStringLiteral("WEB"));
    }
};

QTEST_MAIN(TestOptions)
#include "tst_frmOptions.moc"
