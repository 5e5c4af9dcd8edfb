#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <string_view>

namespace importer {

class ImportLog;
class Versification;

// The topics file built from Nave's Topical Bible: one line per topic and per subtopic that has
// Scripture references ("Aaron: Lineage of|Exodus 6:16-20;Joshua 21:4;..."), sorted by name so
// the window's list reads alphabetically. Cross-references to other topics carry no passage and
// are left out; every reference is checked against the KJV before it is kept.
class TopicIndex
{
public:
    TopicIndex(const Versification &versification, ImportLog &log, QString work)
        : m_versification(versification), m_log(log), m_work(std::move(work))
    {
    }

    // Adds the topics of one Nave entry (its key is the topic, upper-cased).
    void addEntry(const QString &key, std::string_view tei);

    // The file's lines: the header first.
    QStringList lines(const QString &header) const;
    qsizetype size() const { return m_names.size(); }

    // "ADONI-BEZEK" -> "Adoni-Bezek", "AFFLICTIONS AND ADVERSITIES" -> "Afflictions and
    // Adversities"
    static QString titleCase(const QString &upper);
    // What is left of a subtopic line once its references are taken out, readable on its own.
    static QString cleanLabel(const QString &text);

private:
    void add(const QString &name, const QStringList &references);

    const Versification &m_versification;
    ImportLog &m_log;
    QString m_work;
    QStringList m_names; // first-seen order
    QHash<QString, QStringList> m_references;
};

} // namespace importer
