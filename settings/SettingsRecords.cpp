#include "settings/SettingsRecords.h"

#include "platform/FileSystem.h"
#include "platform/MsgBox.h"
#include "platform/TextCodec.h"

#include <QtEndian>
#include <array>
#include <optional>

namespace {

void putInt32(QByteArray &bytes, qint32 value)
{
    char raw[4];
    qToLittleEndian(value, raw);
    bytes.append(raw, 4);
}

void putInt16(QByteArray &bytes, qint16 value)
{
    char raw[2];
    qToLittleEndian(value, raw);
    bytes.append(raw, 2);
}

qint32 int32At(QByteArrayView bytes, qsizetype offset)
{
    return qFromLittleEndian<qint32>(bytes.data() + offset);
}

qint16 int16At(QByteArrayView bytes, qsizetype offset)
{
    return qFromLittleEndian<qint16>(bytes.data() + offset);
}

// The font name is stored as single-byte ANSI characters; one that has no such byte becomes "?",
// as Windows itself writes it.
QByteArray ansiBytes(const QString &text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar c : text) {
        const QString one(c);
        bytes.append(platform::FitsWindows1252(one)
                         ? platform::EncodeText(one, platform::TextEncoding::Windows1252)
                         : QByteArray("?"));
    }
    return bytes;
}

// The record at the start of the file, or nothing when the file is missing or too short.
std::optional<QByteArray> readRecord(const QString &path, int length)
{
    std::optional<QByteArray> bytes = platform::ReadFileBytes(path);
    if (!bytes || bytes->size() < length)
        return std::nullopt;
    return bytes->left(length);
}

// Record 1 of a file into a record; a missing or short file gives the defaults.
template <typename Record> bool readInto(Record &record, const QString &path)
{
    const std::optional<QByteArray> bytes = readRecord(path, Record::RecordLength);
    record = bytes ? Record::fromBytes(*bytes) : Record::Defaults();
    return bytes.has_value();
}

// Replaces record 1 and keeps whatever a longer file holds beyond it.
bool writeRecord(const QString &path, const QByteArray &record)
{
    QByteArray bytes = platform::ReadFileBytes(path).value_or(QByteArray());
    if (bytes.size() > record.size())
        bytes.replace(0, record.size(), record);
    else
        bytes = record;
    const QString failure = platform::WriteFileAtomically(path, bytes);
    if (failure.isEmpty())
        return true;
    platform::MsgBox(QStringLiteral("The settings could not be saved to '") + path +
                         QStringLiteral("'.\r\n") + failure +
                         QStringLiteral("\r\nThe file was left as it was."),
                     vb::vbOKOnly | vb::vbExclamation);
    return false;
}

} // namespace

QString TextStyle::FixedFontName(const QString &name)
{
    return name.left(FontNameLength).leftJustified(FontNameLength, u' ');
}

QString TextStyle::trimFontName()
{
    QString name = FontName;
    const qsizetype nul = name.indexOf(QChar(0));
    if (nul >= 0)
        name.truncate(nul);
    // Only blanks are padding: a tab or other character belongs to the name as stored.
    while (name.startsWith(u' '))
        name.remove(0, 1);
    while (name.endsWith(u' '))
        name.chop(1);
    FontName = FixedFontName(name);
    return name;
}

QByteArray TextStyle::toBytes() const
{
    QByteArray bytes;
    bytes.reserve(RecordLength);
    putInt32(bytes, BackColor);
    putInt32(bytes, ForeColor);
    bytes.append(ansiBytes(FixedFontName(FontName)));
    putInt32(bytes, FontSize);
    putInt16(bytes, FontBold);
    putInt16(bytes, FontItalic);
    return bytes;
}

TextStyle TextStyle::fromBytes(QByteArrayView bytes)
{
    TextStyle style;
    if (bytes.size() < RecordLength)
        return style;
    style.BackColor = int32At(bytes, 0);
    style.ForeColor = int32At(bytes, 4);
    style.FontName = platform::DecodeWindows1252(bytes.sliced(8, FontNameLength));
    style.FontSize = int32At(bytes, 40);
    style.FontBold = int16At(bytes, 44);
    style.FontItalic = int16At(bytes, 46);
    return style;
}

QByteArray DisplaySettings::toBytes() const
{
    QByteArray bytes = navigation.toBytes() + passage.toBytes() + title.toBytes();
    putInt32(bytes, RightClickColor);
    return bytes;
}

DisplaySettings DisplaySettings::fromBytes(QByteArrayView bytes)
{
    DisplaySettings display;
    if (bytes.size() < RecordLength)
        return display;
    display.navigation = TextStyle::fromBytes(bytes.sliced(0, TextStyle::RecordLength));
    display.passage = TextStyle::fromBytes(bytes.sliced(48, TextStyle::RecordLength));
    display.title = TextStyle::fromBytes(bytes.sliced(96, TextStyle::RecordLength));
    display.RightClickColor = int32At(bytes, 144);
    return display;
}

bool DisplaySettings::read(const QString &path)
{
    return readInto(*this, path);
}

bool DisplaySettings::write(const QString &path) const
{
    return writeRecord(path, toBytes());
}

QByteArray GeneralSettings::toBytes() const
{
    QByteArray bytes;
    putInt16(bytes, lineBreaks);
    putInt16(bytes, maxSearchResults);
    return bytes;
}

GeneralSettings GeneralSettings::fromBytes(QByteArrayView bytes)
{
    GeneralSettings general;
    if (bytes.size() < RecordLength)
        return general;
    general.lineBreaks = int16At(bytes, 0);
    general.maxSearchResults = int16At(bytes, 2);
    return general;
}

bool GeneralSettings::read(const QString &path)
{
    return readInto(*this, path);
}

bool GeneralSettings::write(const QString &path) const
{
    return writeRecord(path, toBytes());
}
