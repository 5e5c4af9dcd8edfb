#pragma once

#include <QString>
#include <QStringList>
#include <string_view>

namespace importer {

// One entry of Strong's Hebrew or Greek dictionary as the lexicon files hold it.
struct StrongsEntry
{
    QChar language; // 'H' or 'G'
    int number = 0;
    QString original;        // the word in Hebrew or Greek letters
    QString transliteration; // in Latin letters with their marks, "'ĕlôhîym"
    QString pronunciation;   // "el-o-heem'"
    QString sense;           // the definition proper, one line
    QString usage;           // how the KJV renders it: "angels, X exceeding, God (gods), ..."
    QStringList segments;    // the definition's own lines, for the names dictionary
    bool used = true;        // Strong's left a few numbers without an entry

    // The list text of the lexicon window: the transliteration in plain letters a user can type.
    QString indexText() const;
    // "H430|אלהים 'ĕlôhîym|el-o-heem'|Plural of 433; ..."
    QString dataLine() const;
    // The sense, then "KJV: " and the renderings.
    QString definition() const;

    // Letters without their marks and without the signs for aleph and ayin: "elohiym".
    static QString plainLetters(const QString &text);
};

// Reads one raw TEI entry of the Strong's modules. Hebrew cross-references are written as bare
// numbers (so double-clicking one in the Hebrew tab opens it); Greek ones keep their letter.
StrongsEntry ParseStrongsEntry(std::string_view tei, QChar language);

} // namespace importer
