// Notes of any text saved into a book file of any bytes: the chapter's lines become the guarded
// text, every other line keeps its characters (and its bytes while the file keeps its encoding),
// and the chapter reads back as saved. Input: one byte choosing the chapter, the book file's
// bytes, a NUL-NUL, then the notes as UTF-8.
#include "FuzzSupport.h"
#include "platform/TextCodec.h"
#include "scripture/ChapterMarker.h"
#include "scripture/ChapterSection.h"
#include "scripture/NotesStore.h"

#include <QFile>
#include <cstdint>

namespace {

// The lines of a file's bytes without their line breaks (and without a UTF-8 byte order mark).
QList<QByteArray> byteLines(QByteArray bytes, platform::TextEncoding encoding)
{
    if (encoding == platform::TextEncoding::Utf8 && bytes.startsWith("\xEF\xBB\xBF"))
        bytes.remove(0, 3);
    QList<QByteArray> lines;
    qsizetype start = 0;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '\r' || bytes[i] == '\n') {
            lines.append(bytes.mid(start, i - start));
            if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n')
                ++i;
            start = i + 1;
        }
    }
    if (start < bytes.size())
        lines.append(bytes.mid(start));
    return lines;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::quietMessages();
    if (size < 1 || size > 65536)
        return 0;
    const int chapter = 1 + data[0] % 8;
    const QByteArray input(reinterpret_cast<const char *>(data) + 1, qsizetype(size - 1));
    const qsizetype cut = input.indexOf(QByteArray("\0\0", 2));
    const QByteArray before = cut < 0 ? input : input.left(cut);
    const QString text =
        NotesStore::Storable(cut < 0 ? QString() : QString::fromUtf8(input.mid(cut + 2)));

    const QString path = fuzz::scratch().path() + QStringLiteral("/notes/oldtest/GENESIS");
    fuzz::write(path + QStringLiteral(".dat"), before);
    FUZZ_CHECK(ChapterSection::Rewrite(path, chapter, text).isEmpty());
    const QByteArray after = fuzz::read(path + QStringLiteral(".dat"));

    const platform::DecodedText oldText = platform::DecodeText(before);
    const platform::DecodedText newText = platform::DecodeText(after);
    const QStringList oldLines = platform::SplitLines(oldText.text);
    const QStringList newLines = platform::SplitLines(newText.text);
    const QStringList written = platform::SplitLines(text);
    for (const QString &line : written)
        FUZZ_CHECK(!ChapterMarker::MayReadAsMarker(line));

    // Where the chapter was (its marker and the first line after its lines), or where it goes.
    qsizetype keepHead = 0;
    qsizetype tail = 0;
    QStringList expected;
    while (keepHead < oldLines.size() && !ChapterMarker::IsMarkerOf(oldLines.at(keepHead), chapter))
        ++keepHead;
    if (keepHead < oldLines.size()) {
        tail = ++keepHead;
        while (tail < oldLines.size() && !ChapterMarker::IsMarker(oldLines.at(tail)))
            ++tail;
        expected = oldLines.mid(0, keepHead) + written + oldLines.mid(tail);
    } else {
        keepHead = 0;
        while (keepHead < oldLines.size() &&
               !(ChapterMarker::IsMarker(oldLines.at(keepHead)) &&
                 ChapterMarker::Number(oldLines.at(keepHead)) > chapter))
            ++keepHead;
        tail = keepHead;
        expected = oldLines.mid(0, keepHead) +
                   QStringList{QStringLiteral("CHAPTER %1").arg(chapter)} + written +
                   oldLines.mid(tail);
    }
    FUZZ_CHECK(newLines == expected);
    FUZZ_CHECK(ChapterSection::Read(path, chapter) ==
               (written.isEmpty() ? QString()
                                  : written.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n")));

    // A UTF-8 file stays UTF-8; while the encoding holds, the other lines keep their bytes.
    FUZZ_CHECK(oldText.encoding == platform::TextEncoding::Windows1252 ||
               newText.encoding == platform::TextEncoding::Utf8);
    if (oldText.encoding == newText.encoding) {
        const QList<QByteArray> oldBytes = byteLines(before, oldText.encoding);
        const QList<QByteArray> newBytes = byteLines(after, newText.encoding);
        FUZZ_CHECK(newBytes.mid(0, keepHead) == oldBytes.mid(0, keepHead));
        FUZZ_CHECK(newBytes.mid(tail + newLines.size() - oldLines.size()) == oldBytes.mid(tail));
    }
    return 0;
}
