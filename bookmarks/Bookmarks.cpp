#include "bookmarks/Bookmarks.h"

#include "bookmarks/BookmarkFile.h"
#include "platform/MsgBox.h"
#include "settings/ProgramSettings.h"

namespace {
// Line numbers named in the message; a badly damaged file does not get a page of them.
constexpr int kNumbersShown = 10;
} // namespace

Bookmarks::Bookmarks(const QString &programFolder) : m_folder(programFolder) {}

QString Bookmarks::ProgramFolder() const
{
    return m_folder.isEmpty() ? ProgramSettings::instance().programFolder() : m_folder;
}

QString Bookmarks::FilePath() const
{
    return BookmarkFile(ProgramFolder()).Path();
}

QString Bookmarks::Reference(int k) const
{
    return k >= 1 && k <= m_references.size() ? m_references.at(k - 1) : QString();
}

QString Bookmarks::UnreadableMessage(const QList<int> &lineNumbers)
{
    const int count = int(lineNumbers.size());
    if (count == 1)
        return QStringLiteral(
                   "Line %1 of 'bookmarks.dat' could not be read as a bookmark, so it is "
                   "not on the Bookmarks menu.\r\n"
                   "The line is kept in the file as it stands and is written back when "
                   "the bookmarks are saved.")
            .arg(lineNumbers.first());
    QStringList numbers;
    for (int i = 0; i < count && i < kNumbersShown; ++i)
        numbers.append(QString::number(lineNumbers.at(i)));
    if (count > kNumbersShown)
        numbers.append(QStringLiteral("..."));
    return QStringLiteral("%1 lines of 'bookmarks.dat' could not be read as bookmarks (lines %2), "
                          "so they are not on the Bookmarks menu.\r\n"
                          "The lines are kept in the file as they stand and are written back when "
                          "the bookmarks are saved.")
        .arg(count)
        .arg(numbers.join(QStringLiteral(", ")));
}

void Bookmarks::Load()
{
    // Both lists start again.
    m_names.clear();
    m_references.clear();
    m_unreadable.clear();

    // The file, repaired when it is missing, read bookmark by bookmark.
    const std::optional<BookmarkFile::Content> content = BookmarkFile(ProgramFolder()).Load();
    if (!content)
        return;
    m_names.reserve(content->bookmarks.size());
    m_references.reserve(content->bookmarks.size());
    for (const Bookmark &bookmark : content->bookmarks) {
        m_names.append(bookmark.name);
        m_references.append(bookmark.reference);
    }

    // The same damaged lines are not reported again after every add or save.
    m_unreadable = content->unreadableLines;
    if (!m_unreadable.isEmpty() && m_unreadable != m_reported)
        platform::MsgBox(UnreadableMessage(content->unreadableLineNumbers), vb::vbExclamation);
    m_reported = m_unreadable;
}
