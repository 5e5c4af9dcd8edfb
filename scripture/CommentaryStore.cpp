#include "scripture/CommentaryStore.h"

#include "scripture/basStrings.h"

CommentaryStore::CommentaryStore(const QString &programFolder)
{
    m_store.setInTextReference(false);
    m_store.setSeparator(QStringLiteral("\r\n"));
    m_store.setVersionPath(basStrings::JoinPath(programFolder, QStringLiteral("tvc")));
}

QString CommentaryStore::ViewText(const clsBible &translation, const Passage &chapter)
{
    if (!Changed(chapter))
        return m_text;
    m_fetched = true;
    m_book = chapter.book;
    m_chapter = chapter.chapterFrom;

    int book = m_store.BookByName(m_book);
    if (book == 0 && m_store.BooksCount() == translation.BooksCount())
        book = chapter.bookNumber;
    QString commentary;
    if (book != 0)
        commentary = m_store.passage(m_store.BookName(book), m_chapter);
    m_text = QStringLiteral("Tovelian's Commentary \r\n") + commentary;
    return m_text;
}

QString CommentaryStore::Standard() const
{
    return m_store.Standard();
}

bool CommentaryStore::Changed(const Passage &chapter) const
{
    return !m_fetched || chapter.book != m_book || chapter.chapterFrom != m_chapter;
}
