#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <string_view>

namespace importer {

class ImportLog;

// One English (or other) word run of a verse that the module tags with Strong's numbers.
struct TaggedWords
{
    QString text;        // the words as printed, without the brackets of added words
    QStringList numbers; // "H7225", "G2316": leading zeros dropped
};

struct ConvertedVerse
{
    QString title; // a psalm title that the module puts in the verse
    QString text;
    QList<TaggedWords> tagged; // filled only when asked for
};

// Turns the OSIS markup of one Bible verse into the line text of a book file: words added by the
// translators in [brackets], footnotes and section headings dropped, and, when asked, each tagged
// word followed by its Strong's numbers in braces ("beginning{H7225}"), which the passage view
// shows as superscripts. Characters that the book files reserve for markup ({, }, |, \ and
// brackets of the module's own) never reach the text; every repair is counted in the log.
class VerseConverter
{
public:
    struct Options
    {
        bool strongsNumbers = false;
        bool collectTagged = false;
    };

    VerseConverter(ImportLog &log, QString work) : m_log(log), m_work(std::move(work)) {}

    ConvertedVerse convert(std::string_view osis, const Options &options);

    // The numbers of a lemma attribute ("strong:H0430 strong:H0853") in the form "H430".
    static QStringList strongsNumbers(std::string_view lemma);

    // Blanks collapsed and set right around punctuation and the brackets of added words.
    static QString tidySpacing(const QString &text);

private:
    std::string cleanModuleText(std::string_view text, bool insideAdded);

    ImportLog &m_log;
    QString m_work;
};

} // namespace importer
