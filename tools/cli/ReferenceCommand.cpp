#include "ReferenceCommand.h"

#include "CliOutput.h"
#include "library/DataFiles.h"
#include "library/ReferenceLists.h"
#include "library/ReferencePassages.h"
#include "scripture/basStrings.h"

#include <QDir>
#include <QRandomGenerator>

namespace cli {

namespace {

using DataFiles::File;

QString pathOf(const QString &programFolder, File file)
{
    return basStrings::JoinPath(programFolder, DataFiles::RelativePath(file));
}

// The topics, stories and prophecy windows name the missing file by its bare name in quotes; the
// parables and miracles window by its path. The command line says what the window would.
int missing(const QString &what)
{
    err(DataFiles::MissingFileMessage(what));
    return NoInput;
}

int missingQuoted(File file)
{
    return missing(u'\'' + DataFiles::Name(file) + u'\'');
}

int notInList(const QString &name)
{
    err(u'"' + name + QStringLiteral("\" is not in the list."));
    return Problems;
}

} // namespace

int NameSearchCommand(const QString &programFolder, const QString &list, const QString &query)
{
    const File file = list == u"stories" ? File::Stories : File::Topics;
    NamedReferences names;
    if (!names.Load(pathOf(programFolder, file)))
        return missingQuoted(file);
    const QList<int> found = names.Search(query);
    for (const int i : found)
        out(names.Names().at(i) + u'\n');
    return found.isEmpty() ? Problems : Ok;
}

int ParallelsCommand(const QString &programFolder, const QString &list, const QString &name)
{
    const QString path =
        pathOf(programFolder, list == u"miracles" ? File::Miracles : File::Parables);
    GospelParallels parallels;
    if (!parallels.Load(path))
        return missing(QDir::toNativeSeparators(path));
    const int record = FindName(parallels.Names(), name);
    if (record == 0)
        return notInList(name);
    for (int g = 0; g < GospelParallels::GospelCount; ++g)
        out(parallels.Reference(record, GospelParallels::Gospel(g)) + u'\n');
    return Ok;
}

int ProphecyCommand(const QString &programFolder, const QString &name)
{
    Prophecies prophecies;
    if (!prophecies.Load(pathOf(programFolder, File::Prophecy)))
        return missingQuoted(File::Prophecy);
    const int record = FindName(prophecies.Names(), name);
    if (record == 0)
        return notInList(name);
    out(prophecies.Prophecy(record) + u'\n' + prophecies.Fulfilment(record) + u'\n');
    return Ok;
}

int TopicCommand(const QString &programFolder, clsBible &bible, const QString &name)
{
    NamedReferences topics;
    if (!topics.Load(pathOf(programFolder, File::Topics)))
        return missingQuoted(File::Topics);
    const int record = FindName(topics.Names(), name);
    if (record == 0)
        return notInList(name);
    out(ReferencePassages::TopicTitle(topics, record) + u'\n' +
        ReferencePassages::TopicText(bible, topics, record));
    return Ok;
}

int VerseCommand(const QString &programFolder, clsBible &bible, std::optional<int> line)
{
    VerseList verses;
    if (!verses.Load(pathOf(programFolder, File::Verses))) {
        out(ReferencePassages::VersesMissingText() + u'\n');
        return NoInput;
    }
    if (line && (*line < 1 || *line > verses.Count())) {
        err(QStringLiteral("verses.dat has %1 lines; there is no line %2.")
                .arg(verses.Count())
                .arg(*line));
        return Problems;
    }
    const int n =
        line ? *line
             : ReferencePassages::PickVerse(verses, QRandomGenerator::global()->generateDouble());
    out(ReferencePassages::VerseText(bible, verses, n));
    return Ok;
}

} // namespace cli
