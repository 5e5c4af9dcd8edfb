#include "settings/clsIni.h"

#include "platform/FileSystem.h"
#include "platform/MsgBox.h"
#include "platform/TextCodec.h"

#include <QList>

#include <functional>
#include <optional>

namespace {

// Windows hands back at most this many characters: its buffer holds 255 with the closing NUL.
constexpr qsizetype MaxTextLength = 254;

const QByteArray Utf8Bom("\xEF\xBB\xBF");
const QString CrLf = QStringLiteral("\r\n");

struct IniLine
{
    QString text;
    QString end; // the line's own break as found ("" only for a last line without one)
};

struct IniFile
{
    QList<IniLine> lines;
    platform::TextEncoding encoding = platform::TextEncoding::Utf8;
    bool bom = false;
};

enum class LineKind
{
    Other,
    Section,
    Key
};

struct ParsedLine
{
    LineKind kind = LineKind::Other;
    QString name;  // section or key name, trimmed
    QString value; // key value, trimmed
};

ParsedLine parseLine(const QString &text)
{
    const QString line = text.trimmed();
    if (line.startsWith(u'[')) {
        const qsizetype close = line.indexOf(u']');
        if (close < 0)
            return {};
        return {LineKind::Section, line.mid(1, close - 1).trimmed(), QString()};
    }
    if (line.startsWith(u';'))
        return {};
    const qsizetype equals = text.indexOf(u'=');
    if (equals < 0)
        return {};
    return {LineKind::Key, text.left(equals).trimmed(), text.mid(equals + 1).trimmed()};
}

bool sameName(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

// Splits the text into lines, keeping each line's break so untouched lines are written back
// exactly as they were, whatever their line ends.
QList<IniLine> splitKeepingBreaks(const QString &text)
{
    QList<IniLine> lines;
    const qsizetype n = text.size();
    qsizetype start = 0;
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = text.at(i);
        if (c != u'\r' && c != u'\n')
            continue;
        const qsizetype breakLength = (c == u'\r' && i + 1 < n && text.at(i + 1) == u'\n') ? 2 : 1;
        lines.append({text.mid(start, i - start), text.mid(i, breakLength)});
        i += breakLength - 1;
        start = i + 1;
    }
    if (start < n)
        lines.append({text.mid(start), QString()});
    return lines;
}

std::optional<IniFile> readIni(const QString &path)
{
    const std::optional<QByteArray> bytes = platform::ReadFileBytes(path);
    if (!bytes)
        return std::nullopt;
    IniFile file;
    platform::DecodedText decoded;
    if (bytes->startsWith(Utf8Bom)) {
        decoded = platform::DecodeText(bytes->mid(Utf8Bom.size()));
        file.bom = decoded.encoding == platform::TextEncoding::Utf8;
    }
    if (!file.bom)
        decoded = platform::DecodeText(*bytes);
    file.lines = splitKeepingBreaks(decoded.text);
    file.encoding = decoded.encoding;
    return file;
}

QByteArray iniBytes(const IniFile &file)
{
    QString text;
    for (const IniLine &line : file.lines)
        text += line.text + line.end;
    const QByteArray bytes = platform::EncodeText(text, file.encoding);
    // Once a write has replaced the last bytes that were not UTF-8, the single-byte rest can form
    // valid UTF-8 (a mark's three bytes as "ï»¿" among them) and would read back as other letters:
    // such text is written as UTF-8.
    if (file.encoding == platform::TextEncoding::Windows1252 &&
        platform::DecodeText(bytes).encoding == platform::TextEncoding::Utf8)
        return text.toUtf8();
    return file.bom ? Utf8Bom + bytes : bytes;
}

// Where a key lives: the line of the first matching section's header, the line of the first
// matching key in that section, and the last key line of the section (for appending).
struct Location
{
    qsizetype section = -1;
    qsizetype key = -1;
    qsizetype lastKey = -1;
    QString value;
};

Location locate(const QList<IniLine> &lines, const QString &section, const QString &key)
{
    Location at;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const ParsedLine parsed = parseLine(lines.at(i).text);
        if (parsed.kind == LineKind::Section) {
            if (at.section >= 0)
                break;
            if (sameName(parsed.name, section))
                at.section = i;
        } else if (parsed.kind == LineKind::Key && at.section >= 0) {
            at.lastKey = i;
            if (at.key < 0 && sameName(parsed.name, key)) {
                at.key = i;
                at.value = parsed.value;
            }
        }
    }
    return at;
}

// The value as Windows hands it back: one pair of matching quotes removed, cut at a NUL, bounded.
QString profileString(QString value)
{
    if (value.size() >= 2) {
        const QChar first = value.front();
        if ((first == u'"' || first == u'\'') && value.back() == first)
            value = value.mid(1, value.size() - 2);
    }
    const qsizetype nul = value.indexOf(QChar(0));
    if (nul >= 0)
        value.truncate(nul);
    if (value.size() > MaxTextLength) {
        value.truncate(MaxTextLength);
        if (value.back().isHighSurrogate())
            value.chop(1);
    }
    return value;
}

// Reads an integer the way GetPrivateProfileInt does: sign, then digits until the first
// non-digit, wrapping like the 32-bit original.
qint32 leadingInteger(const QString &text)
{
    qsizetype i = 0;
    bool negative = false;
    if (i < text.size() && (text.at(i) == u'-' || text.at(i) == u'+')) {
        negative = text.at(i) == u'-';
        ++i;
    }
    quint32 value = 0;
    for (; i < text.size() && text.at(i) >= u'0' && text.at(i) <= u'9'; ++i)
        value = value * 10u + quint32(text.at(i).unicode() - u'0');
    if (negative)
        value = 0u - value;
    return static_cast<qint32>(value);
}

} // namespace

bool clsIni::Create(const QString &sFile_)
{
    sFile = sFile_;
    return platform::FileExists(sFile);
}

int clsIni::Data(const QString &sSection_, const QString &sKey_) const
{
    const std::optional<IniFile> file = readIni(sFile);
    if (!file)
        return -1;
    const Location at = locate(file->lines, sSection_, sKey_);
    if (at.key < 0)
        return -1;
    const QString value = profileString(at.value);
    if (value.isEmpty())
        return -1;
    // Values are 16-bit in the program: a larger number keeps only its low 16 bits.
    return static_cast<qint16>(leadingInteger(value));
}

void clsIni::setData(const QString &sSection_, const QString &sKey_, int iData_)
{
    writeValue(sSection_, sKey_, QString::number(iData_));
}

QString clsIni::Text(const QString &sSection_, const QString &sKey_) const
{
    const std::optional<IniFile> file = readIni(sFile);
    if (!file)
        return QString();
    const Location at = locate(file->lines, sSection_, sKey_);
    return at.key < 0 ? QString() : profileString(at.value);
}

QList<std::pair<QString, QString>> clsIni::Section(const QString &sSection_) const
{
    QList<std::pair<QString, QString>> keys;
    const std::optional<IniFile> file = readIni(sFile);
    if (!file)
        return keys;
    bool inside = false;
    for (const IniLine &line : file->lines) {
        const ParsedLine parsed = parseLine(line.text);
        if (parsed.kind == LineKind::Section) {
            if (inside)
                break;
            inside = sameName(parsed.name, sSection_);
        } else if (parsed.kind == LineKind::Key && inside) {
            keys.append({parsed.name, profileString(parsed.value)});
        }
    }
    return keys;
}

void clsIni::setText(const QString &sSection_, const QString &sKey_, const QString &sText_)
{
    writeValue(sSection_, sKey_, sText_);
}

// A line break inside a value would split it into lines of its own and corrupt the file.
static QString onOneLine(QString value)
{
    return value.replace(u'\r', u' ').replace(u'\n', u' ');
}

// Reads the file, lets the change edit its lines and writes it back when that changed a byte; the
// failure to tell the user, if any.
static QString editIni(const QString &path,
                       const std::function<void(QList<IniLine> &lines)> &change)
{
    QString failure;
    std::optional<IniFile> file = readIni(path);
    if (!file && platform::FileExists(path))
        failure = QStringLiteral("The file could not be read.");
    const bool existed = file.has_value();
    if (!file)
        file.emplace();
    const QByteArray before = existed ? iniBytes(*file) : QByteArray();

    if (failure.isEmpty()) {
        change(file->lines);
        // A value written as it already stands changes nothing; the disk is spared a save.
        const QByteArray after = iniBytes(*file);
        if (!existed || after != before)
            failure = platform::WriteFileAtomically(path, after);
    }
    return failure;
}

bool clsIni::writeValue(const QString &sSection_, const QString &sKey_, const QString &value)
{
    const QString oneLine = onOneLine(value);
    return reportFailure(editIni(sFile, [&](QList<IniLine> &lines) {
        const Location at = locate(lines, sSection_, sKey_);
        if (at.key >= 0) {
            // Keep the key as the file spells it.
            const QString &old = lines.at(at.key).text;
            const QString spelling = old.left(old.indexOf(u'=')).trimmed();
            lines[at.key].text = spelling + u'=' + oneLine;
        } else {
            const IniLine keyLine{sKey_ + u'=' + oneLine, CrLf};
            if (!lines.isEmpty() && lines.last().end.isEmpty())
                lines.last().end = CrLf;
            if (at.section >= 0) {
                const qsizetype after = at.lastKey >= 0 ? at.lastKey : at.section;
                lines.insert(after + 1, keyLine);
            } else {
                lines.append({u'[' + sSection_ + u']', CrLf});
                lines.append(keyLine);
            }
        }
    }));
}

void clsIni::setSection(const QString &sSection_, const QList<std::pair<QString, QString>> &values)
{
    reportFailure(editIni(sFile, [&](QList<IniLine> &lines) {
        QList<IniLine> keyLines;
        for (const auto &[key, value] : values)
            keyLines.append({key + u'=' + onOneLine(value), CrLf});
        qsizetype header = -1;
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const ParsedLine parsed = parseLine(lines.at(i).text);
            if (parsed.kind == LineKind::Section && sameName(parsed.name, sSection_)) {
                header = i;
                break;
            }
        }
        if (!lines.isEmpty() && lines.last().end.isEmpty())
            lines.last().end = CrLf;
        if (header < 0) {
            lines.append({u'[' + sSection_ + u']', CrLf});
            lines.append(keyLines);
        } else {
            // The section's old keys go; its comments and blank lines stay.
            qsizetype i = header + 1;
            while (i < lines.size()) {
                const ParsedLine parsed = parseLine(lines.at(i).text);
                if (parsed.kind == LineKind::Section)
                    break;
                if (parsed.kind == LineKind::Key)
                    lines.removeAt(i);
                else
                    ++i;
            }
            for (qsizetype k = 0; k < keyLines.size(); ++k)
                lines.insert(header + 1 + k, keyLines.at(k));
        }
    }));
}

bool clsIni::reportFailure(const QString &failure)
{
    if (failure.isEmpty()) {
        m_writeFailureShown = false;
        return true;
    }
    // Saving several values in a row would otherwise repeat the same message for each of them.
    if (!m_writeFailureShown) {
        m_writeFailureShown = true;
        platform::MsgBox(QStringLiteral("The settings could not be saved to '") + sFile +
                             QStringLiteral("'.") + CrLf + failure + CrLf +
                             QStringLiteral("The file was left as it was."),
                         vb::vbOKOnly | vb::vbExclamation);
    }
    return false;
}
