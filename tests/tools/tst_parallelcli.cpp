// "quillstone-cli parallel" as scripts read it: its exact lines and its exit statuses.
#include "../support/CliRun.h"
#include "../support/TranslationFixture.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace fixture;

class TestParallelCli : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    using Run = support::CliRun;

    Run cli(const QStringList &args)
    {
        return support::RunCli(QStringLiteral(QS_CLI), m_dir.path(),
                               QStringList{QStringLiteral("parallel")} + args);
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        makeTranslation(
            m_dir.path(), QStringLiteral("KJV"),
            {{QStringLiteral("Psalms"),
              false,
              {"CHAPTER 1", "1 Blessed [is] the man", "2 But his delight", "CHAPTER 2",
               "1 Why do the heathen rage", "2 The kings{H4428} of the earth", "3 Let us break"}}});
        // Its chapter 1 is the KJV's 1:1 and 2:1, its verse 2:1 the KJV's 2:2-3; 1:2 it lacks.
        const QString other =
            makeTranslation(m_dir.path(), QStringLiteral("OTHER"),
                            {{QStringLiteral("Salmos"),
                              false,
                              {"CHAPTER 1", "1 Bienaventurado el varón", "3 Por qué se amotinan",
                               "CHAPTER 2", "1 Los reyes de la tierra"}}});
        writeFile(
            other + QStringLiteral("/versification.dat"),
            crlf({QStringLiteral("Other"), QStringLiteral("BOOKS Ps"),
                  QStringLiteral("TOKJV Ps.1.3 Ps.2.1"),
                  QStringLiteral("TOKJV Ps.2.1 Ps.2.2-Ps.2.3"),
                  QStringLiteral("FROMKJV Ps.2.1 Ps.1.3"), QStringLiteral("FROMKJV Ps.2.2 Ps.2.1"),
                  QStringLiteral("FROMKJV Ps.2.3 Ps.2.1")}));
    }

    void printsOneLineARow()
    {
        Run r = cli({QStringLiteral("--translations"), QStringLiteral("KJV,OTHER"),
                     QStringLiteral("Psalm 1-2")});
        QCOMPARE(r.err, QByteArray());
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out,
                 QByteArray("KJV\tOTHER\n"
                            "PSALMS 1:1\tBlessed [is] the man\tSALMOS 1:1\tBienaventurado el "
                            "varón\n"
                            "PSALMS 1:2\tBut his delight\t\t\n"
                            "PSALMS 2:1\tWhy do the heathen rage\tSALMOS 1:3\tPor qué se "
                            "amotinan\n"
                            "PSALMS 2:2-3\tThe kings{H4428} of the earth Let us break\t"
                            "SALMOS 2:1\tLos reyes de la tierra\n"));
        // Read in the first translation's numbering, by its own book names or the English ones.
        r = cli({QStringLiteral("--translations"), QStringLiteral("OTHER,KJV"),
                 QStringLiteral("Psalm 1:3")});
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out,
                 QByteArray("OTHER\tKJV\n"
                            "SALMOS 1:3\tPor qué se amotinan\tPSALMS 2:1\tWhy do the heathen "
                            "rage\n"));
    }

    void refusesBadRequests_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("message");
        QTest::newRow("one translation") << QStringList{"--translations", "KJV", "Ps 1"} << 64
                                         << QByteArray("two to four translations");
        QTest::newRow("five") << QStringList{"--translations", "KJV,KJV,KJV,KJV,KJV", "Ps 1"} << 64
                              << QByteArray("two to four translations");
        QTest::newRow("no reference") << QStringList{"--translations", "KJV,OTHER"} << 64
                                      << QByteArray("usage: quillstone-cli parallel");
        QTest::newRow("unknown translation") << QStringList{"--translations", "KJV,NONE", "Ps 1"}
                                             << 66 << QByteArray("No translation \"NONE\"");
        QTest::newRow("unknown book") << QStringList{"--translations", "KJV,OTHER", "Hezekiah 1"}
                                      << 2 << QByteArray("No book of this translation matches");
        QTest::newRow("no such verse") << QStringList{"--translations", "KJV,OTHER", "Ps 2:9"} << 1
                                       << QByteArray("There is no PSALMS 2:9 in this translation.");
    }
    void refusesBadRequests()
    {
        QFETCH(QStringList, args);
        QFETCH(int, status);
        QFETCH(QByteArray, message);
        const Run r = cli(args);
        QCOMPARE(r.status, status);
        QVERIFY2(r.err.contains(message), r.err.constData());
        QCOMPARE(r.out, QByteArray());
    }
};

QTEST_GUILESS_MAIN(TestParallelCli)
#include "tst_parallelcli.moc"
