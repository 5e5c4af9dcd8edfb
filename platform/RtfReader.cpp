#include "platform/RtfReader.h"

#include "platform/TextCodec.h"

#include <QColor>
#include <QHash>
#include <QList>
#include <QStringDecoder>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include <algorithm>
#include <map>

namespace platform {

namespace {

constexpr int kDefaultCodePage = 1252;
// Indents and spacing come in twips; the document lays out in pixels of a 96 dpi screen.
constexpr double kTwipsPerPixel = 15.0;
constexpr int kMaxParameter = 1 << 30;
constexpr int kMaxHalfPoints = 3276;

enum class Destination
{
    Normal,
    Skip,
    FontTable,
    ColorTable
};

struct ParagraphState
{
    Qt::Alignment alignment = Qt::AlignLeft;
    int leftIndent = 0;
    int rightIndent = 0;
    int firstIndent = 0;
    int spaceBefore = 0;
    int spaceAfter = 0;
    bool inTable = false;
};

struct GroupState
{
    Destination destination = Destination::Normal;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    bool hidden = false;
    int foreground = -1;
    int background = -1;
    int font = -1;
    int halfPoints = -1;
    QTextCharFormat::VerticalAlignment verticalAlignment = QTextCharFormat::AlignNormal;
    int unicodeSkip = 1;
    ParagraphState paragraph;
};

struct FontEntry
{
    QString name;
    int codePage = 0;
};

int CodePageForCharset(int charset)
{
    switch (charset) {
    case 77:
        return 10000;
    case 128:
        return 932;
    case 129:
        return 949;
    case 134:
        return 936;
    case 136:
        return 950;
    case 161:
        return 1253;
    case 162:
        return 1254;
    case 163:
        return 1258;
    case 177:
        return 1255;
    case 178:
        return 1256;
    case 186:
        return 1257;
    case 204:
        return 1251;
    case 222:
        return 874;
    case 238:
        return 1250;
    default:
        // Western, default and symbol fonts read their bytes in the document's code page.
        return 0;
    }
}

QByteArray DecoderName(int codePage)
{
    switch (codePage) {
    case 437:
        return "IBM437";
    case 850:
        return "IBM850";
    case 932:
        return "Shift_JIS";
    case 936:
        return "GBK";
    case 949:
        return "EUC-KR";
    case 950:
        return "Big5";
    case 10000:
        return "macintosh";
    case 65001:
        return "UTF-8";
    default:
        return "windows-" + QByteArray::number(codePage);
    }
}

bool IsHexDigit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

int HexValue(QChar c)
{
    if (c >= u'0' && c <= u'9')
        return c.unicode() - u'0';
    if (c >= u'a' && c <= u'f')
        return c.unicode() - u'a' + 10;
    return c.unicode() - u'A' + 10;
}

bool IsAsciiLetter(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

// Characters that would break the document's structure if inserted as text, or that have no
// business in it, are dropped; a surrogate without its partner becomes a replacement mark.
QString CleanText(const QString &text)
{
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const char16_t u = c.unicode();
        if (c.isHighSurrogate()) {
            if (i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
                out.append(c);
                out.append(text.at(++i));
            } else {
                out.append(QChar::ReplacementCharacter);
            }
            continue;
        }
        if (c.isLowSurrogate()) {
            out.append(QChar::ReplacementCharacter);
            continue;
        }
        if ((u < 0x20 && u != u'\t') || u == 0x7F || u == QChar::ParagraphSeparator ||
            u == 0xFDD0 || u == 0xFDD1 || u == QChar::ObjectReplacementCharacter)
            continue;
        out.append(c);
    }
    return out;
}

class Parser
{
public:
    Parser(QStringView input, QTextCursor &cursor, int codePage)
        : m_in(input), m_cursor(cursor), m_codePage(codePage)
    {
    }

    void run();

private:
    GroupState &state() { return m_stack.back(); }
    bool inNormalText() const
    {
        return !m_stack.empty() && m_stack.back().destination == Destination::Normal;
    }

    void openGroup();
    void closeGroup();
    void readControl();
    void controlWord(QStringView word, bool hasParameter, int parameter);
    void destinationWord(QStringView word);
    static bool paragraphWord(ParagraphState &paragraph, QStringView word, int parameter);

    void addChar(QChar c);
    void addByte(char byte);
    void decodeBytes();
    void flush();
    void finish();

    void paragraphBreak();
    void lineBreak();
    void cellEnd();
    void rowEnd();
    void prepareParagraph(bool inTable);
    void startTable();
    void ensureCell();
    void endTable();

    QTextCharFormat charFormat() const;
    QTextBlockFormat blockFormat(const ParagraphState &paragraph) const;
    int currentCodePage() const;
    QStringDecoder &decoder(int codePage);

    void commitFont();
    void commitColor();

    QStringView m_in;
    qsizetype m_pos = 0;
    QTextCursor &m_cursor;

    std::vector<GroupState> m_stack;
    int m_overflowDepth = 0;
    bool m_done = false;
    int m_skipCount = 0;

    int m_codePage = kDefaultCodePage;
    int m_defaultFont = -1;
    std::map<int, QStringDecoder> m_decoders;

    QString m_text;
    QByteArray m_bytes;

    QHash<int, FontEntry> m_fonts;
    int m_fontIndex = -1;
    int m_fontCodePage = 0;
    QString m_fontName;

    QList<QColor> m_colors;
    int m_red = -1;
    int m_green = -1;
    int m_blue = -1;

    // The paragraph state last seen with text, for a final paragraph that has no closing mark.
    std::optional<ParagraphState> m_openParagraph;
    int m_lastBreakPosition = -1;

    QTextTable *m_table = nullptr;
    int m_row = 0;
    int m_column = 0;
    bool m_rowPending = false;
    bool m_cellPending = false;
    int m_rowDefinitionCells = 0;
};

void Parser::run()
{
    m_cursor.beginEditBlock();
    while (m_pos < m_in.size() && !m_done) {
        const QChar c = m_in[m_pos];
        if (c == u'{') {
            ++m_pos;
            openGroup();
        } else if (c == u'}') {
            ++m_pos;
            closeGroup();
        } else if (c == u'\\') {
            readControl();
        } else {
            ++m_pos;
            if (c == u'\r' || c == u'\n' || m_stack.empty())
                continue;
            if (m_skipCount > 0) {
                --m_skipCount;
                continue;
            }
            addChar(c);
        }
    }
    finish();
    m_cursor.endEditBlock();
}

void Parser::openGroup()
{
    flush();
    m_skipCount = 0;
    if (m_stack.size() >= size_t(RtfReader::MaxDepth)) {
        ++m_overflowDepth;
        return;
    }
    m_stack.push_back(m_stack.empty() ? GroupState() : m_stack.back());
}

void Parser::closeGroup()
{
    flush();
    m_skipCount = 0;
    if (m_overflowDepth > 0) {
        --m_overflowDepth;
        return;
    }
    if (m_stack.empty())
        return;
    const Destination closing = m_stack.back().destination;
    if (closing == Destination::FontTable)
        commitFont();
    m_stack.pop_back();
    // Whatever follows the document's closing brace is not part of it.
    if (m_stack.empty())
        m_done = true;
}

void Parser::readControl()
{
    ++m_pos; // the backslash
    if (m_pos >= m_in.size())
        return;
    const QChar c = m_in[m_pos];
    if (IsAsciiLetter(c)) {
        const qsizetype start = m_pos;
        while (m_pos < m_in.size() && IsAsciiLetter(m_in[m_pos]))
            ++m_pos;
        const QStringView word = m_in.mid(start, std::min<qsizetype>(m_pos - start, 32));
        bool negative = false;
        if (m_pos < m_in.size() && m_in[m_pos] == u'-' && m_pos + 1 < m_in.size() &&
            m_in[m_pos + 1] >= u'0' && m_in[m_pos + 1] <= u'9') {
            negative = true;
            ++m_pos;
        }
        bool hasParameter = false;
        qint64 value = 0;
        while (m_pos < m_in.size() && m_in[m_pos] >= u'0' && m_in[m_pos] <= u'9') {
            hasParameter = true;
            value = std::min<qint64>(value * 10 + (m_in[m_pos].unicode() - u'0'), kMaxParameter);
            ++m_pos;
        }
        if (m_pos < m_in.size() && m_in[m_pos] == u' ')
            ++m_pos;
        if (m_stack.empty())
            return;
        const int parameter = int(negative ? -value : value);
        if (word == u"bin") {
            // Binary data is never text; it is passed over unread.
            flush();
            m_pos = std::min<qsizetype>(m_in.size(), m_pos + std::max(0, parameter));
            return;
        }
        if (m_skipCount > 0) {
            --m_skipCount;
            return;
        }
        controlWord(word, hasParameter, parameter);
        return;
    }

    ++m_pos;
    if (c == u'\'') {
        int value = 0;
        int digits = 0;
        while (digits < 2 && m_pos < m_in.size() && IsHexDigit(m_in[m_pos])) {
            value = value * 16 + HexValue(m_in[m_pos]);
            ++digits;
            ++m_pos;
        }
        if (m_stack.empty())
            return;
        if (m_skipCount > 0) {
            --m_skipCount;
            return;
        }
        if (digits > 0)
            addByte(char(value));
        return;
    }
    if (m_stack.empty())
        return;
    if (m_skipCount > 0) {
        --m_skipCount;
        return;
    }
    switch (c.unicode()) {
    case u'\\':
    case u'{':
    case u'}':
        addChar(c);
        break;
    case u'~':
        addChar(QChar::Nbsp);
        break;
    case u'_':
        addChar(QChar(0x2011));
        break;
    case u'-':
        addChar(QChar::SoftHyphen);
        break;
    case u'*':
        flush();
        state().destination = Destination::Skip;
        break;
    case u'\r':
    case u'\n':
        flush();
        paragraphBreak();
        break;
    case u'\t':
        addChar(u'\t');
        break;
    default:
        // Formula characters, index subentries and the like carry nothing to show.
        break;
    }
}

void Parser::destinationWord(QStringView word)
{
    // Destinations whose content is never shown.
    static const QStringList skipped =
        QStringLiteral(
            "stylesheet info pict header headerl headerr headerf footer footerl footerr footerf "
            "footnote annotation fldinst object objdata xe tc txe template filetbl revtbl "
            "listtable pn listoverridetable rsidtbl generator themedata colorschememapping "
            "latentstyles datastore xmlnstbl shp nonshppict shppict bkmkstart bkmkend private "
            "pgdsctbl mmathPr atnid atnauthor ftnsep ftnsepc aftnsep aftnsepc ftncn userprops "
            "docvar nesttableprops")
            .split(u' ');
    if (word == u"fonttbl") {
        state().destination = Destination::FontTable;
        m_fontIndex = -1;
        m_fontName.clear();
    } else if (word == u"colortbl") {
        state().destination = Destination::ColorTable;
        m_colors.clear();
        m_red = m_green = m_blue = -1;
    } else if (skipped.contains(word)) {
        state().destination = Destination::Skip;
    }
}

void Parser::controlWord(QStringView word, bool hasParameter, int parameter)
{
    GroupState &s = state();
    const bool on = !hasParameter || parameter != 0;

    // Words that only add text keep the run going; everything else ends it first.
    if (word == u"u") {
        int code = parameter < 0 ? parameter + 65536 : parameter;
        if (code >= 0 && code <= 0xFFFF)
            addChar(QChar(char16_t(code)));
        m_skipCount = s.unicodeSkip;
        return;
    }
    struct Symbol
    {
        const char16_t *word;
        char16_t character;
    };
    static constexpr Symbol symbols[] = {
        {u"tab", u'\t'},      {u"emdash", 0x2014},  {u"endash", 0x2013},    {u"bullet", 0x2022},
        {u"lquote", 0x2018},  {u"rquote", 0x2019},  {u"ldblquote", 0x201C}, {u"rdblquote", 0x201D},
        {u"emspace", 0x2003}, {u"enspace", 0x2002}, {u"qmspace", 0x2005},   {u"zwj", 0x200D},
        {u"zwnj", 0x200C},    {u"zwbo", 0x200B},    {u"zwnbo", 0xFEFF},     {u"ltrmark", 0x200E},
        {u"rtlmark", 0x200F},
    };
    for (const Symbol &symbol : symbols) {
        if (word == QStringView(symbol.word)) {
            addChar(QChar(symbol.character));
            return;
        }
    }

    flush();
    if (s.destination == Destination::Skip)
        return;

    if (word == u"fonttbl" || word == u"colortbl") {
        destinationWord(word);
        return;
    }

    if (s.destination == Destination::FontTable) {
        if (word == u"f") {
            commitFont();
            m_fontIndex = parameter;
            m_fontCodePage = 0;
        } else if (word == u"fcharset") {
            m_fontCodePage = CodePageForCharset(parameter);
        } else if (word == u"cpg") {
            m_fontCodePage = parameter;
        } else {
            destinationWord(word);
        }
        return;
    }
    if (s.destination == Destination::ColorTable) {
        const int component = std::clamp(parameter, 0, 255);
        if (word == u"red")
            m_red = component;
        else if (word == u"green")
            m_green = component;
        else if (word == u"blue")
            m_blue = component;
        return;
    }

    // Document settings.
    if (word == u"ansicpg") {
        if (parameter > 0)
            m_codePage = parameter;
    } else if (word == u"ansi") {
        m_codePage = kDefaultCodePage;
    } else if (word == u"mac") {
        m_codePage = 10000;
    } else if (word == u"pc") {
        m_codePage = 437;
    } else if (word == u"pca") {
        m_codePage = 850;
    } else if (word == u"deff") {
        m_defaultFont = parameter;
    } else if (word == u"uc") {
        s.unicodeSkip = std::clamp(parameter, 0, 10);
    }
    // Character formatting.
    else if (word == u"plain") {
        const int skip = s.unicodeSkip;
        const ParagraphState paragraph = s.paragraph;
        const Destination destination = s.destination;
        s = GroupState();
        s.unicodeSkip = skip;
        s.paragraph = paragraph;
        s.destination = destination;
    } else if (word == u"b") {
        s.bold = on;
    } else if (word == u"i") {
        s.italic = on;
    } else if (word == u"ul" || word == u"uld" || word == u"uldash" || word == u"uldashd" ||
               word == u"uldashdd" || word == u"uldb" || word == u"ulhwave" || word == u"ulldash" ||
               word == u"ulth" || word == u"ulthd" || word == u"ulthdash" || word == u"ulthdashd" ||
               word == u"ulthdashdd" || word == u"ulthldash" || word == u"ululdbwave" ||
               word == u"ulw" || word == u"ulwave") {
        s.underline = on;
    } else if (word == u"ulnone") {
        s.underline = false;
    } else if (word == u"strike" || word == u"striked") {
        s.strike = on;
    } else if (word == u"v") {
        s.hidden = on;
    } else if (word == u"cf") {
        s.foreground = parameter;
    } else if (word == u"cb" || word == u"highlight" || word == u"chcbpat") {
        s.background = parameter;
    } else if (word == u"f") {
        s.font = parameter;
    } else if (word == u"fs") {
        if (parameter >= 0)
            s.halfPoints = std::min(parameter, kMaxHalfPoints);
    } else if (word == u"super") {
        s.verticalAlignment = QTextCharFormat::AlignSuperScript;
    } else if (word == u"sub") {
        s.verticalAlignment = QTextCharFormat::AlignSubScript;
    } else if (word == u"nosupersub") {
        s.verticalAlignment = QTextCharFormat::AlignNormal;
    } else if (word == u"up") {
        // Older rich-edit controls raise superscripts by a number of half points.
        s.verticalAlignment =
            parameter > 0 ? QTextCharFormat::AlignSuperScript : QTextCharFormat::AlignNormal;
    } else if (word == u"dn") {
        s.verticalAlignment =
            parameter > 0 ? QTextCharFormat::AlignSubScript : QTextCharFormat::AlignNormal;
    }
    // Paragraphs.
    else if (paragraphWord(s.paragraph, word, parameter)) {
        // The open paragraph takes these properties even if no text or mark follows.
        m_openParagraph = s.paragraph;
    } else if (word == u"par" || word == u"sect" || word == u"page") {
        paragraphBreak();
    } else if (word == u"line") {
        lineBreak();
    } else if (word == u"nestcell") {
        // A table inside a cell is flattened into its cell.
        addChar(u'\t');
    }
    // Tables.
    else if (word == u"trowd") {
        m_rowDefinitionCells = 0;
    } else if (word == u"cellx") {
        ++m_rowDefinitionCells;
    } else if (word == u"cell") {
        cellEnd();
    } else if (word == u"row") {
        rowEnd();
    } else {
        destinationWord(word);
    }
}

bool Parser::paragraphWord(ParagraphState &paragraph, QStringView word, int parameter)
{
    if (word == u"pard")
        paragraph = ParagraphState();
    else if (word == u"ql")
        paragraph.alignment = Qt::AlignLeft;
    else if (word == u"qc")
        paragraph.alignment = Qt::AlignHCenter;
    else if (word == u"qr")
        paragraph.alignment = Qt::AlignRight;
    else if (word == u"qj")
        paragraph.alignment = Qt::AlignJustify;
    else if (word == u"li")
        paragraph.leftIndent = parameter;
    else if (word == u"ri")
        paragraph.rightIndent = parameter;
    else if (word == u"fi")
        paragraph.firstIndent = parameter;
    else if (word == u"sb")
        paragraph.spaceBefore = parameter;
    else if (word == u"sa")
        paragraph.spaceAfter = parameter;
    else if (word == u"intbl")
        paragraph.inTable = true;
    else if (word == u"itap")
        paragraph.inTable = parameter > 0;
    else
        return false;
    return true;
}

void Parser::addChar(QChar c)
{
    if (m_stack.empty())
        return;
    decodeBytes();
    switch (state().destination) {
    case Destination::Normal:
        m_text.append(c);
        break;
    case Destination::FontTable:
        if (c == u';')
            commitFont();
        else
            m_fontName.append(c);
        break;
    case Destination::ColorTable:
        if (c == u';')
            commitColor();
        break;
    case Destination::Skip:
        break;
    }
}

void Parser::addByte(char byte)
{
    // Bytes are gathered so that a character of a multi-byte code page is decoded whole.
    if (m_stack.empty() || state().destination == Destination::Skip ||
        state().destination == Destination::ColorTable)
        return;
    m_bytes.append(byte);
}

void Parser::decodeBytes()
{
    if (m_bytes.isEmpty())
        return;
    const int codePage = currentCodePage();
    QString decoded;
    if (codePage == kDefaultCodePage) {
        decoded = DecodeWindows1252(m_bytes);
    } else {
        QStringDecoder &d = decoder(codePage);
        d.resetState();
        decoded = d.isValid() ? QString(d.decode(m_bytes)) : DecodeWindows1252(m_bytes);
    }
    m_bytes.clear();
    if (state().destination == Destination::FontTable) {
        for (const QChar c : decoded)
            addChar(c);
    } else if (state().destination == Destination::Normal) {
        m_text.append(decoded);
    }
}

int Parser::currentCodePage() const
{
    if (m_stack.empty())
        return m_codePage;
    const GroupState &s = m_stack.back();
    if (s.destination == Destination::FontTable)
        return m_fontCodePage > 0 ? m_fontCodePage : m_codePage;
    const int font = s.font >= 0 ? s.font : m_defaultFont;
    const auto it = m_fonts.constFind(font);
    if (it != m_fonts.constEnd() && it->codePage > 0)
        return it->codePage;
    return m_codePage;
}

QStringDecoder &Parser::decoder(int codePage)
{
    auto it = m_decoders.find(codePage);
    if (it == m_decoders.end())
        it = m_decoders.emplace(codePage, QStringDecoder(DecoderName(codePage).constData())).first;
    return it->second;
}

void Parser::flush()
{
    decodeBytes();
    if (m_text.isEmpty() || m_stack.empty())
        return;
    const QString text = CleanText(m_text);
    m_text.clear();
    const GroupState &s = state();
    if (s.destination != Destination::Normal || s.hidden || text.isEmpty())
        return;
    prepareParagraph(s.paragraph.inTable);
    m_cursor.insertText(text, charFormat());
    m_openParagraph = s.paragraph;
}

void Parser::paragraphBreak()
{
    if (!inNormalText())
        return;
    const ParagraphState paragraph = state().paragraph;
    prepareParagraph(paragraph.inTable);
    m_cursor.setBlockFormat(blockFormat(paragraph));
    // The new paragraph gets its own properties when its text or its mark arrives.
    m_cursor.insertBlock(QTextBlockFormat(), charFormat());
    m_openParagraph.reset();
    m_lastBreakPosition = m_cursor.position();
}

void Parser::lineBreak()
{
    if (!inNormalText())
        return;
    addChar(QChar::LineSeparator);
}

void Parser::cellEnd()
{
    if (!inNormalText())
        return;
    prepareParagraph(true);
    if (!m_table)
        return;
    m_cursor.setBlockFormat(blockFormat(state().paragraph));
    ++m_column;
    m_cellPending = true;
    m_openParagraph.reset();
}

void Parser::rowEnd()
{
    if (!inNormalText() || !m_table)
        return;
    m_rowPending = true;
    m_cellPending = false;
    m_column = 0;
}

// Puts the cursor where the next paragraph content belongs: into the table when the
// paragraph is part of one (starting a table, a row or a cell as needed), else after it.
void Parser::prepareParagraph(bool inTable)
{
    if (!inTable) {
        if (m_table)
            endTable();
        return;
    }
    if (!m_table) {
        startTable();
        return;
    }
    if (m_rowPending) {
        m_rowPending = false;
        m_table->appendRows(1);
        ++m_row;
        m_column = 0;
        const int wanted = std::clamp(m_rowDefinitionCells, 1, RtfReader::MaxColumns);
        if (wanted > m_table->columns())
            m_table->appendColumns(wanted - m_table->columns());
        m_cursor = m_table->cellAt(m_row, 0).firstCursorPosition();
        return;
    }
    if (m_cellPending)
        ensureCell();
}

void Parser::startTable()
{
    // A paragraph mark just before a table only ended the previous paragraph: the document
    // already keeps a block before every table.
    if (m_cursor.position() == m_lastBreakPosition && m_cursor.block().length() == 1 &&
        !m_cursor.currentTable())
        m_cursor.deletePreviousChar();

    QTextTableFormat format;
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderCollapse(true);
    format.setCellSpacing(0);
    format.setCellPadding(3);
    const int columns = std::clamp(m_rowDefinitionCells, 1, RtfReader::MaxColumns);
    m_table = m_cursor.insertTable(1, columns, format);
    m_row = 0;
    m_column = 0;
    m_rowPending = false;
    m_cellPending = false;
    m_cursor = m_table->cellAt(0, 0).firstCursorPosition();
}

void Parser::ensureCell()
{
    m_cellPending = false;
    if (m_column >= m_table->columns()) {
        if (m_table->columns() < RtfReader::MaxColumns) {
            m_table->appendColumns(m_column + 1 - m_table->columns());
        } else {
            // Surplus cells share the last one, apart by a tab.
            m_column = m_table->columns() - 1;
            m_cursor = m_table->cellAt(m_row, m_column).lastCursorPosition();
            m_cursor.insertText(QStringLiteral("\t"));
            return;
        }
    }
    m_cursor = m_table->cellAt(m_row, m_column).firstCursorPosition();
}

void Parser::endTable()
{
    m_cursor.setPosition(m_table->lastPosition() + 1);
    m_table = nullptr;
    m_rowPending = false;
    m_cellPending = false;
    m_lastBreakPosition = -1;
}

void Parser::finish()
{
    // A document cut short still shows what it held so far.
    flush();
    if (!m_stack.empty() && m_stack.back().destination == Destination::FontTable)
        commitFont();
    if (m_openParagraph)
        m_cursor.setBlockFormat(blockFormat(*m_openParagraph));
    if (m_table)
        endTable();
}

QTextCharFormat Parser::charFormat() const
{
    QTextCharFormat format;
    if (m_stack.empty())
        return format;
    const GroupState &s = m_stack.back();
    if (s.bold)
        format.setFontWeight(QFont::Bold);
    if (s.italic)
        format.setFontItalic(true);
    if (s.underline)
        format.setFontUnderline(true);
    if (s.strike)
        format.setFontStrikeOut(true);
    if (s.foreground > 0 && s.foreground < m_colors.size() && m_colors.at(s.foreground).isValid())
        format.setForeground(m_colors.at(s.foreground));
    if (s.background > 0 && s.background < m_colors.size() && m_colors.at(s.background).isValid())
        format.setBackground(m_colors.at(s.background));
    if (s.font >= 0) {
        const auto it = m_fonts.constFind(s.font);
        if (it != m_fonts.constEnd() && !it->name.isEmpty())
            format.setFontFamilies(QStringList{it->name});
    }
    if (s.halfPoints == 0)
        format.setFontPointSize(RtfReader::TinyPointSize);
    else if (s.halfPoints > 0)
        format.setFontPointSize(s.halfPoints / 2.0);
    // Raised or lowered text is shrunk by whole points, and a run under two points would shrink
    // to nothing with a warning at every layout; such a run cannot be seen anyway.
    if (s.verticalAlignment != QTextCharFormat::AlignNormal &&
        (s.halfPoints < 0 || s.halfPoints >= 4))
        format.setVerticalAlignment(s.verticalAlignment);
    return format;
}

QTextBlockFormat Parser::blockFormat(const ParagraphState &paragraph) const
{
    QTextBlockFormat format;
    if (paragraph.alignment != Qt::AlignLeft)
        format.setAlignment(paragraph.alignment);
    if (paragraph.leftIndent > 0)
        format.setLeftMargin(std::min(paragraph.leftIndent, 31680) / kTwipsPerPixel);
    if (paragraph.rightIndent > 0)
        format.setRightMargin(std::min(paragraph.rightIndent, 31680) / kTwipsPerPixel);
    if (paragraph.firstIndent != 0)
        format.setTextIndent(std::clamp(paragraph.firstIndent, -31680, 31680) / kTwipsPerPixel);
    if (paragraph.spaceBefore > 0)
        format.setTopMargin(std::min(paragraph.spaceBefore, 31680) / kTwipsPerPixel);
    if (paragraph.spaceAfter > 0)
        format.setBottomMargin(std::min(paragraph.spaceAfter, 31680) / kTwipsPerPixel);
    return format;
}

void Parser::commitFont()
{
    decodeBytes();
    if (m_fontIndex >= 0) {
        QString name = m_fontName.trimmed();
        // Alternative names some writers append after the real one are not part of it.
        if (const qsizetype brace = name.indexOf(u'{'); brace >= 0)
            name.truncate(brace);
        m_fonts.insert(m_fontIndex, FontEntry{CleanText(name).trimmed(), m_fontCodePage});
    }
    m_fontIndex = -1;
    m_fontName.clear();
}

void Parser::commitColor()
{
    if (m_red < 0 && m_green < 0 && m_blue < 0)
        m_colors.append(QColor()); // "auto": the text keeps the view's colour
    else
        m_colors.append(QColor(std::max(m_red, 0), std::max(m_green, 0), std::max(m_blue, 0)));
    m_red = m_green = m_blue = -1;
}

int CodePageFromHeader(const QByteArray &bytes)
{
    const qsizetype at = bytes.left(4096).indexOf("\\ansicpg");
    if (at < 0)
        return kDefaultCodePage;
    int value = 0;
    for (qsizetype i = at + 8; i < bytes.size() && i < at + 14; ++i) {
        const char c = bytes.at(i);
        if (c < '0' || c > '9')
            break;
        value = value * 10 + (c - '0');
    }
    return value > 0 ? value : kDefaultCodePage;
}

} // namespace

void RtfReader::insert(QStringView rtf, QTextCursor &cursor)
{
    if (cursor.isNull())
        return;
    Parser parser(rtf, cursor, kDefaultCodePage);
    parser.run();
}

void RtfReader::insert(const QByteArray &rtf, QTextCursor &cursor)
{
    if (cursor.isNull())
        return;
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(rtf);
    if (utf8.hasError()) {
        // Raw high bytes belong to the document's code page; reading them as Latin-1 here
        // would lose characters, so they are decoded the same way as \'hh escapes.
        const int codePage = CodePageFromHeader(rtf);
        if (codePage == kDefaultCodePage) {
            text = DecodeWindows1252(rtf);
        } else {
            QStringDecoder d(DecoderName(codePage).constData());
            text = d.isValid() ? QString(d.decode(rtf)) : DecodeWindows1252(rtf);
        }
    }
    insert(QStringView(text), cursor);
}

void RtfReader::read(QStringView rtf, QTextDocument *document)
{
    if (!document)
        return;
    document->clear();
    QTextCursor cursor(document);
    insert(rtf, cursor);
}

void RtfReader::read(const QByteArray &rtf, QTextDocument *document)
{
    if (!document)
        return;
    document->clear();
    QTextCursor cursor(document);
    insert(rtf, cursor);
}

bool RtfReader::looksLikeRtf(QStringView text)
{
    return text.trimmed().startsWith(u"{\\rtf");
}

} // namespace platform
