#pragma once

#include <QString>

// Passage text to rich text: braces become superscripts (Strong's numbers), square brackets
// italics (words the translators added), and each line a paragraph. Every view of scripture uses it.
namespace PassageFormatter {

// A rich text group with a colour table whose colour 1 is pure red, for highlighting.
inline constexpr char16_t kDocumentHeader[] = u"{\\rtf {\\colortbl ;\\red255\\green0\\blue0;}";
inline constexpr char16_t kDocumentFooter[] = u"}";

// With wholeDocument the result is a complete document, else a fragment for another document.
QString ToRichText(const QString &text, bool wholeDocument);

} // namespace PassageFormatter
