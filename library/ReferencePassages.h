#pragma once

#include <QString>

class clsBible;
class NamedReferences;
class VerseList;

// The passages the reference windows ask the text store for, apart from any window, so that the
// command line shows the same text.
namespace ReferencePassages {

// A topic's title: its name, " - ", and its reference field as it stands.
QString TopicTitle(const NamedReferences &topics, int record);
// The text of every reference of a topic, one after another, in order.
QString TopicText(const clsBible &bible, const NamedReferences &topics, int record);

// The line a draw r from [0, 1) picks: the integer part of r times the count, plus 1; 1 when the
// list is empty.
int PickVerse(const VerseList &verses, double r);
// What the verse window shows for line n: the store's standard reference of the passage, CR LF,
// then its text without the in-text heading. Empty when the list is empty.
QString VerseText(const clsBible &bible, const VerseList &verses, int n);
// What the verse window shows when "verses.dat" cannot be read.
QString VersesMissingText();

} // namespace ReferencePassages
