#pragma once

#include <QString>

// The user's notes: one rich-text document per chapter, kept in book files under the program
// folder's "notes" folder, laid out like a translation (notes/oldtest/GENESIS.dat holds the notes
// of every chapter of Genesis, each after its chapter's marker).
class NotesStore
{
public:
    explicit NotesStore(const QString &programFolder);

    // The book file of a book's notes without ".dat"; empty for a testament other than 0 and 1 or
    // a name that cannot be a file name.
    QString BookPath(int testament, const QString &book) const;

    // The stored markup of a chapter's notes; empty when there are none.
    QString Read(int testament, const QString &book, int chapter) const;

    // Stores a chapter's notes, replacing what was there. Returns an empty string on success, else
    // the reason; the book file is then as it was.
    QString Write(int testament, const QString &book, int chapter, const QString &markup) const;

    // The markup with every line that could read as a chapter marker made safe by an empty group
    // "{}" in front. Rich text ignores line breaks in its source, so this changes nothing shown.
    static QString Storable(const QString &markup);

    // A rich-text document holding plain text, one paragraph per line.
    static QString RtfFromPlainText(const QString &text);

private:
    QString m_programFolder;
};
