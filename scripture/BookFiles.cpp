#include "scripture/BookFiles.h"

#include "platform/FileSystem.h"
#include "scripture/basStrings.h"

#include <QFile>
#include <QHash>
#include <bit>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <system_error>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#ifdef Q_OS_UNIX
#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

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

// Whether the character whose bytes begin at i is one whose capital is, or holds, an ASCII
// letter: "ß", dotless "ı", long "ſ", "ŉ", "ǰ", "ẖ" to "ẚ" and the ligatures "ﬀ" to "ﬆ", in
// UTF-8; "ß" (0xDF) in Windows-1252. The test is on bytes and errs on the safe side.
bool changesIntoAsciiAt(const char *bytes, qsizetype i, qsizetype n)
{
    const auto c = static_cast<unsigned char>(bytes[i]);
    if (c < 0x80)
        return false;
    if (c == 0xDF)
        return true;
    const auto next = i + 1 < n ? static_cast<unsigned char>(bytes[i + 1]) : 0;
    const auto third = i + 2 < n ? static_cast<unsigned char>(bytes[i + 2]) : 0;
    return (c == 0xC3 && next == 0x9F) || (c == 0xC4 && next == 0xB1) ||
           (c == 0xC5 && (next == 0xBF || next == 0x89)) || (c == 0xC7 && next == 0xB0) ||
           (c == 0xE1 && next == 0xBA && third >= 0x96 && third <= 0x9A) ||
           (c == 0xEF && next == 0xAC && third >= 0x80 && third <= 0x86);
}

// Whether a line that is not plain ASCII holds such a character.
bool changesIntoAscii(const char *bytes, qsizetype n)
{
    for (qsizetype i = 0; i < n; ++i) {
        if (changesIntoAsciiAt(bytes, i, n))
            return true;
    }
    return false;
}

#ifdef Q_OS_UNIX
// Book files are mapped into memory rather than read: a search in a fresh process reads all the
// books, and copying 4 MB into fresh memory costs more than the search. A mapped file that shrinks
// on disk would kill the program with SIGBUS when a page past its new end is read, so the mapped
// ranges are listed and a guard catches that signal: the page is replaced by one of zeros and the
// reading goes on. The cache sees the changed size at the next look and reads the file again.
// Pages are mapped as they are first read (the system maps their neighbours with them), which
// costs less than asking for all of them at once.
namespace guard {

constexpr int kSlots = 512;
std::atomic<std::uintptr_t> starts[kSlots];
std::atomic<std::uintptr_t> ends[kSlots];
struct sigaction previous;

void onBusError(int signal, siginfo_t *info, void *context)
{
    const auto address = reinterpret_cast<std::uintptr_t>(info->si_addr);
    for (int i = 0; i < kSlots; ++i) {
        const std::uintptr_t start = starts[i].load(std::memory_order_acquire);
        if (start != 0 && address >= start && address < ends[i].load(std::memory_order_acquire)) {
            const auto page = std::uintptr_t(sysconf(_SC_PAGESIZE));
            // The start of the page, reached from the faulting address itself.
            void *at = static_cast<char *>(info->si_addr) - (address & (page - 1));
            if (mmap(at, page, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0) !=
                MAP_FAILED)
                return;
        }
    }
    // Not a book file's page: whoever handled the signal before does, or the default.
    sigaction(SIGBUS, &previous, nullptr);
    if (previous.sa_flags & SA_SIGINFO) {
        if (previous.sa_sigaction)
            previous.sa_sigaction(signal, info, context);
    } else if (previous.sa_handler != SIG_DFL && previous.sa_handler != SIG_IGN) {
        previous.sa_handler(signal);
    }
}

bool install()
{
    static const bool installed = [] {
        struct sigaction action = {};
        action.sa_sigaction = onBusError;
        action.sa_flags = SA_SIGINFO | SA_NODEFER;
        sigemptyset(&action.sa_mask);
        return sigaction(SIGBUS, &action, &previous) == 0;
    }();
    return installed;
}

// A slot for a mapped range; -1 when all are taken (the file is then read instead).
int add(const void *data, std::size_t size)
{
    const auto start = reinterpret_cast<std::uintptr_t>(data);
    for (int i = 0; i < kSlots; ++i) {
        std::uintptr_t empty = 0;
        if (starts[i].load(std::memory_order_relaxed) == 0) {
            ends[i].store(start + size, std::memory_order_release);
            if (starts[i].compare_exchange_strong(empty, start, std::memory_order_acq_rel))
                return i;
        }
    }
    return -1;
}

void remove(int slot)
{
    starts[slot].store(0, std::memory_order_release);
}

} // namespace guard

// The file mapped, with what unmaps it; nothing when it cannot be mapped (too small to be worth
// it, not a regular file, no slot left).
std::optional<QByteArray> mapFile(int fd, qsizetype size, std::shared_ptr<const void> &mapping)
{
    constexpr qsizetype kSmallest = 16 * 1024;
    if (size < kSmallest || !guard::install())
        return std::nullopt;
    void *data = mmap(nullptr, size_t(size), PROT_READ, MAP_PRIVATE, fd, 0);
    if (data == MAP_FAILED)
        return std::nullopt;
    const int slot = guard::add(data, size_t(size));
    if (slot < 0) {
        munmap(data, size_t(size));
        return std::nullopt;
    }
    mapping = std::shared_ptr<const void>(data, [slot, size](const void *p) {
        guard::remove(slot);
        munmap(const_cast<void *>(p), size_t(size));
    });
    return QByteArray::fromRawData(static_cast<const char *>(data), size);
}
#endif

#ifdef Q_OS_UNIX
// A book file opened for reading, with its size; fd is kCannotOpen when it cannot be opened and
// kNotRegular when it is no regular file (a folder, a device), which is closed again.
constexpr int kCannotOpen = -1;
constexpr int kNotRegular = -2;
struct OpenFile
{
    int fd = kCannotOpen;
    qsizetype size = 0;
};

OpenFile openRegular(const QString &path)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return {};
    struct stat info;
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        ::close(fd);
        return {kNotRegular};
    }
    return {fd, qsizetype(info.st_size)};
}
#endif

// The whole file, mapped where that is worth it, else read.
std::optional<QByteArray> readWhole(const QString &path, std::shared_ptr<const void> &mapping)
{
#ifdef Q_OS_UNIX
    const OpenFile file = openRegular(path);
    if (file.fd == kCannotOpen)
        return platform::ReadFileBytes(path);
    if (file.fd < 0)
        return std::nullopt;
    std::optional<QByteArray> mapped = mapFile(file.fd, file.size, mapping);
    ::close(file.fd);
    // A small file, or one that cannot be mapped, is read as every other file is.
    return mapped ? mapped : platform::ReadFileBytes(path);
#else
    (void)mapping;
    return platform::ReadFileBytes(path);
#endif
}

#ifdef Q_OS_UNIX
// The whole file read into the pool's buffer, which is used again once nothing holds it; a file
// read once is copied into memory already mapped, where a fresh mapping or allocation would cost a
// fault for every few pages.
std::optional<QByteArray> readPooled(const QString &path, std::shared_ptr<const void> &holder)
{
    static std::shared_ptr<char[]> pool;
    static qsizetype poolSize = 0;
    const OpenFile file = openRegular(path);
    if (file.fd < 0)
        return std::nullopt;
    const int fd = file.fd;
    const qsizetype size = file.size;
    if (!pool || pool.use_count() > 1 || poolSize < size) {
        // Room for the next few files too, which are mostly smaller; a buffer still held (by a
        // search that keeps what it read) is left to its holder.
        constexpr qsizetype kStep = 256 * 1024;
        poolSize = (size / kStep + 1) * kStep;
        pool = std::shared_ptr<char[]>(new char[size_t(poolSize)]);
    }
    // A file that shrinks meanwhile is taken as far as it goes.
    qsizetype got = 0;
    while (got < size) {
        const ssize_t n = ::read(fd, pool.get() + got, size_t(size - got));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            break;
        got += n;
    }
    ::close(fd);
    holder = pool;
    return QByteArray::fromRawData(pool.get(), got);
}
#endif

bool onePass = false;

std::shared_ptr<BookFiles::Bytes> readBytes(const QString &path)
{
    std::shared_ptr<const void> mapping;
#ifdef Q_OS_UNIX
    std::optional<QByteArray> bytes =
        onePass ? readPooled(path, mapping) : readWhole(path, mapping);
#else
    std::optional<QByteArray> bytes = readWhole(path, mapping);
#endif
    if (!bytes)
        return nullptr;
    auto content = std::make_shared<BookFiles::Bytes>();
    content->bytes = std::move(*bytes);
    content->mapping = std::move(mapping);
    return content;
}

QList<BookFiles::Bytes::Span> split(const BookFiles::Bytes &file)
{
    QList<BookFiles::Bytes::Span> lines;
    const qsizetype n = file.bytes.size();
    const char *in = file.bytes.constData();
    // Lines end at CR LF, LF or CR; a final line break does not start an empty line.
    lines.reserve(n / 64);
    qsizetype start = 0;
    // Where every CR stands before an LF (as in all book files written on Windows or by the
    // program), a line ends at the next LF alone: one look for each line instead of two.
    bool loneCr = false;
    for (const char *cr = static_cast<const char *>(std::memchr(in, '\r', size_t(n))); cr;
         cr = static_cast<const char *>(std::memchr(cr + 1, '\r', size_t(in + n - cr - 1)))) {
        if (cr + 1 == in + n || cr[1] != '\n') {
            loneCr = true;
            break;
        }
    }
    if (!loneCr) {
        // A file of plain ASCII throughout (most are) needs no look at each line's characters.
        const bool allAscii = isAscii(in, n);
        const auto line = [&](qsizetype end) {
            if (end > start && in[end - 1] == '\r')
                --end;
            const bool ascii = allAscii || isAscii(in + start, end - start);
            lines.append(
                {start, end - start, ascii, ascii || !changesIntoAscii(in + start, end - start)});
        };
        qsizetype i = 0;
#ifdef __SSE2__
        // The line feeds of sixteen bytes at a time.
        const __m128i feed = _mm_set1_epi8('\n');
        for (; i + 16 <= n; i += 16) {
            unsigned mask = unsigned(_mm_movemask_epi8(
                _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i *>(in + i)), feed)));
            while (mask) {
                const qsizetype at = i + std::countr_zero(mask);
                line(at);
                start = at + 1;
                mask &= mask - 1;
            }
        }
#endif
        for (; i < n; ++i) {
            if (in[i] == '\n') {
                line(i);
                start = i + 1;
            }
        }
        if (start < n) {
            line(n);
            start = n;
        }
    }
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
        lines.append(
            {start, end - start, ascii, ascii || !changesIntoAscii(in + start, end - start)});
        start = next;
    }
    return lines;
}

} // namespace

std::shared_ptr<const BookFiles::Content> BookFiles::lines(const QString &path)
{
    return load<Content>(path, readLines);
}

std::shared_ptr<const BookFiles::Bytes> BookFiles::bytes(const QString &path)
{
    // Read once, a file is not kept, so there is no stamp to compare. The name as written is
    // nearly always right: it is tried before the folder is searched for it.
    if (onePass) {
        if (!platform::IsUsablePath(path))
            return nullptr;
        std::shared_ptr<Bytes> content = readBytes(path);
        return content ? content : readBytes(resolved(path, false));
    }
    return load<Bytes>(path, readBytes);
}

const QList<BookFiles::Bytes::Span> &BookFiles::Bytes::Lines() const
{
    if (!m_lines)
        m_lines = split(*this);
    return *m_lines;
}

BookFiles::Bytes::Span BookFiles::Bytes::PlainLineAt(qsizetype start) const
{
    const char *in = bytes.constData();
    const auto *lf =
        static_cast<const char *>(std::memchr(in + start, '\n', size_t(bytes.size() - start)));
    qsizetype end = lf ? lf - in : bytes.size();
    if (end > start && in[end - 1] == '\r')
        --end;
    return {start, end - start, isAscii(in + start, end - start), true};
}

bool BookFiles::Bytes::PlainBetween(qsizetype from, qsizetype to) const
{
    const char *in = bytes.constData();
    const qsizetype n = bytes.size();
    const auto plainAt = [&](qsizetype i) {
        const auto c = static_cast<unsigned char>(in[i]);
        return c == '\r' ? i + 1 < n && in[i + 1] == '\n'
                         : c < 0x80 || !changesIntoAsciiAt(in, i, n);
    };
    qsizetype i = from;
#ifdef __SSE2__
    // Sixteen bytes at a time, looked at one by one only where a CR or a byte outside ASCII is.
    const __m128i cr = _mm_set1_epi8('\r');
    for (; i + 16 <= to; i += 16) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i *>(in + i));
        if (_mm_movemask_epi8(_mm_or_si128(block, _mm_cmpeq_epi8(block, cr)))) {
            for (qsizetype k = i; k < i + 16; ++k) {
                if (!plainAt(k))
                    return false;
            }
        }
    }
#endif
    for (; i < to; ++i) {
        if (!plainAt(i))
            return false;
    }
    return true;
}

qsizetype BookFiles::Bytes::PlainNextLine(qsizetype start) const
{
    const char *in = bytes.constData();
    const auto *lf =
        static_cast<const char *>(std::memchr(in + start, '\n', size_t(bytes.size() - start)));
    return lf ? lf - in + 1 : bytes.size();
}

platform::TextEncoding BookFiles::Bytes::encoding() const
{
    // A file is UTF-8 when all its bytes are, looked at once a line has to be decoded.
    if (!m_encoding)
        m_encoding = QByteArrayView(bytes).isValidUtf8() ? platform::TextEncoding::Utf8
                                                         : platform::TextEncoding::Windows1252;
    return *m_encoding;
}

QString BookFiles::Bytes::Text(qsizetype line) const
{
    return Text(Lines().at(line));
}

QString BookFiles::Bytes::Text(const Span &span) const
{
    const QByteArrayView raw = QByteArrayView(bytes).sliced(span.start, span.length);
    if (span.ascii)
        return QString::fromLatin1(raw);
    QString text = encoding() == platform::TextEncoding::Utf8 ? QString::fromUtf8(raw)
                                                              : platform::DecodeWindows1252(raw);
    // The file's text begins after its byte-order mark.
    if (span.start == 0 && text.startsWith(QChar(0xFEFF)) &&
        encoding() == platform::TextEncoding::Utf8)
        text.remove(0, 1);
    return text;
}

const QString &BookFiles::Bytes::UpperText(qsizetype line) const
{
    if (m_upperText.size() != Lines().size())
        m_upperText.resize(Lines().size());
    QString &upper = m_upperText[line];
    if (upper.isNull())
        upper = basStrings::UpperCase(Text(line));
    return upper;
}

void BookFiles::setOnePass(bool read)
{
    onePass = read;
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
