#include "library/ReferenceLists.h"

#include "library/DataFileReader.h"
#include "scripture/basStrings.h"

namespace {

// Opens the file and hands the header line, then every later line split on "|", to the caller.
// The lists are emptied first so that a failed load leaves nothing behind from an earlier one.
template <typename Header, typename Record>
bool readRecords(const QString &path, Header header, Record record)
{
    DataFileReader file;
    if (!file.Open(path))
        return false;
    header(file.ReadLine());
    while (!file.AtEnd())
        record(DataFileReader::Fields(file.ReadLine()));
    return true;
}

QString at(const QStringList &list, int record)
{
    return record >= 1 && record <= list.size() ? list.at(record - 1) : QString();
}

} // namespace

bool NamedReferences::Load(const QString &path)
{
    m_names.clear();
    m_references.clear();
    return readRecords(
        path, [](const QString &) {},
        [this](const QStringList &fields) {
            m_names.append(DataFileReader::Field(fields, 1));
            m_references.append(DataFileReader::Field(fields, 2));
        });
}

QString NamedReferences::ReferenceField(int record) const
{
    return at(m_references, record);
}

QStringList NamedReferences::References(int record) const
{
    return DataFileReader::References(ReferenceField(record));
}

QList<int> NamedReferences::Search(const QStringList &names, const QString &query)
{
    const QString trimmed = basStrings::TrimBlanks(query).toString();
    if (trimmed.isEmpty())
        return {};
    // Two blanks in a row leave an empty word, which every name holds; it changes nothing.
    const QStringList words = basStrings::UpperCase(trimmed).split(u' ');
    QList<int> found;
    for (int i = 0; i < names.size(); ++i) {
        const QString name = basStrings::UpperCase(names.at(i));
        bool all = true;
        for (const QString &word : words) {
            if (!name.contains(word)) {
                all = false;
                break;
            }
        }
        if (all)
            found.append(i);
    }
    return found;
}

int FindName(const QStringList &names, const QString &typed)
{
    const QString key = basStrings::UpperCase(basStrings::TrimBlanks(typed).toString());
    for (int i = 0; i < names.size(); ++i) {
        if (basStrings::UpperCase(names.at(i)) == key)
            return i + 1;
    }
    return 0;
}

bool GospelParallels::Load(const QString &path)
{
    m_heading.clear();
    m_names.clear();
    m_references.clear();
    return readRecords(
        path,
        [this](const QString &header) {
            // Only the header's first word, with its blank, is shown; the rest is ignored.
            const qsizetype blank = header.indexOf(u' ');
            m_heading = blank < 0 ? QString() : header.left(blank + 1);
        },
        [this](const QStringList &fields) {
            m_names.append(DataFileReader::Field(fields, 1));
            std::array<QString, GospelCount> references;
            for (int g = 0; g < GospelCount; ++g)
                references[g] = DataFileReader::Field(fields, g + 2);
            m_references.append(references);
        });
}

QString GospelParallels::Reference(int record, Gospel gospel) const
{
    if (record < 1 || record > m_references.size() || gospel < Matthew || gospel > John)
        return {};
    return m_references.at(record - 1)[gospel];
}

bool Prophecies::Load(const QString &path)
{
    m_names.clear();
    m_old.clear();
    m_new.clear();
    return readRecords(
        path, [](const QString &) {},
        [this](const QStringList &fields) {
            m_names.append(DataFileReader::Field(fields, 1));
            m_old.append(DataFileReader::Field(fields, 2));
            m_new.append(DataFileReader::Field(fields, 3));
        });
}

QString Prophecies::Prophecy(int record) const
{
    return at(m_old, record);
}

QString Prophecies::Fulfilment(int record) const
{
    return at(m_new, record);
}

bool VerseList::Load(const QString &path)
{
    m_lines.clear();
    DataFileReader file;
    if (!file.Open(path))
        return false;
    m_lines = file.ReadAll();
    return true;
}

QString VerseList::Line(int n) const
{
    return at(m_lines, n);
}
