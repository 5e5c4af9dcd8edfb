#include "platform/RtfWriter.h"

#include "platform/TextCodec.h"

#include <QColor>
#include <QHash>
#include <QList>
#include <QStringList>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTextFrame>
#include <QTextTable>

#include <cmath>

namespace platform {

namespace {

constexpr double kTwipsPerPixel = 15.0;
// Tables are written a little narrower than a page between the usual margins.
constexpr int kTableWidthTwips = 9000;

// The characters above 0x7F that Windows-1252 holds, with their byte.
const QHash<char16_t, int> &Windows1252Bytes()
{
    static const QHash<char16_t, int> bytes = [] {
        QHash<char16_t, int> map;
        for (int b = 0x80; b <= 0xFF; ++b) {
            const char byte = char(b);
            const QString decoded = DecodeWindows1252(QByteArrayView(&byte, 1));
            map.insert(decoded.at(0).unicode(), b);
        }
        return map;
    }();
    return bytes;
}

QString Hex2(int value)
{
    return QStringLiteral("%1").arg(value, 2, 16, QLatin1Char('0'));
}

int Twips(double pixels)
{
    return int(std::lround(pixels * kTwipsPerPixel));
}

class Writer
{
public:
    explicit Writer(const QTextDocument &document) : m_document(document)
    {
        m_fonts.append(document.defaultFont().family());
    }

    QString run();

private:
    void writeFrame(const QTextFrame *frame);
    void writeTable(const QTextTable *table);
    void writeParagraph(const QTextBlock &block, bool inTable, QStringView ending);
    QString runControls(const QTextCharFormat &format);
    QString escape(QStringView text) const;
    int fontIndex(const QString &family);
    int colorIndex(const QColor &color);
    void collectBlocks(const QTextFrame *frame, QList<QTextBlock> &blocks) const;

    const QTextDocument &m_document;
    QStringList m_fonts;
    QList<QColor> m_colors;
    QString m_body;
};

QString Writer::run()
{
    writeFrame(m_document.rootFrame());

    QString out = QStringLiteral("{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl");
    for (int i = 0; i < m_fonts.size(); ++i) {
        QString name = m_fonts.at(i);
        name.remove(u';');
        out +=
            QStringLiteral("{\\f%1\\fnil\\fcharset0 ").arg(i) + escape(name) + QStringLiteral(";}");
    }
    out += u'}';
    if (!m_colors.isEmpty()) {
        out += QStringLiteral("{\\colortbl;");
        for (const QColor &c : m_colors)
            out += QStringLiteral("\\red%1\\green%2\\blue%3;")
                       .arg(c.red())
                       .arg(c.green())
                       .arg(c.blue());
        out += u'}';
    }
    out += QStringLiteral("\r\n");
    out += m_body;
    out += QStringLiteral("}\r\n");
    return out;
}

void Writer::writeFrame(const QTextFrame *frame)
{
    const QTextBlock last = m_document.lastBlock();
    for (auto it = frame->begin(); !it.atEnd(); ++it) {
        if (const QTextFrame *child = it.currentFrame()) {
            if (const auto *table = qobject_cast<const QTextTable *>(child))
                writeTable(table);
            else
                writeFrame(child);
            continue;
        }
        const QTextBlock block = it.currentBlock();
        // Every paragraph but the document's last ends with a mark; the last one's mark is the
        // document's end, as in a rich-edit control.
        writeParagraph(block, false, block == last ? QStringView() : u"\\par");
    }
}

void Writer::collectBlocks(const QTextFrame *frame, QList<QTextBlock> &blocks) const
{
    for (auto it = frame->begin(); !it.atEnd(); ++it) {
        if (const QTextFrame *child = it.currentFrame())
            collectBlocks(child, blocks);
        else
            blocks.append(it.currentBlock());
    }
}

void Writer::writeTable(const QTextTable *table)
{
    const int columns = table->columns();
    if (columns <= 0)
        return;
    QString definition = QStringLiteral("\\trowd\\trgaph108");
    for (int c = 0; c < columns; ++c)
        definition += QStringLiteral("\\cellx%1").arg((c + 1) * kTableWidthTwips / columns);

    for (int r = 0; r < table->rows(); ++r) {
        m_body += definition + QStringLiteral("\r\n");
        for (int c = 0; c < columns; ++c) {
            const QTextTableCell cell = table->cellAt(r, c);
            QList<QTextBlock> blocks;
            // A cell that a spanning neighbour covers is written empty, so columns stay aligned.
            if (cell.row() == r && cell.column() == c) {
                for (auto it = cell.begin(); !it.atEnd(); ++it) {
                    if (const QTextFrame *child = it.currentFrame())
                        collectBlocks(child, blocks);
                    else
                        blocks.append(it.currentBlock());
                }
            }
            if (blocks.isEmpty()) {
                m_body += QStringLiteral("\\pard\\intbl\\cell\r\n");
                continue;
            }
            for (qsizetype i = 0; i < blocks.size(); ++i)
                writeParagraph(blocks.at(i), true, i + 1 == blocks.size() ? u"\\cell" : u"\\par");
        }
        m_body += QStringLiteral("\\row\r\n");
    }
}

void Writer::writeParagraph(const QTextBlock &block, bool inTable, QStringView ending)
{
    const QTextBlockFormat format = block.blockFormat();
    QString line = QStringLiteral("\\pard");
    if (inTable)
        line += QStringLiteral("\\intbl");
    const Qt::Alignment alignment = format.alignment() & Qt::AlignHorizontal_Mask;
    if (alignment & Qt::AlignHCenter)
        line += QStringLiteral("\\qc");
    else if (alignment & (Qt::AlignRight))
        line += QStringLiteral("\\qr");
    else if (alignment & Qt::AlignJustify)
        line += QStringLiteral("\\qj");
    const auto indent = [&line](const char *word, double pixels) {
        const int twips = Twips(pixels);
        if (twips != 0)
            line += u'\\' + QLatin1String(word) + QString::number(twips);
    };
    indent("li", format.leftMargin());
    indent("ri", format.rightMargin());
    indent("fi", format.textIndent());
    indent("sb", format.topMargin());
    indent("sa", format.bottomMargin());
    line += u' ';

    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        if (!fragment.isValid())
            continue;
        const QString text = escape(fragment.text());
        if (text.isEmpty())
            continue;
        const QString controls = runControls(fragment.charFormat());
        if (controls.isEmpty())
            line += text;
        else
            line += u'{' + controls + u' ' + text + u'}';
    }
    line += ending;
    line += QStringLiteral("\r\n");
    m_body += line;
}

QString Writer::runControls(const QTextCharFormat &format)
{
    QString controls;
    if (format.fontWeight() >= QFont::DemiBold)
        controls += QStringLiteral("\\b");
    if (format.fontItalic())
        controls += QStringLiteral("\\i");
    if (format.fontUnderline())
        controls += QStringLiteral("\\ul");
    if (format.fontStrikeOut())
        controls += QStringLiteral("\\strike");
    if (format.hasProperty(QTextFormat::ForegroundBrush) &&
        format.foreground().style() != Qt::NoBrush)
        controls += QStringLiteral("\\cf%1").arg(colorIndex(format.foreground().color()));
    if (format.hasProperty(QTextFormat::BackgroundBrush) &&
        format.background().style() != Qt::NoBrush)
        controls += QStringLiteral("\\highlight%1").arg(colorIndex(format.background().color()));
    if (format.hasProperty(QTextFormat::FontFamilies)) {
        const QStringList families = format.fontFamilies().toStringList();
        if (!families.isEmpty() && !families.first().isEmpty())
            controls += QStringLiteral("\\f%1").arg(fontIndex(families.first()));
    }
    if (format.hasProperty(QTextFormat::FontPointSize)) {
        // Sizes below a point are the invisible marks; they are written as size 0.
        const double points = format.fontPointSize();
        const int halfPoints = points < 1.0 ? 0 : int(std::lround(points * 2));
        controls += QStringLiteral("\\fs%1").arg(halfPoints);
    }
    if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript)
        controls += QStringLiteral("\\super");
    else if (format.verticalAlignment() == QTextCharFormat::AlignSubScript)
        controls += QStringLiteral("\\sub");
    return controls;
}

QString Writer::escape(QStringView text) const
{
    QString out;
    out.reserve(text.size() + text.size() / 8);
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        switch (u) {
        case u'\\':
        case u'{':
        case u'}':
            out += u'\\';
            out += c;
            continue;
        case u'\t':
            out += QStringLiteral("\\tab ");
            continue;
        case QChar::LineSeparator:
            out += QStringLiteral("\\line ");
            continue;
        case QChar::Nbsp:
            out += QStringLiteral("\\~");
            continue;
        case QChar::SoftHyphen:
            out += QStringLiteral("\\-");
            continue;
        case 0x2011:
            out += QStringLiteral("\\_");
            continue;
        default:
            break;
        }
        if (u < 0x20 || u == QChar::ObjectReplacementCharacter || u == QChar::ParagraphSeparator)
            continue;
        if (u < 0x80) {
            out += c;
            continue;
        }
        const auto byte = Windows1252Bytes().constFind(u);
        if (byte != Windows1252Bytes().constEnd()) {
            out += QStringLiteral("\\'") + Hex2(*byte);
            continue;
        }
        out += QStringLiteral("\\u%1?").arg(int(qint16(u)));
    }
    return out;
}

int Writer::fontIndex(const QString &family)
{
    qsizetype index = m_fonts.indexOf(family);
    if (index < 0) {
        m_fonts.append(family);
        index = m_fonts.size() - 1;
    }
    return int(index);
}

int Writer::colorIndex(const QColor &color)
{
    const QColor opaque(color.red(), color.green(), color.blue());
    qsizetype index = m_colors.indexOf(opaque);
    if (index < 0) {
        m_colors.append(opaque);
        index = m_colors.size() - 1;
    }
    return int(index) + 1; // entry 0 of the table is the automatic colour
}

} // namespace

QString RtfWriter::write(const QTextDocument &document)
{
    return Writer(document).run();
}

QString RtfWriter::write(const QTextCursor &selection)
{
    if (selection.isNull() || !selection.hasSelection())
        return QString();
    QTextDocument part;
    part.setDefaultFont(selection.document()->defaultFont());
    QTextCursor(&part).insertFragment(selection.selection());
    return write(part);
}

} // namespace platform
