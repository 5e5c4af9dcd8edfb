#include "library/WordList.h"

#include "library/DataFileReader.h"
#include "library/DataFiles.h"
#include "scripture/basStrings.h"

WordList::WordList(const QString &programFolder, Kind kind)
    : m_path(basStrings::JoinPath(programFolder,
                                  DataFiles::RelativePath(kind == Kind::Dictionary
                                                              ? DataFiles::File::Dictionary
                                                              : DataFiles::File::Names))),
      m_kind(kind)
{
}

std::optional<QStringList> WordList::Headwords() const
{
    // Open the file; the header line is read and thrown away.
    DataFileReader file;
    if (!file.Open(m_path))
        return std::nullopt;
    file.SkipLine();
    // Field 1 of every later line, unchanged and in file order.
    QStringList headwords;
    while (!file.AtEnd())
        headwords.append(file.Decode(DataFileReader::FirstField(file.ReadRawLine())));
    return headwords;
}

QString WordList::SearchKey(const QString &typed)
{
    return basStrings::UpperCase(basStrings::TrimBlanks(typed).toString());
}

WordList::LookUp WordList::Find(const QString &typed) const
{
    LookUp result;
    // The search key.
    const QString key = SearchKey(typed);
    // Open the file and throw the header line away.
    DataFileReader file;
    if (!file.Open(m_path)) {
        result.outcome = Outcome::Unreadable;
        return result;
    }
    file.SkipLine();
    // The first line whose field 1, in upper case, is the key; the scan stops there.
    while (!file.AtEnd()) {
        const QByteArrayView line = file.ReadRawLine();
        if (basStrings::UpperCase(file.Decode(DataFileReader::FirstField(line))) != key)
            continue;
        const QStringList fields = DataFileReader::Fields(file.Decode(line));
        // The headword in capitals, whatever its case in the file, and its definition.
        result.outcome = Outcome::Found;
        result.definition = basStrings::UpperCase(DataFileReader::Field(fields, 1)) +
                            QStringLiteral(": ") + DataFileReader::Field(fields, 2);
        // The dictionary's references; a third field of the names file is never read.
        if (m_kind == Kind::Dictionary)
            result.references = DataFileReader::References(DataFileReader::Field(fields, 3));
        break;
    }
    return result;
}
