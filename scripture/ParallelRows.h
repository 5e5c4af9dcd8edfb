#pragma once

#include "scripture/VerseMapping.h"
#include "scripture/clsBible.h"

#include <QList>
#include <QString>

// One translation's part of a row: the verses it has there, under its own reference.
struct ParallelCell
{
    // The translation's book number and the first and last verse of the cell; book 0 when the
    // translation has no verse in the row.
    VerseMapping::Numbers verses;
    QString reference; // "PSALMS 9:22", "ПСАЛТИРЬ 9:1-2"; empty when there is no verse
    QString text;      // the verses' text without their numbers, one blank between verses

    bool isEmpty() const { return verses.book == 0; }
};

// The cells of one row, one a translation, in the order the translations were given.
struct ParallelRow
{
    QList<ParallelCell> cells;
};

// Lines up a passage in two to four translations, one row a verse. Each translation's verses are
// carried to the KJV's numbering, and verses that meet there share a row: a verse of one that is
// two verses of another gives one row holding both, and a run of such joins (a title counted as
// a verse of its own beside a title inside verse 1) stays one row. A verse a translation lacks
// leaves its cell empty. Psalm titles a numbering counts as verse 0 are read as verse 1, as the
// translation folders keep a title at the start of its psalm's first verse.
//
// The rows follow the first translation's order; a verse another translation has alone (one the
// KJV's numbering lacks) stands in a row of its own after the verse it follows there.
class ParallelRows
{
public:
    static constexpr int MinTranslations = 2;
    static constexpr int MaxTranslations = 4;

    struct Result
    {
        QList<ParallelRow> rows;
        QString problem; // why there are no rows, for the reader
        bool unknownBook = false;

        bool ok() const { return problem.isEmpty(); }
    };

    // A passage in the first translation's numbers as its store takes them: verse 0 the whole
    // chapter, chapterTo 0 the same chapter, verseTo 0 the same verse.
    static Result Build(const QList<const clsBible *> &translations,
                        const VerseMapping::Numbers &passage);
    // A typed reference ("Psalm 23", "Ps 9:21-10:2"), read in the first translation's
    // numbering; its book by the translation's own names or else by the English ones.
    static Result Build(const QList<const clsBible *> &translations, const QString &reference);
};
