#pragma once

#include "platform/TextCodec.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

// Book files, kept while they are unchanged on disk. Fetching a passage and searching the whole
// translation read the same files again and again; keeping their decoded lines (for passages) and
// their bytes (for the searches) makes both immediate after the first read. A file is read again
// when its size or modification time changes, and the program drops a file it rewrites itself.
class BookFiles
{
public:
    struct Content
    {
        QStringList lines;
    };

    // The decoded lines of a book file, or nullptr when it cannot be read.
    static std::shared_ptr<const Content> lines(const QString &path);

    // A book file as the searches read it: its bytes, never decoded as a whole. A line of plain
    // ASCII is searched in its bytes; only the other lines, and the lines a search lists, are
    // decoded, in the encoding the whole file is read in.
    struct Bytes
    {
        struct Span
        {
            qsizetype start = 0;
            qsizetype length = 0;
            bool ascii = true;
            // Upper-casing the line's text changes no character outside ASCII into ASCII letters
            // (as "ß" becomes "SS"), so plain ASCII words are found in its bytes read as capitals
            // just as in its upper-cased text.
            bool foldable = true;
        };
        QByteArray bytes;                    // the file as stored (in memory, or mapped)
        std::shared_ptr<const void> mapping; // keeps the memory of a mapped or pooled file
        // The lines, split at CR LF, LF or CR as the text of the file is; split when first asked.
        const QList<Span> &Lines() const;

        // Whether the bytes from one offset to another are plain: every CR stands before an LF
        // and no character upper-cases into ASCII letters its bytes do not hold, as in nearly
        // all book files. Plain stretches can be searched as one run of bytes, their lines found
        // around the places that matter instead of all split beforehand.
        bool PlainBetween(qsizetype from, qsizetype to) const;
        // In a plain stretch, the line that begins at a byte offset, and where the next begins.
        Span PlainLineAt(qsizetype start) const;
        qsizetype PlainNextLine(qsizetype start) const;

        // The line as text, and upper-cased as the searches compare it; the upper-cased text of
        // a line that is not plain ASCII is kept once made.
        QString Text(qsizetype line) const;
        QString Text(const Span &span) const;
        const QString &UpperText(qsizetype line) const;

    private:
        platform::TextEncoding encoding() const;
        mutable std::optional<platform::TextEncoding> m_encoding;
        mutable std::optional<QList<Span>> m_lines;
        mutable QList<QString> m_upperText;
    };

    // The bytes of a book file, or nullptr when it cannot be read.
    static std::shared_ptr<const Bytes> bytes(const QString &path);

    // A process that reads each book once, as the command line does, neither maps nor keeps the
    // files: each is read into one buffer, used again for the next file once nothing holds the
    // last. Mapping and keeping pay only where the same files are searched again and again.
    static void setOnePass(bool onePass);

    static void forget(const QString &path);
    static void clear();
};
