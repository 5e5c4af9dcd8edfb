#pragma once

#include <QString>
#include <QStringList>
#include <memory>

// Decoded book files, kept while they are unchanged on disk. Fetching a passage and searching the
// whole translation read the same files again and again; keeping their lines (and an upper-cased
// copy for the searches) makes both immediate after the first read. A file is read again when its
// size or modification time changes, and the program drops a file it rewrites itself.
class BookFiles
{
public:
    struct Content
    {
        QStringList lines;
        QStringList upper; // filled on first use by a search
    };

    // The decoded lines of a book file, or nullptr when it cannot be read.
    static std::shared_ptr<const Content> lines(const QString &path);

    // The same with the upper-cased copy of every line filled in.
    static std::shared_ptr<const Content> upperLines(const QString &path);

    static void forget(const QString &path);
    static void clear();
};
