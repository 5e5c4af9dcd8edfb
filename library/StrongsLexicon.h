#pragma once

#include <QString>
#include <QStringList>
#include <array>

// Strong's Hebrew and Greek lexicon in the folder "strong" of the program folder. For each
// language an index file holds the list text of entry k on its line k, and a data file holds the
// record of entry k on its line k: "unused|word|pronunciation|definition". An entry's number is
// its line number and is never read from a file.
//
// Each index is read the first time it is asked for and kept; an entry is read from the data file
// afresh each time, line by line up to the one wanted.
class StrongsLexicon
{
public:
    // Also the window's tab index.
    enum class Language
    {
        Hebrew = 0,
        Greek = 1
    };

    enum class Outcome
    {
        Found,
        NotFound,   // no entry number (below 1), or a data file shorter than its index
        Unreadable, // the data file is missing or cannot be read
    };

    struct Entry
    {
        Outcome outcome = Outcome::NotFound;
        // "n - word (pronunciation) : definition"
        QString definition;
    };

    // What Find shows for a typed text.
    struct Choice
    {
        int number = 0;           // the entry to show; 0 when none
        bool typedNumber = false; // the text was a number, which goes back into the word box
    };

    // A word box's text on a tab.
    struct Typed
    {
        Language language = Language::Hebrew;
        QString text;
    };

    explicit StrongsLexicon(const QString &programFolder);

    // A Strong's number as the passage hands it over ("H430", "G26"): Hebrew when it begins with
    // "H", anything else Greek, and the text after its first character.
    static Typed FromNumber(const QString &strongNumber);

    QString IndexPath(Language language) const;
    QString DataPath(Language language) const;

    // The list texts of the language's entries, entry k at position k - 1. Read from the index
    // file on first use; empty when it cannot be read.
    const QStringList &Index(Language language);
    bool IndexRead(Language language) const { return m_index[slot(language)].read; }
    // False when the index was read and its file could not be.
    bool IndexReadable(Language language) const { return m_index[slot(language)].readable; }

    // Entry `number` (from 1) of the language, read from its data file.
    Entry Show(Language language, int number) const;

    // A text with a leading number v > 0 is a Strong's number: v held between 1 and the number
    // of entries. Any other text (a word, "0", nothing) is the beginning of a word: the first
    // entry of the index that starts with it, without regard to case.
    Choice Choose(Language language, const QString &typed);

    // number + " - " + field 2 + " (" + field 3 + ") : " + field 4, missing fields empty.
    static QString DefinitionLine(int number, const QString &record);

private:
    struct LanguageIndex
    {
        QStringList lines;
        bool read = false;
        bool readable = true;
    };
    static int slot(Language language) { return language == Language::Hebrew ? 0 : 1; }

    QString m_folder;
    std::array<LanguageIndex, 2> m_index;
};
