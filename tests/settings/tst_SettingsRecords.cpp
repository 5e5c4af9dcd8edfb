#include "../support/SettingsBytes.h"
#include "../support/TranslationFixture.h"
#include "platform/WinQColor.h"
#include "settings/SettingsRecords.h"

#include <QTemporaryDir>
#include <QTest>

using namespace fixture;

class tst_SettingsRecords : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

    QString fileWith(const QString &name, const QByteArray &bytes)
    {
        writeFile(m_dir.filePath(name), bytes);
        return m_dir.filePath(name);
    }

private slots:
    void displayRoundTripsByteForByte()
    {
        // A file with a tail beyond the record: writing record 1 keeps it.
        const QByteArray original =
            styleBytes(0x00F0FAFF, 0x00202020, "Arial", 10, 0, 0) +
            styleBytes(qint32(0x80000005), qint32(0x80000008), "Times New Roman  \xe9", 13, 0, -1) +
            styleBytes(0x00C0CDDC, 0x00800000, "", 12, -1, 0) + le(0x0080FFFF) + "tail";
        QCOMPARE(original.size(), DisplaySettings::RecordLength + 4);
        const QString path = fileWith(QStringLiteral("display.cfg"), original);

        DisplaySettings display;
        QVERIFY(display.read(path));
        QCOMPARE(display.navigation.BackColor, 0x00F0FAFF);
        QCOMPARE(display.passage.ForeColor, qint32(0x80000008));
        QCOMPARE(display.passage.FontName,
                 TextStyle::FixedFontName(QStringLiteral("Times New Roman  \u00e9")));
        QCOMPARE(display.passage.FontSize, 13);
        QCOMPARE(display.passage.FontItalic, qint16(-1));
        QCOMPARE(display.title.FontBold, qint16(-1));
        QCOMPARE(display.RightClickColor, 0x0080FFFF);

        QVERIFY(display.write(path));
        QCOMPARE(readFile(path), original);
    }

    void generalRoundTripsByteForByte()
    {
        const QByteArray original("\xFF\xFF\xF4\x01", 4);
        const QString path = fileWith(QStringLiteral("general.cfg"), original);
        GeneralSettings general;
        QVERIFY(general.read(path));
        QCOMPARE(general.lineBreaks, qint16(-1));
        QCOMPARE(general.maxSearchResults, qint16(500));
        general.maxSearchResults = -2;
        QVERIFY(general.write(path));
        QCOMPARE(readFile(path), QByteArray("\xFF\xFF\xFE\xFF", 4));
    }

    void missingOrShortFilesGiveDefaults_data()
    {
        QTest::addColumn<bool>("exists");
        QTest::addColumn<int>("size");
        QTest::newRow("missing") << false << 0;
        QTest::newRow("empty") << true << 0;
        QTest::newRow("one byte short") << true << -1;
    }

    void missingOrShortFilesGiveDefaults()
    {
        QFETCH(bool, exists);
        QFETCH(int, size);
        const QString displayPath = m_dir.filePath(QStringLiteral("short-display.cfg"));
        const QString generalPath = m_dir.filePath(QStringLiteral("short-general.cfg"));
        QFile::remove(displayPath);
        QFile::remove(generalPath);
        if (exists) {
            fileWith(QStringLiteral("short-display.cfg"),
                     QByteArray(size < 0 ? DisplaySettings::RecordLength + size : size, '\x7f'));
            fileWith(QStringLiteral("short-general.cfg"),
                     QByteArray(size < 0 ? GeneralSettings::RecordLength + size : size, '\x7f'));
        }
        DisplaySettings display;
        display.RightClickColor = 1;
        QVERIFY(!display.read(displayPath));
        QCOMPARE(display.toBytes(), DisplaySettings::Defaults().toBytes());
        QCOMPARE(display.toBytes().size(), DisplaySettings::RecordLength);
        GeneralSettings general;
        general.maxSearchResults = 7;
        QVERIFY(!general.read(generalPath));
        QCOMPARE(general.toBytes(), GeneralSettings::Defaults().toBytes());
    }

    void windowsColors_data()
    {
        QTest::addColumn<qint32>("value");
        QTest::addColumn<QColor>("color");
        QTest::newRow("red") << qint32(0x000000FF) << QColor(255, 0, 0);
        QTest::newRow("blue") << qint32(0x00FF0000) << QColor(0, 0, 255);
        QTest::newRow("mixed") << qint32(0x00030201) << QColor(1, 2, 3);
        QTest::newRow("window") << qint32(0x80000005) << QColor(255, 255, 255);
        QTest::newRow("window text") << qint32(0x80000008) << QColor(0, 0, 0);
        QTest::newRow("highlight") << qint32(0x8000000D) << QColor(0, 120, 215);
        QTest::newRow("button face") << qint32(0x8000000F) << QColor(240, 240, 240);
        QTest::newRow("tooltip") << qint32(0x80000018) << QColor(255, 255, 225);
        QTest::newRow("menu bar") << qint32(0x8000001E) << QColor(240, 240, 240);
        QTest::newRow("unknown system colour") << qint32(0x8000001F) << QColor(0, 0, 0);
    }

    void windowsColors()
    {
        QFETCH(qint32, value);
        QFETCH(QColor, color);
        QCOMPARE(platform::WindowsColorToQColor(value), color);
        if (value >= 0)
            QCOMPARE(platform::QColorToWindowsColor(color), value);
    }
};

QTEST_GUILESS_MAIN(tst_SettingsRecords)
#include "tst_SettingsRecords.moc"
