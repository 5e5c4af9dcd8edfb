// "quillstone-cli search --mode query": its output lines, the CSV form, several translations at
// once, the choice of books and the limit, and a malformed query refused with status 64.
#include "../support/TranslationFixture.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace fixture;

class TestCliQuery : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    struct Run
    {
        int status = -1;
        QString out;
        QString err;
    };

    Run cli(QStringList args)
    {
        QProcess p;
        args.prepend(m_dir.path());
        args.prepend(QStringLiteral("--dir"));
        p.start(QStringLiteral(QS_CLI), args);
        p.waitForFinished(30000);
        return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()),
                QString::fromUtf8(p.readAllStandardError())};
    }

    static QStringList query(const QStringList &options, const QString &text)
    {
        return QStringList{QStringLiteral("search"), QStringLiteral("--mode"),
                           QStringLiteral("query")} +
               options + QStringList{text};
    }

private slots:
    void initTestCase()
    {
        makeTranslation(
            m_dir.path(), QStringLiteral("AAA"),
            {{QStringLiteral("Genesis"),
              false,
              {"CHAPTER 1", "1 God{H430} [is] good", "2 He said, \"Let there be light\""}},
             {QStringLiteral("John"), true, {"CHAPTER 1", "1 God is love{G26}"}}});
        makeTranslation(m_dir.path(), QStringLiteral("BBB"),
                        {{QStringLiteral("Genesis"), false, {"CHAPTER 1", "1 Dios es bueno"}},
                         {QStringLiteral("John"), true, {"CHAPTER 1", "1 Dios es amor"}}});
        writeFile(m_dir.path() + QStringLiteral("/window.ini"), "[load]\r\nversion=AAA\r\n");
    }

    void textOutput()
    {
        Run r = cli(query({}, QStringLiteral("god")));
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out,
                 QStringLiteral("GENESIS 1:1\tGod is good\nJOHN 1:1\tGod is love\n2 verses\n"));
        r = cli(query({QStringLiteral("--translations"), QStringLiteral("AAA,BBB")},
                      QStringLiteral("god OR dios")));
        QCOMPARE(r.out, QStringLiteral("AAA\tGENESIS 1:1\tGod is good\nBBB\tGENESIS 1:1\tDios es "
                                       "bueno\nAAA\tJOHN 1:1\tGod is love\nBBB\tJOHN 1:1\tDios es "
                                       "amor\n4 verses in 2 translations\n"));
        r = cli(query({QStringLiteral("--books"), QStringLiteral("2"), QStringLiteral("--limit"),
                       QStringLiteral("0")},
                      QStringLiteral("H430 OR G26")));
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, QStringLiteral("0 verses\n"));
        QVERIFY2(r.err.contains(QStringLiteral("first 0 of 1")), qPrintable(r.err));
        // A number looked for where there are none is not a silent empty list.
        r = cli(query({QStringLiteral("--translations"), QStringLiteral("BBB")},
                      QStringLiteral("G26")));
        QCOMPARE(r.out, QStringLiteral("0 verses\n"));
        QVERIFY2(r.err.contains(QStringLiteral("BBB carries no Strong's numbers")),
                 qPrintable(r.err));
    }

    void csv()
    {
        const Run r = cli(query({QStringLiteral("--format"), QStringLiteral("csv")},
                                QStringLiteral("light OR love")));
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, QStringLiteral("translation,reference,book,chapter,verse,text\r\n"
                                       "AAA,GENESIS 1:2,Genesis,1,2,\"He said, \"\"Let there be "
                                       "light\"\"\"\r\n"
                                       "AAA,JOHN 1:1,John,1,1,God is love\r\n"));
    }

    void refused()
    {
        Run r = cli(query({}, QStringLiteral("(god OR love")));
        QCOMPARE(r.status, 64);
        QVERIFY(r.out.isEmpty());
        QVERIFY2(r.err.contains(QStringLiteral("parenthesis at character 1 is never closed")),
                 qPrintable(r.err));
        r = cli(query({}, QStringLiteral("god /[/")));
        QCOMPARE(r.status, 64);
        QVERIFY2(r.err.contains(QStringLiteral("character 5")), qPrintable(r.err));
        r = cli(query({QStringLiteral("--translations"), QStringLiteral("AAA,NONE")},
                      QStringLiteral("god")));
        QCOMPARE(r.status, 66);
        r = cli(query({QStringLiteral("--format"), QStringLiteral("xml")}, QStringLiteral("god")));
        QCOMPARE(r.status, 64);
        QVERIFY(r.err.contains(QStringLiteral("usage")));
    }
};

QTEST_GUILESS_MAIN(TestCliQuery)
#include "tst_cliquery.moc"
