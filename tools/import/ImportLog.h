#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QTextStream;

namespace importer {

// What an import changed and found, per work: counts of what was written, repairs made to module
// faults, and works that could not be read. Printed as the summary at the end of a run.
class ImportLog
{
public:
    // Adds n to a count of the given work ("KJV", "tvc", ...), keeping first-seen order.
    void count(const QString &work, const QString &what, qint64 n = 1);
    qint64 value(const QString &work, const QString &what) const;

    // A few examples of a repair, shown beside its count so a reader can check the choice.
    void example(const QString &work, const QString &what, const QString &sample);

    // A work that could not be read or written; the others go on.
    void fail(const QString &work, const QString &reason);
    bool failed() const { return !m_failures.isEmpty(); }
    QStringList failures() const { return m_failures; }

    void print(QTextStream &out) const;

private:
    struct Entry
    {
        QString work;
        QString what;
        qint64 n = 0;
        QStringList examples;
    };
    Entry &entry(const QString &work, const QString &what);

    QList<Entry> m_entries;
    QStringList m_failures;
};

} // namespace importer
