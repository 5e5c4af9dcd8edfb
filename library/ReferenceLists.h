#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <array>

// The reference lists of the program folder: files that map a name to Scripture references, read
// whole into memory when a window opens. Each reader keeps its entries in file order; a record is
// counted from 1, as the windows address them (list index + 1). A record outside the list gives
// empty texts, never an error.

// "topics.dat" and "stories.dat": a header line thrown away, then "name|references" lines, the
// references separated by ";".
class NamedReferences
{
public:
    // False when the file cannot be read; the lists are then empty.
    bool Load(const QString &path);

    int Count() const { return int(m_names.size()); }
    // Field 1 of every entry, as it stands, in file order.
    const QStringList &Names() const { return m_names; }
    // The reference field of a record as it stands, for the title "name - references".
    QString ReferenceField(int record) const;
    // The same split on ";", untrimmed, in order.
    QStringList References(int record) const;

    // The list indexes (from 0) of the names that hold every word of the query somewhere inside
    // them, without regard to case or word order; nothing when the trimmed query is empty.
    static QList<int> Search(const QStringList &names, const QString &query);
    QList<int> Search(const QString &query) const { return Search(m_names, query); }

private:
    QStringList m_names;
    QStringList m_references;
};

// The record whose name equals the typed text, trimmed of blanks and without regard to case; 0
// when there is none. The first of equal names wins.
int FindName(const QStringList &names, const QString &typed);

// "parables.dat" and "miracles.dat": a header line whose text up to and including its first blank
// heads the list, then "name|Matthew|Mark|Luke|John" lines, a gospel silent on the story having an
// empty field.
class GospelParallels
{
public:
    enum Gospel
    {
        Matthew,
        Mark,
        Luke,
        John
    };
    static constexpr int GospelCount = 4;

    bool Load(const QString &path);

    // The header up to and including its first blank ("Parables "); empty when it has none.
    QString Heading() const { return m_heading; }
    int Count() const { return int(m_names.size()); }
    const QStringList &Names() const { return m_names; }
    // The record's reference in a gospel as it stands; empty where the gospel is silent.
    QString Reference(int record, Gospel gospel) const;
    // Whether the gospel tells the story: its reference is not empty.
    bool Tells(int record, Gospel gospel) const { return !Reference(record, gospel).isEmpty(); }

private:
    QString m_heading;
    QStringList m_names;
    QList<std::array<QString, GospelCount>> m_references;
};

// "prophecy.dat": a header line thrown away, then "name|Old Testament|New Testament" lines.
class Prophecies
{
public:
    bool Load(const QString &path);

    int Count() const { return int(m_names.size()); }
    const QStringList &Names() const { return m_names; }
    // The prophecy's passage in the Old Testament.
    QString Prophecy(int record) const;
    // The passage of its fulfilment in the New.
    QString Fulfilment(int record) const;

private:
    QStringList m_names;
    QStringList m_old;
    QStringList m_new;
};

// "verses.dat": one reference (or list of references) a line, every line taken as it is, empty
// ones included; no header.
class VerseList
{
public:
    bool Load(const QString &path);

    int Count() const { return int(m_lines.size()); }
    const QStringList &Lines() const { return m_lines; }
    // Line n, counted from 1; empty outside the list.
    QString Line(int n) const;

private:
    QStringList m_lines;
};
