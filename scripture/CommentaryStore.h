#pragma once

#include "scripture/clsBible.h"

#include <QString>

// The commentary that comes with the program (the "tvc" folder, laid out like a translation),
// shown for the chapter the reader is on. It keeps the last chapter it fetched, so coming back to
// the commentary on the same chapter reads nothing again.
class CommentaryStore
{
public:
    // Loads the commentary's book maps; a missing or damaged map is reported as the store reports
    // it for a translation.
    explicit CommentaryStore(const QString &programFolder);

    // "Tovelian's Commentary " and CR LF, then the commentary on a chapter of the translation
    // (its book and first chapter), each line followed by CR LF. A translation in another
    // language names its books differently; then the book of the same number is taken when both
    // have as many books.
    QString ViewText(const clsBible &translation, const Passage &chapter);

    // The reference of the commentary last fetched.
    QString Standard() const;

    // Whether a chapter is another book or chapter than the commentary last fetched.
    bool Changed(const Passage &chapter) const;

private:
    clsBible m_store;
    bool m_fetched = false;
    QString m_book;
    int m_chapter = 0;
    QString m_text;
};
