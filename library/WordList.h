#pragma once

#include <QString>
#include <QStringList>
#include <optional>

// A keyed word list of the program folder: "Dictionary.dat" (headword | definition | references)
// or "names.dat" (name | meaning). Line 1 is a header that is never interpreted; every later line
// is one entry. Nothing is cached: every look-up scans the file afresh from its start, so an edit
// to the file is seen at once.
class WordList
{
public:
    enum class Kind
    {
        Dictionary,
        Names
    };

    enum class Outcome
    {
        Found,
        NotFound,
        Unreadable, // the file is missing or cannot be read
    };

    struct LookUp
    {
        Outcome outcome = Outcome::NotFound;
        // "HEADWORD: " + the definition, the headword in capitals whatever its case in the file.
        QString definition;
        // The dictionary's references, in order and untrimmed; names have none.
        QStringList references;
    };

    WordList(const QString &programFolder, Kind kind);

    Kind kind() const { return m_kind; }
    QString Path() const { return m_path; }

    // Field 1 of every entry, unchanged and in file order; nothing when the file cannot be read.
    std::optional<QStringList> Headwords() const;

    // The first entry whose whole headword equals the typed text, trimmed of blanks, without
    // regard to case. Later entries with the same headword are never shown.
    LookUp Find(const QString &typed) const;

    // What Find compares headwords with: the typed text trimmed of blanks, in upper case.
    static QString SearchKey(const QString &typed);

private:
    QString m_path;
    Kind m_kind;
};
