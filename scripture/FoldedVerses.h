#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

// The verses of a book file as the query language reads them, each kept three ways, every verse
// followed by a line feed so that one search over the whole book finds a word in every verse:
//   - the text as shown: the leading verse number dropped, the brackets of added words and the
//     {Strong's numbers} removed (regular expressions and listed results use it);
//   - the same folded: accents taken off and upper-cased, so that words are compared case- and
//     accent-blind;
//   - the Strong's numbers the verse carries, "H430 G26", blank-separated.
// Lines before a book's first "CHAPTER" line and empty lines are not verses.
class FoldedVerses
{
public:
    struct Verse
    {
        int chapter = 0;
        int verse = 0; // the value of the line's leading digits, 0 when it has none
    };

    QList<Verse> verses;
    QString shown;
    QString folded;
    QString strongs;
    // Where each verse starts in each text; one entry more than there are verses, the last one the
    // text's length.
    QList<qsizetype> shownStarts;
    QList<qsizetype> foldedStarts;
    QList<qsizetype> strongStarts;

    qsizetype count() const { return verses.size(); }
    QStringView Shown(qsizetype verse) const
    {
        return QStringView(shown).mid(shownStarts.at(verse),
                                      shownStarts.at(verse + 1) - shownStarts.at(verse) - 1);
    }

    // The verses of a book file, kept while the file is unchanged on disk (read again when it
    // changes, so a result never depends on what was read before); nullptr when it cannot be read.
    static std::shared_ptr<const FoldedVerses> OfBookFile(const QString &path);
    // Verse lines, each with or without its leading number, as one book of one chapter.
    static FoldedVerses OfLines(const QStringList &lines);

    // Accents off and upper case, character by character (compatibility decomposition, marks
    // dropped, simple upper case): "Jesús" and "JESUS" fold alike.
    static QString Fold(QStringView text);
    // The same, with the position in the text that each folded character comes from.
    static QString Fold(QStringView text, QList<qsizetype> *from);
    // What counts as part of a word in a folded text: letters and digits.
    static bool IsWordChar(QChar c)
    {
        const char16_t u = c.unicode();
        if (u < 0x80)
            return (u >= u'A' && u <= u'Z') || (u >= u'0' && u <= u'9') || (u >= u'a' && u <= u'z');
        return c.isLetterOrNumber();
    }

    // A verse line; without numbered, a text as shown (digits at its start are words).
    void append(const Verse &verse, QStringView line, bool numbered = true);
    void finish();
};
