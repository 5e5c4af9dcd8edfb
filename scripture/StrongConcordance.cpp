#include "scripture/StrongConcordance.h"

#include "scripture/BookFiles.h"
#include "scripture/TranslationList.h"
#include "scripture/basStrings.h"
#include "scripture/clsBible.h"

namespace StrongConcordance {

QString Normalize(QStringView typed)
{
    // The query language and the folding of tagged verses read every number through here, so it
    // makes no copy before it knows the text is a number.
    const QStringView text = basStrings::TrimBlanks(typed);
    if (text.size() < 2)
        return QString();
    const char16_t letter = text.at(0).unicode();
    if (letter != u'H' && letter != u'h' && letter != u'G' && letter != u'g')
        return QString();
    qsizetype first = 1;
    while (first < text.size() - 1 && text.at(first) == u'0')
        ++first;
    for (qsizetype i = first; i < text.size(); ++i) {
        if (!basStrings::IsDigit(text.at(i)))
            return QString();
    }
    if (text.at(first) == u'0' || text.size() - first > 9)
        return QString();
    return QChar(letter == u'h' || letter == u'H' ? u'H' : u'G') + text.mid(first).toString();
}

bool CarriesNumbers(const clsBible &store)
{
    for (const int book : {store.FirstBookOfTestament(0), store.FirstBookOfTestament(1)}) {
        if (book < 1 || book > store.BooksCount())
            continue;
        const std::shared_ptr<const BookFiles::Content> file =
            BookFiles::lines(store.BookFilePath(book));
        if (!file)
            continue;
        // A tagged translation carries numbers on nearly every verse; a few hundred lines tell.
        for (qsizetype i = 0; i < file->lines.size() && i < 400; ++i) {
            const QString &line = file->lines.at(i);
            if (line.contains(u"{H") || line.contains(u"{G"))
                return true;
        }
    }
    return false;
}

QString TaggedTranslation(const QString &programFolder, const QString &except)
{
    for (const InstalledTranslation &t : TranslationList::List(programFolder)) {
        if (t.folder.compare(except, Qt::CaseInsensitive) == 0)
            continue;
        clsBible store;
        store.setVersionPath(basStrings::JoinPath(programFolder, t.folder));
        if (!store.LastReadFailed() && CarriesNumbers(store))
            return t.folder;
    }
    return QString();
}

const clsBible *StoreFor(const clsBible &open, const QString &programFolder,
                         const QString &openFolder, std::unique_ptr<clsBible> &other,
                         QString &otherName)
{
    if (CarriesNumbers(open))
        return &open;
    const QString folder = TaggedTranslation(programFolder, openFolder);
    if (folder.isEmpty())
        return nullptr;
    const QString path = basStrings::JoinPath(programFolder, folder);
    other = std::make_unique<clsBible>();
    other->setVersionPath(path);
    other->setSeparator(open.Separator());
    otherName = TranslationList::ReadHeader(path).name;
    return other.get();
}

QuickSearch::Result Run(QuickSearch &search, const clsBible &store, const QString &number,
                        int limit, const QString &otherTranslation)
{
    const QString braced = u'{' + number + u'}';
    QuickSearch::Result result = search.run(store, braced, false, limit);
    if (result.outcome == QuickSearch::Outcome::UnderLimit) {
        QString shown = u'"' + number + u'"';
        if (!otherTranslation.isEmpty())
            shown += QStringLiteral(" in ") + otherTranslation;
        result.title.replace(u'"' + braced + u'"', shown);
    } else if (!otherTranslation.isEmpty() && result.outcome != QuickSearch::Outcome::Failed) {
        result.title += QStringLiteral(" (") + otherTranslation + u')';
    }
    return result;
}

} // namespace StrongConcordance
