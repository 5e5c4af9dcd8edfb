#include "scripture/ChapterSection.h"

#include "platform/FileSystem.h"
#include "platform/TextCodec.h"
#include "scripture/BookFiles.h"
#include "scripture/ChapterMarker.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QList>

namespace ChapterSection {

namespace {

// Where a line's bytes begin and where they end, line break included.
struct Span
{
    qsizetype begin = 0;
    qsizetype end = 0;
};

// The lines of a file's bytes, split where platform::SplitLines splits the decoded text. CR and LF
// are single bytes that stand for nothing else in UTF-8 or Windows-1252, so line i of the bytes is
// line i of the text the store reads.
QList<Span> lineSpans(const QByteArray &bytes, qsizetype from)
{
    QList<Span> spans;
    const qsizetype n = bytes.size();
    qsizetype start = from;
    for (qsizetype i = from; i < n; ++i) {
        const char c = bytes.at(i);
        if (c == '\r' || c == '\n') {
            if (c == '\r' && i + 1 < n && bytes.at(i + 1) == '\n')
                ++i;
            spans.append({start, i + 1});
            start = i + 1;
        }
    }
    if (start < n)
        spans.append({start, n});
    return spans;
}

// The same lines of the decoded text, as platform::SplitLines gives them, without copying them.
QList<QStringView> lineViews(QStringView text)
{
    QList<QStringView> views;
    const qsizetype n = text.size();
    qsizetype start = 0;
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = text[i];
        if (c == u'\r' || c == u'\n') {
            views.append(text.sliced(start, i - start));
            if (c == u'\r' && i + 1 < n && text[i + 1] == u'\n')
                ++i;
            start = i + 1;
        }
    }
    if (start < n)
        views.append(text.sliced(start));
    return views;
}

bool endsWithLineBreak(const QByteArray &bytes)
{
    return bytes.endsWith('\r') || bytes.endsWith('\n');
}

// The new content of a book file: the old bytes with one chapter's lines replaced by `section`.
QByteArray spliced(const QByteArray &old, int chapter, const QString &section)
{
    const platform::DecodedText decoded = platform::DecodeText(old);
    const QList<QStringView> lines = lineViews(decoded.text);
    // Decoding drops a UTF-8 byte order mark; the first line starts after it, so a marker put in
    // front of the first line does not push the mark into the middle of the file.
    const bool bom =
        decoded.encoding == platform::TextEncoding::Utf8 && old.startsWith("\xEF\xBB\xBF");
    const QList<Span> spans = lineSpans(old, bom ? 3 : 0);
    const qsizetype n = std::min(lines.size(), spans.size());
    const bool lastLineOpen = !spans.isEmpty() && !endsWithLineBreak(old);

    qsizetype marker = 0;
    while (marker < n && !ChapterMarker::IsMarkerOf(lines.at(marker), chapter))
        ++marker;

    QByteArray head;
    qsizetype from = 0;
    qsizetype to = 0;
    if (marker < n) {
        qsizetype next = marker + 1;
        while (next < n && !ChapterMarker::IsMarker(lines.at(next)))
            ++next;
        from = spans.at(marker).end;
        to = next < n ? spans.at(next).begin : old.size();
        // A marker on the file's last line, without a line break, gets one before the text.
        if (marker + 1 == n && lastLineOpen && !section.isEmpty())
            head = "\r\n";
    } else {
        // In chapter order: before the first marker of a later chapter, else at the end.
        qsizetype later = 0;
        while (later < n && !(ChapterMarker::IsMarker(lines.at(later)) &&
                              ChapterMarker::Number(lines.at(later)) > chapter))
            ++later;
        from = to = later < n ? spans.at(later).begin : old.size();
        if (later == n && lastLineOpen)
            head = "\r\n";
        head += "CHAPTER " + QByteArray::number(chapter) + "\r\n";
    }

    const QByteArray encoded = platform::EncodeText(section, decoded.encoding);
    QByteArray result;
    result.reserve(from + head.size() + encoded.size() + old.size() - to);
    result.append(QByteArrayView(old).first(from))
        .append(head)
        .append(encoded)
        .append(QByteArrayView(old).sliced(to));
    if (decoded.encoding == platform::TextEncoding::Windows1252 &&
        (!platform::FitsWindows1252(section) ||
         platform::DecodeText(result).encoding != platform::TextEncoding::Windows1252)) {
        // The text cannot be written in Windows-1252, or the file would read as UTF-8 from now on
        // and the other chapters' accented letters would change: the whole file becomes UTF-8,
        // which keeps every character though not every byte.
        result = (platform::DecodeWindows1252(QByteArrayView(old).first(from)) +
                  QString::fromLatin1(head) + section +
                  platform::DecodeWindows1252(QByteArrayView(old).sliced(to)))
                     .toUtf8();
    }
    return result;
}

} // namespace

QString Read(const QString &pathWithoutDat, int chapter)
{
    const std::shared_ptr<const BookFiles::Content> file =
        BookFiles::lines(pathWithoutDat + QStringLiteral(".dat"));
    if (!file)
        return QString();
    QString text;
    bool inside = false;
    for (const QString &line : file->lines) {
        if (!inside) {
            inside = ChapterMarker::IsMarkerOf(line, chapter);
            continue;
        }
        if (ChapterMarker::IsMarker(line))
            break;
        text += line;
        text += QStringLiteral("\r\n");
    }
    return text;
}

QString Rewrite(const QString &pathWithoutDat, int chapter, const QString &text)
{
    if (!platform::IsUsablePath(pathWithoutDat))
        return QStringLiteral("The file name is not valid.");
    const QString path = platform::ResolvePath(pathWithoutDat + QStringLiteral(".dat"));
    const QString temporary = platform::ResolvePath(pathWithoutDat + QStringLiteral(".temp"));

    QByteArray old;
    const QFileInfo info(path);
    if (info.exists()) {
        QFile in(path);
        if (!info.isFile())
            return QStringLiteral("There is a folder where the book file should be.");
        if (!in.open(QIODevice::ReadOnly))
            return in.errorString();
        old = in.readAll();
        if (in.error() != QFileDevice::NoError)
            return in.errorString();
    } else if (!QDir().mkpath(info.absolutePath())) {
        return QStringLiteral("The folder %1 could not be created.")
            .arg(QDir::toNativeSeparators(info.absolutePath()));
    }

    QString section;
    for (const QString &line : platform::SplitLines(text)) {
        section += line;
        section += QStringLiteral("\r\n");
    }
    const QString reason = platform::ReplaceFile(path, temporary, spliced(old, chapter, section));
    BookFiles::forget(path);
    return reason;
}

} // namespace ChapterSection
