#include "scripture/NotesStore.h"

#include "platform/FileSystem.h"
#include "platform/TextCodec.h"
#include "scripture/ChapterMarker.h"
#include "scripture/ChapterSection.h"
#include "scripture/basStrings.h"

namespace {

// A book name from a translation's map becomes a file name; one that would name another folder
// is refused rather than written somewhere the user never meant.
bool usableName(const QString &name)
{
    return !name.isEmpty() && name != u"." && name != u".." && !name.contains(u'/') &&
           !name.contains(u'\\') && !name.contains(QChar(0));
}

} // namespace

NotesStore::NotesStore(const QString &programFolder) : m_programFolder(programFolder) {}

QString NotesStore::BookPath(int testament, const QString &book) const
{
    const QString name = basStrings::UpperCase(book.trimmed());
    if ((testament != 0 && testament != 1) || !usableName(name))
        return QString();
    const QString folder =
        testament == 0 ? QStringLiteral("notes/oldtest/") : QStringLiteral("notes/newtest/");
    return basStrings::JoinPath(m_programFolder, folder) + name;
}

QString NotesStore::Read(int testament, const QString &book, int chapter) const
{
    const QString path = BookPath(testament, book);
    return path.isEmpty() ? QString() : ChapterSection::Read(path, chapter);
}

QString NotesStore::Write(int testament, const QString &book, int chapter,
                          const QString &markup) const
{
    if (testament != 0 && testament != 1)
        return QStringLiteral("No book is open to keep notes for.");
    const QString path = BookPath(testament, book);
    if (path.isEmpty())
        return QStringLiteral("\"%1\" cannot be the name of a notes file.").arg(book);
    if (chapter < 1)
        return QStringLiteral("Notes are kept for chapters 1 and up, not for chapter %1.")
            .arg(chapter);
    return ChapterSection::Rewrite(path, chapter, Storable(markup));
}

QString NotesStore::Storable(const QString &markup)
{
    QString out;
    out.reserve(markup.size());
    const qsizetype n = markup.size();
    for (qsizetype start = 0; start < n;) {
        qsizetype end = start;
        while (end < n && markup.at(end) != u'\r' && markup.at(end) != u'\n')
            ++end;
        if (ChapterMarker::MayReadAsMarker(QStringView(markup).sliced(start, end - start)))
            out += QStringLiteral("{}");
        qsizetype next = end;
        if (next < n)
            next +=
                (markup.at(next) == u'\r' && next + 1 < n && markup.at(next + 1) == u'\n') ? 2 : 1;
        out += QStringView(markup).sliced(start, next - start);
        start = next;
    }
    return out;
}

QString NotesStore::RtfFromPlainText(const QString &text)
{
    QString out = QStringLiteral("{\\rtf1\\ansi\\uc1 ");
    const QStringList paragraphs = platform::SplitLines(text);
    for (qsizetype p = 0; p < paragraphs.size(); ++p) {
        if (p > 0)
            out += QStringLiteral("\\par\r\n");
        for (const QChar c : paragraphs.at(p)) {
            const char16_t u = c.unicode();
            if (u == u'\\' || u == u'{' || u == u'}')
                out += u'\\' + QString(c);
            else if (u == u'\t')
                out += QStringLiteral("\\tab ");
            else if (u >= 0x20 && u < 0x7F)
                out += c;
            else if (u >= 0x80)
                // A signed 16-bit number, then the character shown by readers that know no \u.
                out += QStringLiteral("\\u%1?").arg(int(qint16(u)));
            // Other control characters have nothing to show.
        }
    }
    out += QStringLiteral("}\r\n");
    return out;
}
