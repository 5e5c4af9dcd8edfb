#pragma once

#include "platform/TextCodec.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <optional>

// One bookmark: its caption on the Bookmarks menu and the reference it shows.
struct Bookmark
{
    QString name;
    QString reference;

    friend bool operator==(const Bookmark &, const Bookmark &) = default;
};

// "bookmarks.dat" of the program folder: one bookmark a line, in menu order, its name and then its
// reference, each in double quotes, separated by a comma, the line ending in CR LF. Fields are
// written as they are, without escaping, so a field holding a double quote or a line break could
// not be read back whole; such text is refused before it reaches the file.
//
// A field is read as old list files are: blanks before it are skipped; a quoted field runs to the
// next double quote and ends at the comma or line end after it; an unquoted field runs to the next
// comma or line end, without its outer blanks. A line that does not give exactly two fields this
// way, or that holds control characters, is not a bookmark. Such lines are kept as they stand and
// written back after the bookmarks whenever the file is replaced, so no line is ever lost. Blank
// lines carry nothing and are skipped.
//
// The file is read as UTF-8 when it is valid UTF-8, else as Windows-1252, and written back the same
// way. Every write replaces the file in one step: a failure leaves the old file whole and tells the
// user why.
class BookmarkFile
{
public:
    struct Content
    {
        QList<Bookmark> bookmarks;
        // The lines that are not bookmarks, exactly as they stand, and their line numbers (from 1).
        QStringList unreadableLines;
        QList<int> unreadableLineNumbers;
        platform::TextEncoding encoding = platform::TextEncoding::Utf8;
    };

    static QString FileName() { return QStringLiteral("bookmarks.dat"); }

    // The file of a program folder, found without regard to case.
    explicit BookmarkFile(const QString &programFolder);

    QString Path() const { return m_path; }
    bool Exists() const;

    // The file's part of loading the bookmarks: a missing file is reported and created empty, then
    // the file is read. Nothing when it cannot be read (the user has been told).
    std::optional<Content> Load() const;

    // Adds a bookmark as the Add dialog's accept does: an empty name or reference, or text the
    // file could not read back, is refused with a message; else one line is appended. True when
    // the bookmark was added; otherwise the user has been told why.
    bool Add(const QString &name, const QString &reference) const;

    // Replaces the whole file with these bookmarks, followed by the lines of the file as it is
    // now that are not bookmarks. False when it could not (the user has been told, and the old
    // file is whole).
    bool Save(const QList<Bookmark> &bookmarks) const;

    // The message that refuses a new name and reference; empty when they can be added.
    static QString Refusal(const QString &name, const QString &reference);
    // The message for a name or reference that the file could not read back; empty when none.
    static QString UnwritableText(const QString &name, const QString &reference);

    // The reading and writing rules on their own.
    static Content Parse(const QByteArray &bytes);
    static std::optional<Bookmark> ParseLine(QStringView line);
    static QString FormatLine(const Bookmark &bookmark);
    // The bookmarks' lines, then the kept lines, each ending in CR LF, in the given encoding
    // (UTF-8 where the text does not fit it).
    static QByteArray Serialize(const QList<Bookmark> &bookmarks, const QStringList &keptLines,
                                platform::TextEncoding encoding);

private:
    std::optional<Content> read() const;
    bool write(const QByteArray &bytes, const QString &failure) const;

    QString m_path;
};
