#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class clsBible;

namespace cli {

// The name search of the topics or stories window ("topics" or "stories"): the matching names in
// list order, one a line. Exit status 1 when none matches; the missing-file message and exit
// status 66 when the file cannot be read.
int NameSearchCommand(const QString &programFolder, const QString &list, const QString &query);

// The four gospel references of a parable or miracle ("parables" or "miracles"), Matthew to John,
// one a line and an empty line where the gospel is silent. Exit status 1 when no entry has the
// name (compared without regard to case or surrounding blanks).
int ParallelsCommand(const QString &programFolder, const QString &list, const QString &name);

// The Old Testament reference of a prophecy, then that of its fulfilment.
int ProphecyCommand(const QString &programFolder, const QString &name);

// A topic as the main window shows it: the title line "name - references", then the text of all
// its references one after another. Exit status 1 when no topic has the name.
int TopicCommand(const QString &programFolder, clsBible &bible, const QString &name);

// What the verse window shows for a line of "verses.dat" (counted from 1), or for a line drawn at
// random: the reference, then the verse. Nothing for an empty list; the window's own text and
// exit status 66 when the file is missing; exit status 1 for a line outside the list.
int VerseCommand(const QString &programFolder, clsBible &bible, std::optional<int> line);

} // namespace cli
