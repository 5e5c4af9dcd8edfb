#include "library/StrongsLexicon.h"

#include "library/DataFileReader.h"
#include "library/DataFiles.h"
#include "library/ListSearch.h"
#include "scripture/basStrings.h"

#include <algorithm>

StrongsLexicon::StrongsLexicon(const QString &programFolder) : m_folder(programFolder) {}

StrongsLexicon::Typed StrongsLexicon::FromNumber(const QString &strongNumber)
{
    return {strongNumber.startsWith(u'H') ? Language::Hebrew : Language::Greek,
            strongNumber.mid(1)};
}

QString StrongsLexicon::IndexPath(Language language) const
{
    return basStrings::JoinPath(m_folder,
                                DataFiles::RelativePath(language == Language::Hebrew
                                                            ? DataFiles::File::StrongHebrewIndex
                                                            : DataFiles::File::StrongGreekIndex));
}

QString StrongsLexicon::DataPath(Language language) const
{
    return basStrings::JoinPath(m_folder,
                                DataFiles::RelativePath(language == Language::Hebrew
                                                            ? DataFiles::File::StrongHebrew
                                                            : DataFiles::File::StrongGreek));
}

const QStringList &StrongsLexicon::Index(Language language)
{
    LanguageIndex &index = m_index[slot(language)];
    if (!index.read) {
        index.read = true;
        // Every line in order, taken whole: there is no header.
        DataFileReader file;
        index.readable = file.Open(IndexPath(language));
        index.lines = file.ReadAll();
    }
    return index.lines;
}

StrongsLexicon::Entry StrongsLexicon::Show(Language language, int number) const
{
    Entry entry;
    // Open the data file.
    DataFileReader file;
    if (!file.Open(DataPath(language))) {
        entry.outcome = Outcome::Unreadable;
        return entry;
    }
    if (number < 1)
        return entry;
    // Read `number` lines; the last one read is the record. A file that ends first has no
    // such entry.
    for (int k = 1; k < number; ++k) {
        if (file.AtEnd())
            return entry;
        file.SkipLine();
    }
    if (file.AtEnd())
        return entry;
    // Only that record is decoded and split.
    entry.outcome = Outcome::Found;
    entry.definition = DefinitionLine(number, file.ReadLine());
    return entry;
}

StrongsLexicon::Choice StrongsLexicon::Choose(Language language, const QString &typed)
{
    const QStringList &entries = Index(language);
    Choice choice;
    // The numeric value of the text's leading number; text without one is 0.
    const int v = basStrings::LeadingNumber(typed);
    if (v > 0) {
        // A Strong's number, held to the entries there are.
        choice.typedNumber = true;
        choice.number = std::clamp(v, 1, std::max(1, int(entries.size())));
        if (entries.isEmpty())
            choice.number = 0;
        return choice;
    }
    // The beginning of a word: the first entry that starts with it.
    choice.number = ListSearch::FirstPrefixMatch(entries, typed) + 1;
    return choice;
}

QString StrongsLexicon::DefinitionLine(int number, const QString &record)
{
    const QStringList fields = DataFileReader::Fields(record);
    return QString::number(number) + QStringLiteral(" - ") + DataFileReader::Field(fields, 2) +
           QStringLiteral(" (") + DataFileReader::Field(fields, 3) + QStringLiteral(") : ") +
           DataFileReader::Field(fields, 4);
}
