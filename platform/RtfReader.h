#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

class QTextCursor;
class QTextDocument;

namespace platform {

// Reads rich text: the passages the formatter builds, the pages the program ships, and what word
// processors and older rich-edit controls save. Anything it does not understand is skipped, and
// damaged input gives whatever text could be recovered, never a crash or an endless loop.
class RtfReader
{
public:
    // Groups nested deeper than this are read as if they were not nested further.
    static constexpr int MaxDepth = 1000;
    // Table rows with more cells than this put the surplus into their last cell.
    static constexpr int MaxColumns = 64;
    // Qt ignores a font size of 0; a run this small is laid out zero wide and paints nothing,
    // yet stays in the text and in searches, which is what a size-0 run is written for.
    static constexpr double TinyPointSize = 0.1;

    // Inserts the content at the cursor, which is left after it.
    static void insert(QStringView rtf, QTextCursor &cursor);
    // Bytes are taken as UTF-8 when they are valid UTF-8, else in the document's code page.
    static void insert(const QByteArray &rtf, QTextCursor &cursor);

    // Replaces the document's content.
    static void read(QStringView rtf, QTextDocument *document);
    static void read(const QByteArray &rtf, QTextDocument *document);

    // Whether the text opens like a rich-text document ("{\rtf" after any blanks).
    static bool looksLikeRtf(QStringView text);
};

} // namespace platform
