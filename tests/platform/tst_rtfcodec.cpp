// Reading the formatter's rich text, word-processor rich text and damaged input; writing rich
// text that reads back the same.
#include "platform/RtfReader.h"
#include "platform/RtfWriter.h"

#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

using platform::RtfReader;
using platform::RtfWriter;

namespace {

// The format of the first character of the first occurrence of text.
QTextCharFormat FormatOf(QTextDocument &doc, const QString &text, int offset = 0)
{
    const QTextCursor found = doc.find(text, 0, QTextDocument::FindCaseSensitively);
    if (found.isNull())
        return QTextCharFormat();
    QTextCursor c(&doc);
    c.setPosition(found.selectionStart() + offset + 1);
    return c.charFormat();
}

QTextTable *FirstTable(QTextDocument &doc)
{
    for (QTextBlock b = doc.begin(); b.isValid(); b = b.next()) {
        if (QTextTable *t = QTextCursor(b).currentTable())
            return t;
    }
    return nullptr;
}

QString CellText(QTextTable *table, int row, int column)
{
    QTextCursor c = table->cellAt(row, column).firstCursorPosition();
    c.setPosition(table->cellAt(row, column).lastCursorPosition().position(),
                  QTextCursor::KeepAnchor);
    return c.selectedText();
}

// Every formatting property the codec carries, for comparing two documents run by run.
QString Describe(const QTextDocument &doc)
{
    QString out;
    for (QTextBlock b = doc.begin(); b.isValid(); b = b.next()) {
        out += QStringLiteral("[%1%2]")
                   .arg(int(b.blockFormat().alignment() & Qt::AlignHorizontal_Mask))
                   .arg(QTextCursor(b).currentTable() ? QStringLiteral("T") : QString());
        for (auto it = b.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat f = it.fragment().charFormat();
            out +=
                QStringLiteral("(%1|b%2i%3u%4s%5c%6v%7p%8f%9)")
                    .arg(it.fragment().text())
                    .arg(f.fontWeight() >= QFont::DemiBold)
                    .arg(f.fontItalic())
                    .arg(f.fontUnderline())
                    .arg(f.fontStrikeOut())
                    .arg(f.hasProperty(QTextFormat::ForegroundBrush) ? f.foreground().color().name()
                                                                     : QString())
                    .arg(int(f.verticalAlignment()))
                    .arg(f.hasProperty(QTextFormat::FontPointSize) ? f.fontPointSize() : -1)
                    .arg(f.fontFamilies().toStringList().join(u','));
        }
        out += u'\n';
    }
    return out;
}

const char *const kFormatterOutput =
    "{\\rtf {\\colortbl ;\\red255\\green0\\blue0;}GENESIS 1\\par 1 In the beginning {\\cf1 God}"
    "{\\super {\\fs0 '}H430} created \\i was \\i0 the heaven.\\par }";

} // namespace

class TestRtfCodec : public QObject
{
    Q_OBJECT

private slots:
    void formatterOutput()
    {
        QTextDocument doc;
        RtfReader::read(QString::fromLatin1(kFormatterOutput), &doc);
        // The apostrophe stays in the text (and in searches) though it is never seen.
        QCOMPARE(
            doc.toPlainText(),
            QStringLiteral("GENESIS 1\n1 In the beginning God'H430 created was the heaven.\n"));
        QCOMPARE(doc.blockCount(), 3);

        const QTextCharFormat apostrophe = FormatOf(doc, QStringLiteral("'H430"));
        QCOMPARE(apostrophe.fontPointSize(), RtfReader::TinyPointSize);
        const QTextCharFormat strong = FormatOf(doc, QStringLiteral("H430"));
        QCOMPARE(strong.verticalAlignment(), QTextCharFormat::AlignSuperScript);
        QVERIFY(!strong.hasProperty(QTextFormat::FontPointSize));
        QCOMPARE(FormatOf(doc, QStringLiteral(" created")).verticalAlignment(),
                 QTextCharFormat::AlignNormal);

        QCOMPARE(FormatOf(doc, QStringLiteral("God")).foreground().color(), QColor(Qt::red));
        QVERIFY(!FormatOf(doc, QStringLiteral("In the")).hasProperty(QTextFormat::ForegroundBrush));
        QVERIFY(FormatOf(doc, QStringLiteral("was")).fontItalic());
        QVERIFY(!FormatOf(doc, QStringLiteral("the heaven")).fontItalic());
        QVERIFY(!FormatOf(doc, QStringLiteral("created")).fontItalic());
    }

    void plainText_data()
    {
        QTest::addColumn<QByteArray>("rtf");
        QTest::addColumn<QString>("text");

        QTest::newRow("header tables skipped")
            << QByteArray(
                   "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}"
                   "{\\f1\\froman Times{\\*\\panose "
                   "0202}New;}}{\\colortbl;\\red0\\green0\\blue255;}"
                   "{\\stylesheet{\\s0 Normal;}}{\\info{\\title Doc}{\\author Me}}"
                   "{\\*\\generator Writer 1.0;}\\viewkind4\\uc1\\pard\\f0\\fs20 Hello\\par}")
            << QStringLiteral("Hello\n");
        QTest::newRow("groups restore")
            << QByteArray("{\\rtf1 a{\\b b{\\i c}d}e}") << QStringLiteral("abcde");
        QTest::newRow("escapes") << QByteArray("{\\rtf1 \\{x\\}\\\\y\\~z\\_w\\tab t\\line l}")
                                 << QString(QStringLiteral("{x}\\y z\u2011w\tt\nl"));
        QTest::newRow("code page 1252")
            << QByteArray("{\\rtf1\\ansi caf\\'e9 \\'93q\\'94}") << QStringLiteral("café “q”");
        QTest::newRow("code page 1251")
            << QByteArray("{\\rtf1\\ansi\\ansicpg1251 \\'cc\\'e8\\'f0}") << QStringLiteral("Мир");
        QTest::newRow("font charset")
            << QByteArray("{\\rtf1\\ansi{\\fonttbl{\\f1\\fcharset161 Greek;}}{\\f1 \\'e1}\\'e1}")
            << QStringLiteral("αá");
        QTest::newRow("unicode skips one")
            << QByteArray("{\\rtf1\\uc1 \\u8220?x\\u8221\\'94}") << QStringLiteral("“x”");
        QTest::newRow("unicode skip counts")
            << QByteArray("{\\rtf1\\uc2 \\u945ab\\u946\\'e2\\'e2c{\\uc0\\u947}d}")
            << QStringLiteral("αβcγd");
        QTest::newRow("negative unicode and pairs")
            << QByteArray("{\\rtf1 \\u-3913?\\u-10179?\\u-8704?}")
            << QStringLiteral("\uF0B7\U0001F600");
        QTest::newRow("skipped destinations")
            << QByteArray("{\\rtf1 a{\\*\\unknown zz}{\\pict\\pngblip 89504e47}{\\header h}"
                          "{\\field{\\*\\fldinst HYPERLINK x}{\\fldrslt link}}b}")
            << QStringLiteral("alinkb");
        QTest::newRow("plain and hidden")
            << QByteArray("{\\rtf1 \\b a\\plain b{\\v hidden}c}") << QStringLiteral("abc");
        QTest::newRow("line ends in source ignored")
            << QByteArray("{\\rtf1 one\r\ntwo\\\r\nthree}") << QStringLiteral("onetwo\nthree");
        QTest::newRow("binary skipped")
            << QByteArray("{\\rtf1 a\\bin3 {}}b}") << QStringLiteral("ab");
        QTest::newRow("utf-8 bytes")
            << QByteArray("{\\rtf1 caf\xc3\xa9}") << QStringLiteral("café");
        QTest::newRow("raw 1252 bytes") << QByteArray("{\\rtf1 caf\xe9}") << QStringLiteral("café");

        // Damaged input gives what can be recovered.
        QTest::newRow("missing final brace")
            << QByteArray("{\\rtf1 {\\b open") << QStringLiteral("open");
        QTest::newRow("text after end")
            << QByteArray("{\\rtf1 in}out{more}") << QStringLiteral("in");
        QTest::newRow("text before start") << QByteArray("junk{\\rtf1 in}") << QStringLiteral("in");
        QTest::newRow("stray closing") << QByteArray("}}{\\rtf1 a}") << QStringLiteral("a");
        QTest::newRow("cut escapes") << QByteArray("{\\rtf1 a\\'4") << QStringLiteral("a");
        QTest::newRow("cut backslash") << QByteArray("{\\rtf1 a\\") << QStringLiteral("a");
        QTest::newRow("huge numbers")
            << QByteArray("{\\rtf1\\fs99999999999999 a\\cf-5 b\\u99999999999 c\\bin99999999999 zz")
            << QStringLiteral("ab");
        QTest::newRow("deep nesting")
            << (QByteArray("{\\rtf1 ") + QByteArray(5000, '{') + "x" + QByteArray(6000, '}') + "y")
            << QStringLiteral("x");
        QTest::newRow("cells without table")
            << QByteArray("{\\rtf1 \\row\\intbl a\\cell b\\cell\\row\\pard c}")
            << QStringLiteral("\na\nb\nc");
    }

    void plainText()
    {
        QFETCH(QByteArray, rtf);
        QFETCH(QString, text);
        QTextDocument doc;
        RtfReader::read(rtf, &doc);
        QCOMPARE(doc.toPlainText(), text);
    }

    void wordProcessorFormatting()
    {
        const QByteArray rtf =
            "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil "
            "Arial;}{\\f1\\froman\\fcharset0 "
            "Times New Roman;}}\r\n{\\colortbl "
            ";\\red0\\green128\\blue0;\\red255\\green255\\blue0;}\r\n"
            "\\pard\\qc\\f1\\fs32\\b Title\\b0\\par\r\n"
            "\\pard\\li720\\fi-360\\sa120 \\ul under\\ulnone  \\strike gone\\strike0  "
            "\\cf1 green\\cf0  \\highlight2 marked\\highlight0  x\\up6 2\\up0  H\\sub "
            "2\\nosupersub O\\par\r\n"
            "}";
        QTextDocument doc;
        RtfReader::read(rtf, &doc);
        const QTextCharFormat title = FormatOf(doc, QStringLiteral("Title"));
        QCOMPARE(title.fontFamilies().toStringList(),
                 QStringList{QStringLiteral("Times New Roman")});
        QCOMPARE(title.fontPointSize(), 16.0);
        QCOMPARE(title.fontWeight(), int(QFont::Bold));
        QCOMPARE(int(doc.begin().blockFormat().alignment()), int(Qt::AlignHCenter));
        const QTextBlockFormat second = doc.begin().next().blockFormat();
        QCOMPARE(second.leftMargin(), 48.0);
        QCOMPARE(second.textIndent(), -24.0);
        QVERIFY(FormatOf(doc, QStringLiteral("under")).fontUnderline());
        QVERIFY(FormatOf(doc, QStringLiteral("gone")).fontStrikeOut());
        QVERIFY(!FormatOf(doc, QStringLiteral("green")).fontStrikeOut());
        QCOMPARE(FormatOf(doc, QStringLiteral("green")).foreground().color(), QColor(0, 128, 0));
        QCOMPARE(FormatOf(doc, QStringLiteral("marked")).background().color(), QColor(255, 255, 0));
        QVERIFY(!FormatOf(doc, QStringLiteral(" x")).hasProperty(QTextFormat::ForegroundBrush));
        QCOMPARE(FormatOf(doc, QStringLiteral("x2"), 1).verticalAlignment(),
                 QTextCharFormat::AlignSuperScript);
        QCOMPARE(FormatOf(doc, QStringLiteral("H2O"), 1).verticalAlignment(),
                 QTextCharFormat::AlignSubScript);
        QCOMPARE(FormatOf(doc, QStringLiteral("H2O"), 2).verticalAlignment(),
                 QTextCharFormat::AlignNormal);
    }

    void wordProcessorTable()
    {
        // Rows as a word processor writes them: definition first, repeated before the row mark.
        const QByteArray rtf =
            "{\\rtf1\\ansi Before\\par\r\n"
            "\\trowd\\cellx2000\\cellx4000\\pard\\intbl A1\\cell {\\b B1}\\cell\\row\r\n"
            "\\pard\\intbl A2\\cell B2\\par more\\cell{\\trowd\\cellx2000\\cellx4000\\row}\r\n"
            "\\pard After\\par}";
        QTextDocument doc;
        RtfReader::read(rtf, &doc);
        QTextTable *table = FirstTable(doc);
        QVERIFY(table);
        QCOMPARE(table->rows(), 2);
        QCOMPARE(table->columns(), 2);
        QCOMPARE(CellText(table, 0, 0), QStringLiteral("A1"));
        QCOMPARE(CellText(table, 0, 1), QStringLiteral("B1"));
        QCOMPARE(CellText(table, 1, 1), QStringLiteral("B2\u2029more"));
        QVERIFY(FormatOf(doc, QStringLiteral("B1")).fontWeight() >= QFont::Bold);
        QCOMPARE(doc.toPlainText(), QStringLiteral("Before\nA1\nB1\nA2\nB2\nmore\nAfter\n"));
    }

    void roundTrip()
    {
        QTextDocument doc;
        QTextCursor c(&doc);
        QTextCharFormat plain;
        const auto add = [&](const QString &text,
                             const std::function<void(QTextCharFormat &)> &set) {
            QTextCharFormat f;
            set(f);
            c.insertText(text, f);
        };
        add(QStringLiteral("Bold "), [](QTextCharFormat &f) { f.setFontWeight(QFont::Bold); });
        add(QStringLiteral("italic "), [](QTextCharFormat &f) { f.setFontItalic(true); });
        add(QStringLiteral("under "), [](QTextCharFormat &f) { f.setFontUnderline(true); });
        add(QStringLiteral("strike "), [](QTextCharFormat &f) { f.setFontStrikeOut(true); });
        add(QStringLiteral("red "),
            [](QTextCharFormat &f) { f.setForeground(QColor(200, 10, 20)); });
        add(QStringLiteral("'"),
            [](QTextCharFormat &f) { f.setFontPointSize(RtfReader::TinyPointSize); });
        add(QStringLiteral("G2316"),
            [](QTextCharFormat &f) { f.setVerticalAlignment(QTextCharFormat::AlignSuperScript); });
        add(QStringLiteral(" sub"), [](QTextCharFormat &f) {
            f.setVerticalAlignment(QTextCharFormat::AlignSubScript);
            f.setFontFamilies({QStringLiteral("DejaVu Serif")});
            f.setFontPointSize(9);
        });
        QTextBlockFormat centred;
        centred.setAlignment(Qt::AlignHCenter);
        c.insertBlock(centred);
        c.insertText(QString(QStringLiteral("café “Ἐν ἀρχῇ” שָׁלוֹם \U0001F4D6 {braces} \\ tab\tend")),
                     plain);
        c.insertBlock(QTextBlockFormat());
        QTextTable *table = c.insertTable(2, 2);
        table->cellAt(0, 0).firstCursorPosition().insertText(QStringLiteral("a"));
        QTextCharFormat bold;
        bold.setFontWeight(QFont::Bold);
        table->cellAt(0, 1).firstCursorPosition().insertText(QStringLiteral("b"), bold);
        table->cellAt(1, 1).firstCursorPosition().insertText(QStringLiteral("d1\u2029d2"));
        QTextCursor end(&doc);
        end.movePosition(QTextCursor::End);
        end.insertText(QStringLiteral("after"));

        const QString rtf = RtfWriter::write(doc);
        QVERIFY(rtf.startsWith(QStringLiteral("{\\rtf1\\ansi\\ansicpg1252\\deff0")));
        QVERIFY(rtf.contains(QStringLiteral("caf\\'e9 \\'93")));
        QVERIFY(rtf.contains(QStringLiteral("\\u7960?")));

        QTextDocument back;
        RtfReader::read(QStringView(rtf), &back);
        QCOMPARE(back.toPlainText(), doc.toPlainText());
        QCOMPARE(Describe(back), Describe(doc));
        QTextTable *backTable = FirstTable(back);
        QVERIFY(backTable);
        QCOMPARE(backTable->rows(), 2);
        QCOMPARE(backTable->columns(), 2);
        QCOMPARE(CellText(backTable, 1, 1), QStringLiteral("d1\u2029d2"));
        // Writing what was read gives the same rich text again.
        QCOMPARE(RtfWriter::write(back), rtf);
    }

    void formatterRoundTrip()
    {
        QTextDocument doc;
        RtfReader::read(QString::fromLatin1(kFormatterOutput), &doc);
        QTextDocument back;
        RtfReader::read(QStringView(RtfWriter::write(doc)), &back);
        QCOMPARE(Describe(back), Describe(doc));
    }

    void selectionWrite()
    {
        QTextDocument doc;
        RtfReader::read(QString::fromLatin1(kFormatterOutput), &doc);
        QTextCursor c = doc.find(QStringLiteral("God"));
        QTextDocument part;
        RtfReader::read(QStringView(RtfWriter::write(c)), &part);
        QCOMPARE(part.toPlainText(), QStringLiteral("God"));
        QCOMPARE(FormatOf(part, QStringLiteral("God")).foreground().color(), QColor(Qt::red));
        QVERIFY(RtfWriter::write(QTextCursor(&doc)).isEmpty());
    }
};

QTEST_MAIN(TestRtfCodec)
#include "tst_rtfcodec.moc"
