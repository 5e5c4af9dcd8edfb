#pragma once

#include <QString>
#include <QStringList>
#include <string_view>

namespace importer {

class ImportLog;
class Versification;

// Turns the OSIS markup of one commentary entry into readable plain lines, one paragraph a line:
// section labels such as "Verses 1-2" and the rows of a chapter outline stand on lines of their
// own, references are written as the reference box reads them, and titles that only repeat the
// book or chapter are dropped. No line begins with the word "Chapter", which the book files
// reserve for their chapter markers.
class CommentaryConverter
{
public:
    CommentaryConverter(ImportLog &log, QString work, const Versification &versification)
        : m_log(log), m_work(std::move(work)), m_versification(versification)
    {
    }

    QStringList paragraphs(std::string_view osis);

    // A line that the book-file reader would take for a chapter marker is reworded.
    static QString avoidMarker(const QString &line);

private:
    ImportLog &m_log;
    QString m_work;
    const Versification &m_versification;
};

} // namespace importer
