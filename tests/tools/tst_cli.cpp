// The command-line front end as scripts use it: its output bytes, exit statuses and defaults.
#include "../support/TranslationFixture.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace fixture;

class TestCli : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    struct Run
    {
        int status = -1;
        QByteArray out;
        QByteArray err;
    };

    Run cli(const QStringList &args, const QString &dir = QString())
    {
        QProcess p;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("QUILLSTONE_DIR"), dir.isEmpty() ? m_dir.path() : dir);
        p.setProcessEnvironment(env);
        p.start(QStringLiteral(QS_CLI), args);
        p.waitForFinished(30000);
        return {p.exitCode(), p.readAllStandardOutput(), p.readAllStandardError()};
    }

private slots:
    void initTestCase()
    {
        makeTranslation(m_dir.path(), QStringLiteral("AAA"),
                        {{QStringLiteral("Genesis"), false, chapters(QStringLiteral("Genesis"), {3, 2})},
                         {QStringLiteral("John"), true, {"CHAPTER 1", "1 God [is] love{G26}", "2 light"}}},
                        QStringLiteral("First"));
        makeTranslation(m_dir.path(), QStringLiteral("BBB"),
                        {{QStringLiteral("Exodus"), false, chapters(QStringLiteral("Exodus"), {1})},
                         {QStringLiteral("Mark"), true, chapters(QStringLiteral("Mark"), {1})}},
                        QStringLiteral("Second"));
        writeFile(m_dir.path() + QStringLiteral("/window.ini"), "[load]\r\nversion=BBB\r\n");
    }

    void fetching()
    {
        Run r = cli({QStringLiteral("--translation"), QStringLiteral("AAA"), QStringLiteral("passage"), QStringLiteral("Gen 1:2-3")});
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, QByteArray("GENESIS 1 \r\n2 Text of Genesis 1:2\r\n3 Text of Genesis 1:3\r\n"));
        QVERIFY(r.err.isEmpty());

        r = cli({QStringLiteral("--translation"), QStringLiteral("AAA"), QStringLiteral("standard"), QStringLiteral("gen 2-1")});
        QCOMPARE(r.out, QByteArray("GENESIS 1-2\n"));

        r = cli({QStringLiteral("--translation"), QStringLiteral("AAA"), QStringLiteral("rtf"), QStringLiteral("John 1:1")});
        QCOMPARE(r.out, QByteArray("{\\rtf {\\colortbl ;\\red255\\green0\\blue0;}JOHN 1 \\par 1 God \\i is \\i0 love{\\super {\\fs0 '}G26}\\par }"));

        r = cli({QStringLiteral("--translation"), QStringLiteral("AAA"), QStringLiteral("passage"), QStringLiteral("Nahum 1")});
        QCOMPARE(r.status, 2);
        QVERIFY(r.out.isEmpty());
        QVERIFY(!r.err.isEmpty());

        // The translation saved in window.ini is the default; --dir overrides the environment.
        r = cli({QStringLiteral("--dir"), m_dir.path(), QStringLiteral("books")}, QStringLiteral("/nonexistent"));
        QCOMPARE(r.out, QByteArray("1\tExodus\t1\n2\tMark\t1\n"));
        r = cli({QStringLiteral("--translation"), QStringLiteral("ZZZ"), QStringLiteral("books")});
        QVERIFY(r.status != 0);
    }

    void searching()
    {
        Run r = cli({QStringLiteral("--translation"), QStringLiteral("AAA"), QStringLiteral("search"), QStringLiteral("text")});
        QCOMPARE(r.status, 0);
        QVERIFY(r.out.startsWith("Genesis :1 Text of Genesis 1:1\r\n\r\n"));
        QVERIFY(r.out.endsWith("\r\n\r\nSearch results for \"text\" (5 matches)\n"));

        r = cli({QStringLiteral("--translation"), QStringLiteral("AAA"), QStringLiteral("search"), QStringLiteral("--limit"),
                 QStringLiteral("2"), QStringLiteral("text")});
        QCOMPARE(r.out.count("Text of"), 3);
        QVERIFY(r.out.endsWith("First 2 results.\n"));
        QVERIFY(r.err.contains("There were over a 2 results for your search,"));

        r = cli({QStringLiteral("--translation"), QStringLiteral("AAA"), QStringLiteral("search"), QStringLiteral("--word"), QStringLiteral("lov")});
        QCOMPARE(r.out, QByteArray("Search results for \"lov\" (0 matches)\n"));
    }

    void notesAndCommentary()
    {
        makeTranslation(m_dir.path(), QStringLiteral("tvc"),
                        {{QStringLiteral("Genesis"), false, {"CHAPTER 1", "On Genesis 1", "CHAPTER 2", "On Genesis 2"}},
                         {QStringLiteral("John"), true, {"CHAPTER 1", "On John 1"}}});
        const QString plain = m_dir.path() + QStringLiteral("/plain.txt");
        const QString rich = m_dir.path() + QStringLiteral("/rich.rtf");
        writeFile(plain, "Notes\r\nCHAPTER 2 {caf\xc3\xa9}\r\n");
        writeFile(rich, "{\\rtf1 On love}");
        const QStringList aaa = {QStringLiteral("--translation"), QStringLiteral("AAA")};
        const auto notes = [&](const QStringList &args) { return cli(aaa + QStringList{QStringLiteral("notes")} + args); };

        Run r = notes({QStringLiteral("--set"), plain, QStringLiteral("Gen 2:5")});
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out + r.err, QByteArray());
        QCOMPARE(notes({QStringLiteral("--set"), rich, QStringLiteral("John 1")}).status, 0);
        // Plain text becomes rich text, and its marker-like line is kept from reading as a marker.
        QCOMPARE(notes({QStringLiteral("Genesis 2")}).out,
                 QByteArray("{\\rtf1\\ansi\\uc1 Notes\\par\r\n{}CHAPTER 2 \\{caf\\u233?\\}}\r\n"));
        QCOMPARE(notes({QStringLiteral("jn 1:1")}).out, QByteArray("{\\rtf1 On love}\r\n"));
        r = notes({QStringLiteral("Genesis 1")});
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, QByteArray());

        QCOMPARE(notes({QStringLiteral("Nahum 1")}).status, 2);
        r = notes({QStringLiteral("--set"), m_dir.path() + QStringLiteral("/none.txt"), QStringLiteral("Gen 1")});
        QCOMPARE(r.status, 66);
        QVERIFY2(r.err.contains("does not exist"), r.err.constData());
        r = notes({QStringLiteral("--set"), plain, QStringLiteral("Gen x")});
        QCOMPARE(r.status, 1);
        QVERIFY(!r.err.isEmpty());

        r = cli(aaa + QStringList{QStringLiteral("commentary"), QStringLiteral("John 1:2")});
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, QByteArray("Tovelian's Commentary \r\nOn John 1\r\n"));
    }

    void checking()
    {
        Run r = cli({QStringLiteral("check"), QStringLiteral("AAA")});
        QCOMPARE(r.status, 0);
        writeFile(m_dir.path() + QStringLiteral("/BBB/newtest/MARK.dat"), "CHAPTER 1\r\n\r\n");
        r = cli({QStringLiteral("check"), m_dir.path() + QStringLiteral("/BBB")});
        QCOMPARE(r.status, 1);
        QVERIFY2(r.out.contains("Mark 1"), r.out.constData());
    }
};

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"
