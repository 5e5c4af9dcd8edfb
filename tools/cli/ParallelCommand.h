#pragma once

#include <QString>
#include <QStringList>

namespace cli {

// "parallel --translations A,B[,C,D] REFERENCE": the reference, read in A's verse numbering, lined
// up in two to four translations. The first line holds the translation folder names; then one
// line a row holds, for each translation, its own reference and its verse text (both empty where
// it has no verse in the row), every field separated by a tab. Fewer than two or more than four
// translations is a usage error (64), an unknown translation 66, an unknown book 2, a passage
// without verses 1.
int ParallelCommand(const QString &programFolder, const QStringList &args);

} // namespace cli
