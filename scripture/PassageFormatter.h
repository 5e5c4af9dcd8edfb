#pragma once

#include <QString>

// Passage text to rich text: braces become superscripts (Strong's numbers), square brackets
// italics (words the translators added), and each line a paragraph. Every view of scripture uses
// it.
namespace PassageFormatter {

// A rich text group with a colour table whose colour 1 is pure red, for highlighting.
inline constexpr char16_t kDocumentHeader[] = u"{\\rtf {\\colortbl ;\\red255\\green0\\blue0;}";
inline constexpr char16_t kDocumentFooter[] = u"}";

// With wholeDocument the result is a complete document, else a fragment for another document.
QString ToRichText(const QString &text, bool wholeDocument);

// The most characters of passage text a view is given. The longest chapters of the Bible hold
// some thirty thousand and whole books a few hundred thousand; a damaged or made-up book file
// can hold millions in one chapter, which a view would take minutes to lay out.
inline constexpr qsizetype kMostShown = 1000000;

// The passage as a view shows it: whole when it is no longer than kMostShown, else cut at the
// last line break before it (or at it, in one long line) with a line that says how much is not
// shown.
QString FitForView(const QString &text);
// The whole rich-text document a view shows for passage text.
inline QString ForView(const QString &text)
{
    return ToRichText(FitForView(text), true);
}

} // namespace PassageFormatter
