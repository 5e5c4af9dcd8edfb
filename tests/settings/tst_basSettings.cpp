#include "settings/basSettings.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTextCursor>
#include <QTextEdit>
#include <memory>

namespace {

TextStyle paddedStyle()
{
    TextStyle style;
    style.BackColor = 0x00DCCDC0;         // (192, 205, 220)
    style.ForeColor = qint32(0x8000000D); // highlight blue
    style.FontName = TextStyle::FixedFontName(QStringLiteral("  DejaVu Serif"));
    style.FontSize = 14;
    style.FontBold = -1;
    style.FontItalic = 0;
    return style;
}

std::unique_ptr<QWidget> makeControl(const QString &kind)
{
    if (kind == u"label")
        return std::make_unique<QLabel>(QStringLiteral("Books List"));
    if (kind == u"list")
        return std::make_unique<QListWidget>();
    if (kind == u"combo")
        return std::make_unique<QComboBox>();
    return std::make_unique<QLineEdit>();
}

} // namespace

class tst_basSettings : public QObject
{
    Q_OBJECT

private slots:
    void applyStyleToControls_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::newRow("label") << "label";
        QTest::newRow("list") << "list";
        QTest::newRow("combo") << "combo";
        QTest::newRow("text box") << "edit";
    }

    void applyStyleToControls()
    {
        QFETCH(QString, kind);
        const std::unique_ptr<QWidget> control = makeControl(kind);
        TextStyle style = paddedStyle();
        ApplyStyle(control.get(), style);

        const QPalette palette = control->palette();
        for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button})
            QCOMPARE(palette.color(role), QColor(192, 205, 220));
        for (const QPalette::ColorRole role :
             {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            QCOMPARE(palette.color(role), QColor(0, 120, 215));
        QCOMPARE(control->font().family(), QStringLiteral("DejaVu Serif"));
        QCOMPARE(control->font().pointSize(), 14);
        QVERIFY(control->font().bold());
        QVERIFY(!control->font().italic());
        QCOMPARE(style.FontName, TextStyle::FixedFontName(QStringLiteral("DejaVu Serif")));
    }

    void richTextStyleColoursExistingText()
    {
        QTextEdit view;
        view.setHtml(QStringLiteral("<p>In the <b>beginning</b></p><p>God</p>"));
        const QString text = view.toPlainText();
        TextStyle style = paddedStyle();
        ApplyRichTextStyle(&view, style);

        QCOMPARE(view.toPlainText(), text);
        QCOMPARE(view.palette().color(QPalette::Base), QColor(192, 205, 220));
        QCOMPARE(view.font().family(), QStringLiteral("DejaVu Serif"));
        for (int position = 1; position <= text.size(); ++position) {
            QTextCursor cursor(view.document());
            cursor.setPosition(position);
            QCOMPARE(cursor.charFormat().foreground().color(), QColor(0, 120, 215));
        }
    }

    void richTextStyleOnEmptyViewColoursTypedText()
    {
        QTextEdit view;
        TextStyle style = paddedStyle();
        ApplyRichTextStyle(&view, style);
        QCOMPARE(view.toPlainText(), QString());

        // The main window puts the caret at the start after applying the look.
        view.moveCursor(QTextCursor::Start);
        QTest::keyClicks(&view, QStringLiteral("Amen"));
        QCOMPARE(view.toPlainText(), QStringLiteral("Amen"));
        QTextCursor cursor(view.document());
        cursor.setPosition(4);
        QCOMPARE(cursor.charFormat().foreground().color(), QColor(0, 120, 215));
    }
};

QTEST_MAIN(tst_basSettings)
#include "tst_basSettings.moc"
