// The installed modules as their .conf files describe them, read without the SWORD library.
#include "../support/TranslationFixture.h"
#include "tools/modules/ModuleConfig.h"

#include <QTemporaryDir>
#include <QTest>

class TestModuleConfig : public QObject
{
    Q_OBJECT

private slots:
    void describes_data()
    {
        QTest::addColumn<QString>("conf");
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("versification");
        QTest::addColumn<bool>("locked");
        QTest::addColumn<QString>("about");

        QTest::newRow("Bible, KJV numbering by default") << "[KJV]\nModDrv=zText\n"
                                                         << "Bible"
                                                         << "KJV" << false << "";
        QTest::newRow("Bible in its own numbering, CR LF")
            << "[SYN]\r\nModDrv=RawText4\r\nVersification=Synodal\r\n"
            << "Bible"
            << "Synodal" << false << "";
        QTest::newRow("commentary") << "[MHC]\nModDrv=zCom4\n"
                                    << "Commentary"
                                    << "KJV" << false << "";
        QTest::newRow("lexicon, read by key") << "[Nave]\nModDrv=RawLD4\n"
                                              << "Lexicon / Dictionary"
                                              << "" << false << "";
        QTest::newRow("own category") << "[Day]\nModDrv=RawLD\nCategory=Daily Devotional\n"
                                      << "Daily Devotional"
                                      << "" << false << "";
        QTest::newRow("enciphered without a key") << "[Lk]\nModDrv=zText\nCipherKey=\n"
                                                  << "Bible"
                                                  << "KJV" << true << "";
        QTest::newRow("enciphered with a key") << "[Ok]\nModDrv=zText\nCipherKey=abc\n"
                                               << "Bible"
                                               << "KJV" << false << "";
        QTest::newRow("long value over lines, first of a repeated key kept")
            << "[A]\nModDrv=zText\nAbout=one \\\n  two\\\nthree\nAbout=later\n"
            << "Bible"
            << "KJV" << false << "one two three";
    }
    void describes()
    {
        QFETCH(QString, conf);
        const std::optional<ModuleConfig> module = ModuleConfig::Parse(conf);
        QVERIFY(module);
        QTEST(module->Type(), "type");
        QTEST(module->Versification(), "versification");
        QTEST(module->IsLocked(), "locked");
        QTEST(module->Value(QStringLiteral("About")), "about");
    }

    // The user's library comes first; files that hold settings, not a module, are no module.
    void findsInstalledModules()
    {
        QTemporaryDir dir;
        const auto write = [&](const QString &library, const QString &file,
                               const QByteArray &text) {
            fixture::writeFile(dir.filePath(library + QStringLiteral("/mods.d/") + file), text);
        };
        write(QStringLiteral("home"), QStringLiteral("kjv.conf"),
              "[KJV]\nModDrv=zText\nDescription=Mine\n");
        write(QStringLiteral("system"), QStringLiteral("kjv.conf"),
              "[KJV]\nModDrv=zText\nDescription=System\n");
        write(QStringLiteral("system"), QStringLiteral("web.conf"), "[WEB]\nModDrv=zText\n");
        write(QStringLiteral("system"), QStringLiteral("globals.conf"), "[Globals]\nOption=On\n");
        const QStringList libraries = {dir.filePath(QStringLiteral("home")),
                                       dir.filePath(QStringLiteral("system"))};
        const QList<ModuleConfig> modules = InstalledModules(libraries);
        QCOMPARE(modules.size(), 2);
        QCOMPARE(modules.first().Value(QStringLiteral("Description")), QStringLiteral("Mine"));
        QCOMPARE(FindModule(libraries, QStringLiteral("web"))->Name(), QStringLiteral("WEB"));
        QVERIFY(!FindModule(libraries, QStringLiteral("Globals")));
    }
};

QTEST_GUILESS_MAIN(TestModuleConfig)
#include "tst_moduleconfig.moc"
