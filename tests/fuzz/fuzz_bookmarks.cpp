// Bookmark files of any content: reading never crashes, every line that is not blank is either a
// bookmark or kept as it stands, and what is written back reads the same again.
#include "FuzzSupport.h"
#include "bookmarks/BookmarkFile.h"
#include "platform/TextCodec.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::quietMessages();
    if (size > 65536)
        return 0;
    const QByteArray input(reinterpret_cast<const char *>(data), qsizetype(size));
    const BookmarkFile::Content content = BookmarkFile::Parse(input);

    // The same text the reader sees: a byte-order mark at the start is no part of it.
    platform::DecodedText decoded = platform::DecodeText(input);
    if (decoded.encoding == platform::TextEncoding::Windows1252 && input.startsWith("\xEF\xBB\xBF"))
        decoded.text.remove(0, 3);
    qsizetype lines = 0;
    for (const QString &line : platform::SplitLines(decoded.text)) {
        for (const QChar c : line) {
            if (c != u' ' && c != u'\t') {
                ++lines;
                break;
            }
        }
    }
    if (content.bookmarks.size() + content.unreadableLines.size() != lines)
        std::abort();

    const QByteArray written =
        BookmarkFile::Serialize(content.bookmarks, content.unreadableLines, content.encoding);
    const BookmarkFile::Content again = BookmarkFile::Parse(written);
    if (again.bookmarks != content.bookmarks || again.unreadableLines != content.unreadableLines)
        std::abort();
    for (const Bookmark &bookmark : content.bookmarks) {
        if (BookmarkFile::ParseLine(BookmarkFile::FormatLine(bookmark)) != bookmark)
            std::abort();
    }
    return 0;
}
