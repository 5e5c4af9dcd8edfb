#pragma once

#include <QString>
#include <QStringList>

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

} // namespace cli
