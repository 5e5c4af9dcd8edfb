#include "../support/TranslationFixture.h"
#include "platform/MsgBox.h"
#include "settings/clsIni.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

namespace {

// A settings file as Windows writes it, with the hand edits users make.
const QByteArray WindowsIni = "; Quillstone settings\r\n"
                              "[]\r\n"
                              "rememberwindowsetting=1\r\n"
                              "\r\n"
                              "[Load]\r\n"
                              "Version = KJV\r\n"
                              "AutoLoad=1\r\n"
                              "\r\n"
                              "[main]\r\n"
                              "windowstate=0\r\n"
                              "Left=300\r\n"
                              "a line without an equals sign\r\n"
                              "; split0=not a key\r\n"
                              "\r\n"
                              "[Strong]\r\n"
                              "tab=2\r\n";

QByteArray replaced(QByteArray text, const QByteArray &from, const QByteArray &to)
{
    return text.replace(from, to);
}

} // namespace

class tst_clsIni : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_path;

    void writeFile(const QByteArray &bytes) { fixture::writeFile(m_path, bytes); }

private slots:
    void init()
    {
        m_path = m_dir.filePath(QStringLiteral("window.ini"));
        QFile::remove(m_path);
    }

    void writesChangeOnlyTheirLine_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QString>("section");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QByteArray>("after");

        // clang-format off

        QTest::newRow("replace keeps the key's spelling")
            << WindowsIni << "load" << "version" << "WEB"
            << replaced(WindowsIni, "Version = KJV", "Version=WEB");
        QTest::newRow("empty section")
            << WindowsIni << "" << "REMEMBERWINDOWSETTING" << "0"
            << replaced(WindowsIni, "rememberwindowsetting=1", "rememberwindowsetting=0");
        QTest::newRow("new key after the section's last key")
            << WindowsIni << "Main" << "split0" << "2400"
            << replaced(WindowsIni, "Left=300\r\n", "Left=300\r\nsplit0=2400\r\n");
        QTest::newRow("new section at the end")
            << WindowsIni << "verseofday" << "show" << "1"
            << WindowsIni + "[verseofday]\r\nshow=1\r\n";
        QTest::newRow("missing file") << QByteArray() << "load" << "version" << "KJV"
                                      << QByteArray("[load]\r\nversion=KJV\r\n");
        QTest::newRow("no final line break") << QByteArray("[a]\r\nx=1") << "a" << "y" << "2"
                                             << QByteArray("[a]\r\nx=1\r\ny=2\r\n");
        QTest::newRow("section without keys")
            << QByteArray("[a]\r\n\r\n[b]\r\n") << "a" << "k" << "v"
            << QByteArray("[a]\r\nk=v\r\n\r\n[b]\r\n");
        QTest::newRow("first of duplicate sections")
            << QByteArray("[a]\r\nx=1\r\n[A]\r\ny=2\r\n") << "a" << "y" << "3"
            << QByteArray("[a]\r\nx=1\r\ny=3\r\n[A]\r\ny=2\r\n");
        QTest::newRow("LF lines stay LF") << QByteArray("[a]\nx=1\n\n[b]\nz=3\n") << "a" << "x"
                                          << "5" << QByteArray("[a]\nx=5\n\n[b]\nz=3\n");
        QTest::newRow("Windows-1252 stays single-byte")
            << QByteArray("[a]\r\nname=Caf\xe9\r\n") << "a" << "x" << "\u00e9"
            << QByteArray("[a]\r\nname=Caf\xe9\r\nx=\xe9\r\n");
        QTest::newRow("single-byte text that would read as UTF-8 is written as UTF-8")
            << QByteArray("[a]\r\nx=\xff\r\ny=\xc3\xa9\r\n") << "a" << "x" << "1"
            << QByteArray("[a]\r\nx=1\r\ny=\xc3\x83\xc2\xa9\r\n");
        QTest::newRow("UTF-8 mark kept") << QByteArray("\xEF\xBB\xBF[a]\r\nx=1\r\n") << "a"
                                         << "x" << "2" << QByteArray("\xEF\xBB\xBF[a]\r\nx=2\r\n");
        QTest::newRow("line break in a value")
            << QByteArray("[a]\r\n") << "a" << "x" << "one\r\ntwo"
            << QByteArray("[a]\r\nx=one  two\r\n");
        // clang-format on
    }

    void writesChangeOnlyTheirLine()
    {
        QFETCH(QByteArray, before);
        QFETCH(QString, section);
        QFETCH(QString, key);
        QFETCH(QString, value);
        QFETCH(QByteArray, after);
        if (!before.isEmpty())
            writeFile(before);

        clsIni ini;
        QCOMPARE(ini.Create(m_path), !before.isEmpty());
        ini.setText(section, key, value);
        QCOMPARE(fixture::readFile(m_path), after);
    }

    void reads_data()
    {
        QTest::addColumn<QString>("section");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("data");

        // clang-format off

        QTest::newRow("case-blind") << "LOAD" << "VERSION" << "KJV" << 0;
        QTest::newRow("quotes removed") << "load" << "folder" << "King James" << 0;
        QTest::newRow("first key wins") << "load" << "autoload" << "1" << 1;
        QTest::newRow("negative") << "load" << "left" << "-120" << -120;
        QTest::newRow("16-bit narrowing") << "load" << "big" << "70000" << 4464;
        QTest::newRow("leading digits") << "load" << "mixed" << "12abc" << 12;
        QTest::newRow("empty value") << "load" << "empty" << "" << -1;
        QTest::newRow("second duplicate section unseen") << "load" << "onlysecond" << "" << -1;
        QTest::newRow("empty section name") << "" << "rememberwindowsetting" << "1" << 1;
        QTest::newRow("lines before any section") << "" << "before any section" << "" << -1;
        QTest::newRow("missing key") << "load" << "nosuch" << "" << -1;
        QTest::newRow("missing section") << "nosuch" << "version" << "" << -1;
        QTest::newRow("254 characters") << "load" << "long" << QString(254, u'x') << 0;
        // clang-format on
    }

    void reads()
    {
        QFETCH(QString, section);
        QFETCH(QString, key);
        QFETCH(QString, text);
        QFETCH(int, data);
        const QByteArray longLine = "long=" + QByteArray(300, 'x') + "\r\n";
        writeFile("before any section=9\r\n"
                  "[ load ]\r\n"
                  "  Version =  KJV  \r\n"
                  "folder=\"King James\"\r\n"
                  "autoload=1\r\n"
                  "Left=-120\r\n"
                  "big=70000\r\n"
                  "mixed=12abc\r\n"
                  "empty=\r\n"
                  "autoload=0\r\n" +
                  longLine +
                  "[LOAD]\r\n"
                  "onlysecond=5\r\n"
                  "[]\r\n"
                  "rememberwindowsetting=1\r\n");
        clsIni ini;
        QVERIFY(ini.Create(m_path));
        QCOMPARE(ini.Text(section, key), text);
        QCOMPARE(ini.Data(section, key), data);
    }

    void missingFileReadsDefaultsAndEditsAreSeen()
    {
        clsIni ini;
        QVERIFY(!ini.Create(m_path));
        QCOMPARE(ini.Data(QStringLiteral("main"), QStringLiteral("windowstate")), -1);
        QCOMPARE(ini.Text(QStringLiteral("load"), QStringLiteral("version")), QString());
        QVERIFY(!QFile::exists(m_path));

        ini.setData(QStringLiteral("main"), QStringLiteral("left"), -8);
        QCOMPARE(ini.Data(QStringLiteral("Main"), QStringLiteral("Left")), -8);
        writeFile("[main]\r\nleft=77\r\n");
        QCOMPARE(ini.Data(QStringLiteral("main"), QStringLiteral("left")), 77);
    }

    void failedWriteKeepsFileAndTellsOnce()
    {
        QStringList messages;
        const platform::MsgBoxHandler previous =
            platform::setMsgBoxHandler([&messages](const QString &prompt, int, const QString &) {
                messages << prompt;
                return int(vb::vbOK);
            });
        // A folder where the file should be: the write cannot replace it.
        QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("window.ini")));
        clsIni ini;
        ini.Create(m_path);
        ini.setData(QStringLiteral("main"), QStringLiteral("left"), 1);
        ini.setData(QStringLiteral("main"), QStringLiteral("top"), 2);
        platform::setMsgBoxHandler(previous);
        QVERIFY(QDir(m_dir.path()).rmdir(QStringLiteral("window.ini")));

        QCOMPARE(messages.size(), 1);
        QVERIFY(messages.first().contains(m_path));
    }
};

QTEST_GUILESS_MAIN(tst_clsIni)
#include "tst_clsIni.moc"
