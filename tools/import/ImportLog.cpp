#include "tools/import/ImportLog.h"

#include <QTextStream>

namespace importer {

namespace {
constexpr int MaxExamples = 3;
}

ImportLog::Entry &ImportLog::entry(const QString &work, const QString &what)
{
    for (Entry &e : m_entries) {
        if (e.work == work && e.what == what)
            return e;
    }
    m_entries.append(Entry{work, what, 0, {}});
    return m_entries.last();
}

void ImportLog::count(const QString &work, const QString &what, qint64 n)
{
    entry(work, what).n += n;
}

qint64 ImportLog::value(const QString &work, const QString &what) const
{
    for (const Entry &e : m_entries) {
        if (e.work == work && e.what == what)
            return e.n;
    }
    return 0;
}

void ImportLog::example(const QString &work, const QString &what, const QString &sample)
{
    Entry &e = entry(work, what);
    if (e.examples.size() < MaxExamples && !e.examples.contains(sample))
        e.examples.append(sample);
}

void ImportLog::fail(const QString &work, const QString &reason)
{
    m_failures.append(work + QStringLiteral(": ") + reason);
}

void ImportLog::print(QTextStream &out) const
{
    QString lastWork;
    for (const Entry &e : m_entries) {
        if (e.n == 0 && e.examples.isEmpty())
            continue;
        if (e.work != lastWork) {
            out << e.work << '\n';
            lastWork = e.work;
        }
        out << "  " << e.what << ": " << e.n;
        if (!e.examples.isEmpty())
            out << "  (e.g. " << e.examples.join(QStringLiteral("; ")) << ')';
        out << '\n';
    }
    for (const QString &failure : m_failures)
        out << "NOT IMPORTED " << failure << '\n';
}

} // namespace importer
