// A second testament's "map.dat" of any content (the input) beside a sound first one: every line
// reads as a book of at most 30 characters and 0 to 255 chapters or fails as list input does;
// loading the translation takes the books in the map's order or reports that it could not; and
// the book lists, book names and fetching agree with each other.
#include "FuzzSupport.h"
#include "platform/TextCodec.h"
#include "platform/VbError.h"
#include "scripture/BookFiles.h"
#include "scripture/BookMap.h"
#include "scripture/clsBible.h"

#include <cstdint>

namespace {

constexpr int kFirstTestamentBooks = 3;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::quietMessages();
    if (size > 16384)
        return 0;
    const QByteArray map(reinterpret_cast<const char *>(data), qsizetype(size));
    BookFiles::clear();
    const QString root = fuzz::freshFolder(QStringLiteral("MAP"));
    fuzz::write(root + QStringLiteral("/bible.dat"), "Fuzz\r\nOld\r\nNew\r\n");
    fuzz::write(root + QStringLiteral("/oldtest/map.dat"),
                "\"Genesis\",2\r\n\"Exodus\",1\r\n\"Ruth\",1\r\n");
    fuzz::write(root + QStringLiteral("/newtest/map.dat"), map);
    const QByteArray book =
        "Fuzz\r\nCHAPTER 1\r\n1 In the beginning\r\n2 was the Word\r\nCHAPTER 2\r\n1 And\r\n";
    for (const char *name : {"MATTHEW", "mark", "John", "1JOHN"})
        fuzz::write(root + QStringLiteral("/newtest/") + QString::fromLatin1(name) +
                        QStringLiteral(".dat"),
                    book);

    // Each line on its own.
    QList<BookMap::Entry> books;
    bool sound = true;
    for (const QString &line : platform::SplitLines(platform::DecodeText(map).text)) {
        if (BookMap::IsBlank(line))
            continue;
        VbError error;
        const std::optional<BookMap::Entry> entry = BookMap::Parse(line, &error);
        if (entry) {
            FUZZ_CHECK(entry->name.size() <= BookMap::NameWidth);
            FUZZ_CHECK(entry->chapters >= 0 && entry->chapters <= 255);
            books.append(*entry);
        } else {
            FUZZ_CHECK(error.number == 13 || error.number == 6);
            sound = false;
        }
    }

    clsBible bible;
    bible.setVersionPath(root);
    if (!sound || kFirstTestamentBooks + books.size() > clsBible::MaxBooks) {
        FUZZ_CHECK(bible.LastReadFailed());
        return 0;
    }
    FUZZ_CHECK(!bible.LastReadFailed());
    FUZZ_CHECK(bible.OldTestamentCount() == kFirstTestamentBooks);
    FUZZ_CHECK(bible.NewTestamentCount() == books.size());
    for (int b = 1; b <= bible.BooksCount(); ++b) {
        if (b > kFirstTestamentBooks) {
            const BookMap::Entry &entry = books.at(b - kFirstTestamentBooks - 1);
            FUZZ_CHECK(bible.BookName(b) == entry.name.trimmed());
            FUZZ_CHECK(bible.Chapters(b) == entry.chapters);
        }
        FUZZ_CHECK(bible.BookByRow(bible.TestamentOfBook(b), bible.RowOfBook(b)) == b);
        const int byName = bible.BookByName(bible.BookName(b));
        FUZZ_CHECK(byName >= 1 && byName <= b);
        bible.FetchPassage(bible.BookName(b), 1, 2, 2, 1);
    }
    return 0;
}
