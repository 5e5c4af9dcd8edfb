#include "bookmarks/BookmarkFile.h"

#include "platform/FileSystem.h"
#include "platform/MsgBox.h"
#include "scripture/basStrings.h"

namespace {

const QByteArray kByteOrderMark("\xEF\xBB\xBF");

bool IsBlank(QChar c)
{
    return c == u' ' || c == u'\t';
}

// A character no bookmark holds: the file could not give it back, or it is binary junk.
bool IsControl(QChar c)
{
    return (c.unicode() < 0x20 && c != u'\t') || c.unicode() == 0x7F;
}

QStringView TrimBlanks(QStringView text)
{
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && IsBlank(text.at(start)))
        ++start;
    while (end > start && IsBlank(text.at(end - 1)))
        --end;
    return text.mid(start, end - start);
}

// Text and encoding of the file's bytes; one byte-order mark at the start is not text.
platform::DecodedText Decode(const QByteArray &bytes)
{
    // The UTF-8 decoder drops the mark by itself; the single-byte reading must be told.
    platform::DecodedText decoded = platform::DecodeText(bytes);
    if (decoded.encoding == platform::TextEncoding::Windows1252 && bytes.startsWith(kByteOrderMark))
        decoded.text.remove(0, 3);
    return decoded;
}

QByteArray EncodeFile(const QString &text, platform::TextEncoding encoding)
{
    const auto encode = [&text](platform::TextEncoding as) {
        QByteArray bytes = platform::EncodeText(text, as);
        // A line that starts with the mark's bytes keeps them behind a mark of its own.
        if (bytes.startsWith(kByteOrderMark))
            bytes.prepend(kByteOrderMark);
        return bytes;
    };
    QByteArray bytes = encode(encoding);
    // Single-byte text can happen to form valid UTF-8, which would read back as other letters.
    if (Decode(bytes).text != text)
        bytes = encode(platform::TextEncoding::Utf8);
    return bytes;
}

QString ControlOrQuoteMessage(const QString &text, const QString &what)
{
    if (text.contains(u'"'))
        return QStringLiteral(
                   "A bookmark %1 cannot contain a double quote (\"): the bookmarks file "
                   "could not read it back.\r\nPlease take it out of the %1.")
            .arg(what);
    for (const QChar c : text) {
        if (IsControl(c))
            return QStringLiteral("A bookmark %1 cannot contain a line break or another control "
                                  "character: the bookmarks file could not read it back.\r\n"
                                  "Please take it out of the %1.")
                .arg(what);
    }
    return QString();
}

} // namespace

BookmarkFile::BookmarkFile(const QString &programFolder)
    : m_path(platform::ResolvePath(basStrings::JoinPath(programFolder, FileName())))
{
}

bool BookmarkFile::Exists() const
{
    return platform::FileExists(m_path);
}

std::optional<Bookmark> BookmarkFile::ParseLine(QStringView line)
{
    for (const QChar c : line) {
        if (IsControl(c))
            return std::nullopt;
    }
    QStringList fields;
    qsizetype i = 0;
    const qsizetype n = line.size();
    while (fields.size() <= 2) {
        while (i < n && IsBlank(line.at(i)))
            ++i;
        qsizetype comma = -1;
        if (i < n && line.at(i) == u'"') {
            const qsizetype close = line.indexOf(u'"', i + 1);
            if (close < 0)
                return std::nullopt;
            fields.append(line.mid(i + 1, close - i - 1).toString());
            // Whatever stands between the closing quote and the comma is not part of the field.
            comma = line.indexOf(u',', close + 1);
        } else {
            comma = line.indexOf(u',', i);
            fields.append(TrimBlanks(line.mid(i, (comma < 0 ? n : comma) - i)).toString());
        }
        if (comma < 0)
            break;
        i = comma + 1;
    }
    if (fields.size() != 2)
        return std::nullopt;
    Bookmark bookmark{fields.at(0), fields.at(1)};
    // A quote inside an unquoted field would not survive being written back in quotes.
    if (bookmark.name.contains(u'"') || bookmark.reference.contains(u'"'))
        return std::nullopt;
    return bookmark;
}

QString BookmarkFile::FormatLine(const Bookmark &bookmark)
{
    return u'"' + bookmark.name + QStringLiteral("\",\"") + bookmark.reference + u'"';
}

BookmarkFile::Content BookmarkFile::Parse(const QByteArray &bytes)
{
    const platform::DecodedText decoded = Decode(bytes);
    Content content;
    content.encoding = decoded.encoding;
    const QStringList lines = platform::SplitLines(decoded.text);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString &line = lines.at(i);
        if (TrimBlanks(line).isEmpty())
            continue;
        if (const std::optional<Bookmark> bookmark = ParseLine(line)) {
            content.bookmarks.append(*bookmark);
        } else {
            content.unreadableLines.append(line);
            content.unreadableLineNumbers.append(int(i + 1));
        }
    }
    return content;
}

QByteArray BookmarkFile::Serialize(const QList<Bookmark> &bookmarks, const QStringList &keptLines,
                                   platform::TextEncoding encoding)
{
    QString text;
    for (const Bookmark &bookmark : bookmarks)
        text += FormatLine(bookmark) + QStringLiteral("\r\n");
    for (const QString &line : keptLines)
        text += line + QStringLiteral("\r\n");
    return EncodeFile(text, encoding);
}

QString BookmarkFile::UnwritableText(const QString &name, const QString &reference)
{
    const QString message = ControlOrQuoteMessage(name, QStringLiteral("name"));
    return message.isEmpty() ? ControlOrQuoteMessage(reference, QStringLiteral("reference"))
                             : message;
}

QString BookmarkFile::Refusal(const QString &name, const QString &reference)
{
    if (name.isEmpty())
        return QStringLiteral("Please enter a bookmark name");
    if (reference.isEmpty())
        return QStringLiteral("Please enter a reference");
    return UnwritableText(name, reference);
}

std::optional<BookmarkFile::Content> BookmarkFile::read() const
{
    const std::optional<QByteArray> bytes = platform::ReadFileBytes(m_path);
    if (!bytes) {
        platform::MsgBox(platform::ErrText(75, QStringLiteral("Path/File access error: ") + m_path),
                         vb::vbCritical);
        return std::nullopt;
    }
    return Parse(*bytes);
}

bool BookmarkFile::write(const QByteArray &bytes, const QString &failure) const
{
    const QString reason = platform::WriteFileAtomically(m_path, bytes);
    if (reason.isEmpty())
        return true;
    platform::MsgBox(failure + QStringLiteral(": ") + reason +
                         QStringLiteral("\r\n'bookmarks.dat' is as it was before."),
                     vb::vbCritical);
    return false;
}

std::optional<BookmarkFile::Content> BookmarkFile::Load() const
{
    if (!Exists()) {
        // The wording users know.
        platform::MsgBox(
            QStringLiteral("'bookmarks.dat' is missing from the program's directory!\r\n"
                           "Problem was repaired, click ok to proceed"),
            vb::vbCritical);
        if (!write(QByteArray(), QStringLiteral("'bookmarks.dat' could not be created")))
            return Content();
    }
    return read();
}

bool BookmarkFile::Add(const QString &name, const QString &reference) const
{
    const QString refusal = Refusal(name, reference);
    if (!refusal.isEmpty()) {
        platform::MsgBox(refusal);
        return false;
    }
    QByteArray bytes;
    platform::TextEncoding encoding = platform::TextEncoding::Utf8;
    if (Exists()) {
        const std::optional<QByteArray> old = platform::ReadFileBytes(m_path);
        if (!old) {
            platform::MsgBox(
                platform::ErrText(75, QStringLiteral("Path/File access error: ") + m_path),
                vb::vbCritical);
            return false;
        }
        bytes = *old;
        encoding = Decode(bytes).encoding;
    }
    // A last line without its line end would run into the new one.
    if (!bytes.isEmpty() && !bytes.endsWith('\n') && !bytes.endsWith('\r'))
        bytes += "\r\n";
    const QString line = FormatLine({name, reference}) + QStringLiteral("\r\n");
    if (encoding == platform::TextEncoding::Windows1252 && !platform::FitsWindows1252(line))
        bytes = EncodeFile(Decode(bytes).text + line, platform::TextEncoding::Utf8);
    else
        bytes += platform::EncodeText(line, encoding);
    return write(bytes, QStringLiteral("The bookmark could not be added to 'bookmarks.dat'"));
}

bool BookmarkFile::Save(const QList<Bookmark> &bookmarks) const
{
    Content now;
    if (Exists()) {
        const std::optional<Content> read = this->read();
        // Without the file's own lines, writing would lose the ones that are not bookmarks.
        if (!read)
            return false;
        now = *read;
    }
    return write(Serialize(bookmarks, now.unreadableLines, now.encoding),
                 QStringLiteral("The bookmarks could not be saved to 'bookmarks.dat'"));
}
