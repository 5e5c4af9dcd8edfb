#pragma once

#include "tools/import/ModuleReaders.h"
#include "tools/import/StrongsEntry.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

namespace importer {

class ImportLog;

// The two word lists that no packaged work provides, derived from what is packaged: the KJV with
// its Strong's tags and Strong's Hebrew and Greek dictionaries.
//
// The names dictionary takes every Strong's entry for a proper name, under the spelling the KJV
// prints for it, with the meaning Strong's states and who or what bears the name.
//
// The word dictionary takes every English word the KJV uses for a tagged Hebrew or Greek word,
// gathers its inflected forms under one headword (love, loved, loveth), and says which Hebrew and
// Greek words it translates, how often, with the first passage for each.
class WordStudy
{
public:
    WordStudy(const QList<StrongsEntry> &hebrew, const QList<StrongsEntry> &greek,
              const QList<VerseWords> &tagged);

    QStringList namesLines(const QString &header) const;
    QStringList dictionaryLines(const QString &header) const;

    // The renderings listed after a definition, without Strong's signs and asides:
    // "Abiah, Abijah. Compare 1954." gives Abiah and Abijah.
    static QStringList usageItems(const QString &usage);
    // Whether an entry is a proper name: most of its KJV renderings are capitalised.
    static bool isNameEntry(const StrongsEntry &entry);
    // The definition in a few words, without its derivation: "to have affection for".
    static QString gloss(const StrongsEntry &entry);
    // The pieces of a definition that describe, not derive (no cross-reference numbers).
    static QStringList describingPieces(const StrongsEntry &entry, bool lastSegmentOnly = false);
    // Plural "times" when needed.
    static QString times(int n);

private:
    struct Stats
    {
        int count = 0;
        int first = -1; // index into the tagged verses
    };

    const StrongsEntry *entry(const QString &number) const;
    QString nameDescription(const StrongsEntry &entry) const;
    QString reference(int taggedIndex) const;

    const QList<StrongsEntry> &m_hebrew;
    const QList<StrongsEntry> &m_greek;
    const QList<VerseWords> &m_tagged;

    // English word (lower case) -> Strong's number -> how often and where first.
    QHash<QString, QHash<QString, Stats>> m_words;
    QHash<QString, int> m_wordTotals;
    QSet<QString> m_notCapitalised; // words printed at least once in small letters or capitals
    // Strong's number -> capitalised words the KJV prints for it, as printed.
    QHash<QString, QHash<QString, int>> m_printedNames;
};

} // namespace importer
