#include "scripture/BookFiles.h"

#include "platform/FileSystem.h"
#include "scripture/basStrings.h"

#include <QHash>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace {

struct Stamp
{
    std::uintmax_t size = 0;
    std::filesystem::file_time_type time{};
    bool operator==(const Stamp &) const = default;
};

template <typename Content> struct Entry
{
    Stamp stamp;
    std::shared_ptr<Content> content;
};

template <typename Content> QHash<QString, Entry<Content>> &cache()
{
    static QHash<QString, Entry<Content>> entries;
    return entries;
}

bool stampOf(const QString &path, Stamp &stamp)
{
    // One look at the file: a search asks for all 66 books each time.
    std::error_code ec;
    const std::filesystem::directory_entry entry(std::filesystem::path(path.toStdString()), ec);
    if (ec || !entry.is_regular_file(ec))
        return false;
    stamp.size = entry.file_size(ec);
    if (ec)
        return false;
    stamp.time = entry.last_write_time(ec);
    return !ec;
}

// Finding a file's name without regard to case reads its folders; the name found is kept, and
// looked for again only when the file is no longer there.
QHash<QString, QString> &resolvedPaths()
{
    static QHash<QString, QString> paths;
    return paths;
}

QString resolved(const QString &path, bool again)
{
    auto it = resolvedPaths().constFind(path);
    if (!again && it != resolvedPaths().cend())
        return *it;
    const QString found = platform::ResolvePath(path);
    resolvedPaths().insert(path, found);
    return found;
}

// The file's content as the reader makes it, from the cache while the file is unchanged.
template <typename Content, typename Read>
std::shared_ptr<Content> load(const QString &path, Read read)
{
    if (!platform::IsUsablePath(path))
        return nullptr;
    QString file = resolved(path, false);
    Stamp stamp;
    if (!stampOf(file, stamp)) {
        cache<Content>().remove(file);
        file = resolved(path, true);
        if (!stampOf(file, stamp))
            return nullptr;
    }
    auto it = cache<Content>().find(file);
    if (it != cache<Content>().end() && it->stamp == stamp)
        return it->content;
    std::shared_ptr<Content> content = read(file);
    if (content)
        cache<Content>().insert(file, Entry<Content>{stamp, content});
    return content;
}

std::shared_ptr<BookFiles::Content> readLines(const QString &path)
{
    std::optional<platform::TextFileContent> text = platform::ReadTextLines(path);
    if (!text)
        return nullptr;
    auto content = std::make_shared<BookFiles::Content>();
    content->lines = std::move(text->lines);
    return content;
}

// Whether the bytes are all plain ASCII, eight at a time.
bool isAscii(const char *bytes, qsizetype n)
{
    qsizetype i = 0;
    std::uint64_t high = 0;
    for (; i + 8 <= n; i += 8) {
        std::uint64_t word;
        std::memcpy(&word, bytes + i, 8);
        high |= word;
    }
    for (; i < n; ++i)
        high |= static_cast<unsigned char>(bytes[i]);
    return (high & 0x8080808080808080ULL) == 0;
}

// Whether a line that is not plain ASCII holds a character whose capital is, or holds, an ASCII
// letter: "ß", dotless "ı", long "ſ", "ŉ", "ǰ", "ẖ" to "ẚ" and the ligatures "ﬀ" to "ﬆ", in
// UTF-8; "ß" (0xDF) in Windows-1252. The test is on bytes and errs on the safe side.
bool changesIntoAscii(const char *bytes, qsizetype n)
{
    for (qsizetype i = 0; i < n; ++i) {
        const auto c = static_cast<unsigned char>(bytes[i]);
        if (c < 0x80)
            continue;
        if (c == 0xDF)
            return true;
        const auto next = i + 1 < n ? static_cast<unsigned char>(bytes[i + 1]) : 0;
        const auto third = i + 2 < n ? static_cast<unsigned char>(bytes[i + 2]) : 0;
        if ((c == 0xC3 && next == 0x9F) || (c == 0xC4 && next == 0xB1) ||
            (c == 0xC5 && (next == 0xBF || next == 0x89)) || (c == 0xC7 && next == 0xB0) ||
            (c == 0xE1 && next == 0xBA && third >= 0x96 && third <= 0x9A) ||
            (c == 0xEF && next == 0xAC && third >= 0x80 && third <= 0x86))
            return true;
    }
    return false;
}

std::shared_ptr<BookFiles::Bytes> readBytes(const QString &path)
{
    std::optional<QByteArray> bytes = platform::ReadFileBytes(path);
    if (!bytes)
        return nullptr;
    auto content = std::make_shared<BookFiles::Bytes>();
    content->bytes = std::move(*bytes);
    const qsizetype n = content->bytes.size();
    const char *in = content->bytes.constData();
    // Lines end at CR LF, LF or CR; a final line break does not start an empty line.
    content->lines.reserve(n / 64);
    qsizetype start = 0;
    while (start < n) {
        const char *lf =
            static_cast<const char *>(std::memchr(in + start, '\n', size_t(n - start)));
        qsizetype end = lf ? lf - in : n;
        // A CR ends a line too: before the LF, or alone.
        const char *cr =
            static_cast<const char *>(std::memchr(in + start, '\r', size_t(end - start)));
        qsizetype next;
        if (cr) {
            end = cr - in;
            next = end + 1 < n && in[end + 1] == '\n' ? end + 2 : end + 1;
        } else {
            next = lf ? end + 1 : n;
        }
        const bool ascii = isAscii(in + start, end - start);
        content->lines.append(
            {start, end - start, ascii, ascii || !changesIntoAscii(in + start, end - start)});
        start = next;
    }
    return content;
}

} // namespace

std::shared_ptr<const BookFiles::Content> BookFiles::lines(const QString &path)
{
    return load<Content>(path, readLines);
}

std::shared_ptr<const BookFiles::Bytes> BookFiles::bytes(const QString &path)
{
    return load<Bytes>(path, readBytes);
}

platform::TextEncoding BookFiles::Bytes::encoding() const
{
    // A file is UTF-8 when all its bytes are; the lines of plain ASCII are, so only the others
    // need a look, and only once a line has to be decoded.
    if (!m_encoding) {
        m_encoding = platform::TextEncoding::Utf8;
        for (const Span &span : lines) {
            if (!span.ascii &&
                !QByteArrayView(bytes).sliced(span.start, span.length).isValidUtf8()) {
                m_encoding = platform::TextEncoding::Windows1252;
                break;
            }
        }
    }
    return *m_encoding;
}

QString BookFiles::Bytes::Text(qsizetype line) const
{
    const Span &span = lines.at(line);
    const QByteArrayView raw = QByteArrayView(bytes).sliced(span.start, span.length);
    if (span.ascii)
        return QString::fromLatin1(raw);
    QString text = encoding() == platform::TextEncoding::Utf8 ? QString::fromUtf8(raw)
                                                              : platform::DecodeWindows1252(raw);
    // The file's text begins after its byte-order mark.
    if (line == 0 && text.startsWith(QChar(0xFEFF)) && encoding() == platform::TextEncoding::Utf8)
        text.remove(0, 1);
    return text;
}

const QString &BookFiles::Bytes::UpperText(qsizetype line) const
{
    if (m_upperText.size() != lines.size())
        m_upperText.resize(lines.size());
    QString &upper = m_upperText[line];
    if (upper.isNull())
        upper = basStrings::UpperCase(Text(line));
    return upper;
}

void BookFiles::forget(const QString &path)
{
    const QString file = platform::ResolvePath(path);
    cache<Content>().remove(file);
    cache<Bytes>().remove(file);
    resolvedPaths().remove(path);
}

void BookFiles::clear()
{
    cache<Content>().clear();
    cache<Bytes>().clear();
    resolvedPaths().clear();
}
