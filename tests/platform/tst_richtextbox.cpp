// The rich-text view: positions in CR LF units, selection formatting, find and spans.
#include "platform/RichTextBox.h"

#include <QTemporaryDir>
#include <QTest>
#include <QTextCursor>
#include <QTextTable>

using platform::RichTextBox;

namespace {
const QString kPassage =
    QStringLiteral("{\\rtf {\\colortbl ;\\red255\\green0\\blue0;}GENESIS 1\\par 1 In the beginning "
                   "God{\\super {\\fs0 "
                   "'}H430} created \\i was \\i0 the heaven.\\par 2 And the earth was without "
                   "form, and void.\\par 3 "
                   "And God said, Let there be light: and there was light.\\par }");
} // namespace

class TestRichTextBox : public QObject
{
    Q_OBJECT

private slots:
    void textUsesCrLf()
    {
        RichTextBox box;
        box.setTextRTF(kPassage);
        QCOMPARE(box.Text(),
                 QStringLiteral("GENESIS 1\r\n1 In the beginning God'H430 created was the "
                                "heaven.\r\n2 And the earth was without form, and "
                                "void.\r\n3 And God said, Let there be light: and there "
                                "was light.\r\n"));
        QCOMPARE(box.SelStart(), 0);
        // Plain text that is not rich text is shown as it is.
        box.setTextRTF(QStringLiteral("just text"));
        QCOMPARE(box.Text(), QStringLiteral("just text"));
    }

    void positionsFromText_data()
    {
        QTest::addColumn<QString>("word");
        QTest::addColumn<int>("occurrence");
        QTest::newRow("first paragraph") << QStringLiteral("GENESIS") << 0;
        QTest::newRow("after one break") << QStringLiteral("beginning") << 0;
        QTest::newRow("after the tiny mark") << QStringLiteral("created") << 0;
        QTest::newRow("after two breaks") << QStringLiteral("void") << 0;
        QTest::newRow("after three breaks") << QStringLiteral("light") << 1;
        QTest::newRow("across a break") << QStringLiteral("void.\r\n3") << 0;
    }

    void positionsFromText()
    {
        QFETCH(QString, word);
        QFETCH(int, occurrence);
        RichTextBox box;
        box.setTextRTF(kPassage);
        const QString text = box.Text();
        qsizetype at = -1;
        for (int i = 0; i <= occurrence; ++i)
            at = text.indexOf(word, at + 1);
        QVERIFY(at >= 0);
        box.setSelStart(int(at));
        box.setSelLength(int(word.size()));
        QCOMPARE(box.SelText(), word);
        QCOMPARE(box.SelStart(), int(at));
        QCOMPARE(box.SelLength(), int(word.size()));
        QString selected = box.textCursor().selectedText();
        QCOMPARE(selected.replace(QChar::ParagraphSeparator, QStringLiteral("\r\n")), word);
    }

    void editingInCrLfUnits()
    {
        RichTextBox box;
        box.setText(QStringLiteral("one\r\ntwo\rthree\nfour"));
        QCOMPARE(box.document()->blockCount(), 4);
        QCOMPARE(box.Text(), QStringLiteral("one\r\ntwo\r\nthree\r\nfour"));

        // Results inserted one after another at the caret follow each other.
        box.setText(QString());
        box.setSelText(QStringLiteral("Gen 1:1 first\r\n\r\n"));
        box.setSelText(QStringLiteral("Gen 1:2 second\r\n\r\n"));
        QCOMPARE(box.Text(), QStringLiteral("Gen 1:1 first\r\n\r\nGen 1:2 second\r\n\r\n"));
        QCOMPARE(box.SelStart(), int(box.Text().size()));

        // A position between CR and LF never splits a break.
        box.setSelStart(14);
        QCOMPARE(box.SelStart(), 13);
        box.setSelLength(2);
        QCOMPARE(box.SelText(), QStringLiteral("\r\n"));
        box.setSelLength(3);
        QCOMPARE(box.SelText(), QStringLiteral("\r\n\r\n"));
        box.setSelStart(9999);
        QCOMPARE(box.SelStart(), int(box.Text().size()));

        box.setSelStart(0);
        box.setSelLength(7);
        box.setSelText(QStringLiteral("Exo"));
        QCOMPARE(box.Text().left(9), QStringLiteral("Exo first"));
    }

    // Bold, italic, underline and strike-through alike.
    void toggles()
    {
        const struct
        {
            bool (RichTextBox::*get)() const;
            void (RichTextBox::*set)(bool);
        } attributes[] = {{&RichTextBox::SelBold, &RichTextBox::setSelBold},
                          {&RichTextBox::SelItalic, &RichTextBox::setSelItalic},
                          {&RichTextBox::SelUnderline, &RichTextBox::setSelUnderline},
                          {&RichTextBox::SelStrikeThru, &RichTextBox::setSelStrikeThru}};
        for (const auto &[get, set] : attributes) {
            RichTextBox box;
            box.setText(QStringLiteral("alpha beta\r\ngamma"));
            box.setSelStart(0);
            box.setSelLength(5);
            (box.*set)(true);
            QVERIFY((box.*get)());

            // A selection only partly formatted reads as not set, and toggling sets it all.
            box.setSelStart(3);
            box.setSelLength(12);
            QVERIFY(!(box.*get)());
            (box.*set)(true);
            box.setSelStart(0);
            box.setSelLength(15);
            QVERIFY((box.*get)());
            (box.*set)(false);
            box.setSelStart(2);
            box.setSelLength(1);
            QVERIFY(!(box.*get)());
        }
    }

    void selColor()
    {
        RichTextBox box;
        box.setTextRTF(kPassage);
        const int god = int(box.Text().indexOf(QStringLiteral("God")));
        box.setSelStart(god);
        box.setSelLength(3);
        box.setSelColor(QColor(Qt::red));
        QCOMPARE(box.SelColor(), QColor(Qt::red));
        box.setSelLength(8);
        QVERIFY(!box.SelColor().isValid());
        box.setSelStart(0);
        box.setSelLength(7);
        QCOMPARE(box.SelColor(), box.ForeColor());
    }

    void find_data()
    {
        QTest::addColumn<QString>("what");
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("options");
        QTest::addColumn<int>("expected");
        const int light = 138; // "light" after three CR LF breaks
        QTest::newRow("ignores case") << QStringLiteral("LIGHT") << 0 << 0 << light;
        QTest::newRow("from a start") << QStringLiteral("light") << light + 1 << 0 << light + 21;
        QTest::newRow("match case")
            << QStringLiteral("LIGHT") << 0 << int(RichTextBox::rtfMatchCase) << -1;
        QTest::newRow("part of a word") << QStringLiteral("heave") << 0 << 0 << 55;
        QTest::newRow("whole word")
            << QStringLiteral("heave") << 0 << int(RichTextBox::rtfWholeWord) << -1;
        QTest::newRow("whole word found")
            << QStringLiteral("void") << 0 << int(RichTextBox::rtfWholeWord) << 102;
        QTest::newRow("missing") << QStringLiteral("darkness") << 0 << 0 << -1;
    }

    void find()
    {
        QFETCH(QString, what);
        QFETCH(int, start);
        QFETCH(int, options);
        QFETCH(int, expected);
        RichTextBox box;
        box.setTextRTF(kPassage);
        const QString text = box.Text();
        QCOMPARE(text.mid(138, 5), QStringLiteral("light"));
        QCOMPARE(box.Find(what, start, options), expected);
        if (expected >= 0) {
            QCOMPARE(box.SelStart(), expected);
            QCOMPARE(box.SelText().toLower(), what.toLower());
        }
    }

    void span()
    {
        const QString wordChars =
            QStringLiteral("AaBbCcDdEeFfGgHhIiJjKkLlMmNnOoPpQqRrSsTtUuVvWwXxYyZz1234567890");
        RichTextBox box;
        box.setText(QStringLiteral("first\r\nthe LORD's H430 word"));
        const int lord = int(box.Text().indexOf(QStringLiteral("LORD")));
        box.setSelStart(lord + 1);
        box.Span(wordChars, true, false);
        QCOMPARE(box.SelText(), QStringLiteral("ORD"));
        box.Span(wordChars, false, false);
        QCOMPARE(box.SelText(), QStringLiteral("LORD"));

        box.setSelStart(int(box.Text().indexOf(QStringLiteral("430"))));
        box.Span(wordChars);
        box.Span(wordChars, false);
        QCOMPARE(box.SelText(), QStringLiteral("H430"));

        // Negated: everything up to the next blank; spans stop at paragraph breaks.
        box.setSelStart(0);
        box.Span(QStringLiteral(" "), true, true);
        QCOMPARE(box.SelText(), QStringLiteral("first"));
        box.setSelStart(0);
        box.UpTo(QStringLiteral("'"));
        QCOMPARE(box.SelStart(), int(box.Text().indexOf(u'\'')));
    }

    void tablesAsText()
    {
        RichTextBox box;
        box.setTextRTF(
            QStringLiteral("{\\rtf1 Units\\par\\trowd\\cellx1000\\cellx2000\\intbl Cubit\\cell 18 "
                           "in\\cell\\row\\intbl Span\\cell 9 in\\cell\\row\\pard End}"));
        QCOMPARE(box.Text(), QStringLiteral("Units\r\nCubit\t18 in\r\nSpan\t9 in\r\nEnd"));
        QCOMPARE(box.Find(QStringLiteral("9 in")), 25);
        QCOMPARE(box.SelText(), QStringLiteral("9 in"));
        QCOMPARE(box.textCursor().selectedText(), QStringLiteral("9 in"));
    }

    void rtfThroughTheView()
    {
        RichTextBox box;
        box.setTextRTF(kPassage);
        box.setSelStart(0);
        box.setSelLength(7);
        box.setSelBold(true);
        const QString rtf = box.TextRTF();

        RichTextBox other;
        other.setTextRTF(rtf);
        QCOMPARE(other.Text(), box.Text());
        other.setSelStart(0);
        other.setSelLength(7);
        QVERIFY(other.SelBold());
        QVERIFY(!other.SelItalic());

        // A selection carries its formatting into another view.
        box.setSelStart(int(box.Text().indexOf(QStringLiteral("was the"))));
        box.setSelLength(3);
        other.setText(QStringLiteral("x"));
        other.setSelStart(1);
        other.setSelRTF(box.SelRTF());
        QCOMPARE(other.Text(), QStringLiteral("xwas"));
        other.setSelStart(1);
        other.setSelLength(3);
        QVERIFY(other.SelItalic());
    }

    void lockedAndFiles()
    {
        RichTextBox box;
        box.setLocked(true);
        box.setText(QStringLiteral("read only"));
        box.setFocus();
        QTest::keyClicks(&box, QStringLiteral("typed"));
        QCOMPARE(box.Text(), QStringLiteral("read only"));

        QTemporaryDir dir;
        QFile rtf(dir.filePath(QStringLiteral("Units.rtf")));
        QVERIFY(rtf.open(QIODevice::WriteOnly));
        rtf.write("{\\rtf1\\ansi Cubit\\par Span}");
        rtf.close();
        QVERIFY(box.LoadFile(dir.filePath(QStringLiteral("units.RTF"))));
        QCOMPARE(box.Text(), QStringLiteral("Cubit\r\nSpan"));
        QVERIFY(!box.LoadFile(dir.filePath(QStringLiteral("missing.rtf"))));
    }
};

QTEST_MAIN(TestRichTextBox)
#include "tst_richtextbox.moc"
