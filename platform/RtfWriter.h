#pragma once

#include <QString>

class QTextCursor;
class QTextDocument;

namespace platform {

// Writes a document as rich text that word processors open and that RtfReader reads back with
// the same text and formatting: bold, italic, underline, strike-through, colours, fonts, sizes,
// superscript and subscript, paragraph alignment and indents, and simple tables.
class RtfWriter
{
public:
    static QString write(const QTextDocument &document);
    // Only the selected part of the cursor's document; empty when nothing is selected.
    static QString write(const QTextCursor &selection);
};

} // namespace platform
