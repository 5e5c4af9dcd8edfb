#include "scripture/QuerySearch.h"

#include "platform/FileSystem.h"
#include "scripture/FoldedVerses.h"
#include "scripture/StrongConcordance.h"
#include "scripture/TranslationList.h"
#include "scripture/VerseNumbering.h"
#include "scripture/basStrings.h"
#include "scripture/clsBible.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <memory>
#include <tuple>

namespace {

QString csvField(const QString &field)
{
    if (!field.contains(u',') && !field.contains(u'"') && !field.contains(u'\n') &&
        !field.contains(u'\r'))
        return field;
    QString quoted = field;
    quoted.replace(QStringLiteral("\""), QStringLiteral("\"\""));
    return u'"' + quoted + u'"';
}

struct Translation
{
    QString name;
    std::unique_ptr<clsBible> store;
    VerseNumbering numbering;
    QList<int> books;
};

// A verse found, kept light until it is listed.
struct Found
{
    int translation = 0;
    int book = 0;
    std::shared_ptr<const FoldedVerses> verses;
    qsizetype index = 0;
    std::tuple<int, int, int> kjvPlace; // where the KJV's numbering has it, for interleaving
};

QString folderName(const QString &path)
{
    QString trimmed = QDir::fromNativeSeparators(path);
    while (trimmed.size() > 1 && trimmed.endsWith(u'/'))
        trimmed.chop(1);
    return QFileInfo(trimmed).fileName();
}

} // namespace

QString QueryHit::CsvHeader()
{
    return QStringLiteral("translation,reference,book,chapter,verse,text\r\n");
}

QString QueryHit::CsvRecord() const
{
    return csvField(translation) + u',' + csvField(reference) + u',' + csvField(bookName) + u',' +
           QString::number(chapter) + u',' + QString::number(verse) + u',' + csvField(text) +
           QStringLiteral("\r\n");
}

QuerySearch::Result QuerySearch::run(const SearchQuery &query, const Options &options)
{
    Result result;
    std::vector<Translation> translations;
    for (const QString &path : options.translations) {
        if (!TranslationList::IsTranslation(path)) {
            result.failureMessage += QStringLiteral("%1 is not a translation folder (it has no "
                                                    "bible.dat).\n")
                                         .arg(QDir::toNativeSeparators(path));
            continue;
        }
        Translation t;
        t.name = folderName(path);
        t.store = std::make_unique<clsBible>();
        t.store->setVersionPath(path);
        if (t.store->LastReadFailed()) {
            result.failureMessage += QStringLiteral("The book maps of %1 cannot be read.\n")
                                         .arg(QDir::toNativeSeparators(path));
            continue;
        }
        t.numbering = VerseNumbering::ForTranslation(*t.store);
        translations.push_back(std::move(t));
    }
    result.translations = int(translations.size());
    if (translations.empty())
        return result;
    if (query.UsesStrongsNumbers()) {
        for (const Translation &t : translations) {
            if (!StrongConcordance::CarriesNumbers(*t.store))
                result.withoutStrongsNumbers.append(t.name);
        }
    }

    // The books chosen by the first translation's numbers, found in the others by name.
    const Translation &first = translations.front();
    QList<int> chosen;
    for (int b = 1; b <= first.store->BooksCount(); ++b) {
        if (options.books.isEmpty() || options.books.value(b - 1, false))
            chosen.append(b);
    }
    int total = 0;
    for (Translation &t : translations) {
        for (const int b : std::as_const(chosen)) {
            const int own = &t == &first ? b : first.numbering.SameBookIn(t.numbering, b);
            if (own >= 1 && own <= t.store->BooksCount())
                t.books.append(own);
        }
        total += int(t.books.size());
    }

    const bool interleave = options.order == Order::ByReference && translations.size() > 1;
    std::vector<Found> found;
    int done = 0;
    for (size_t ti = 0; ti < translations.size() && !result.stopped; ++ti) {
        const Translation &t = translations[ti];
        for (const int b : t.books) {
            if (onProgress && !onProgress(done, total)) {
                result.stopped = true;
                break;
            }
            ++done;
            const QString path = t.store->BookFilePath(b);
            const std::shared_ptr<const FoldedVerses> verses = FoldedVerses::OfBookFile(path);
            if (!verses) {
                result.failureMessage +=
                    QStringLiteral("The book file %1 cannot be read.\n")
                        .arg(QDir::toNativeSeparators(platform::ResolvePath(path)));
                continue;
            }
            const std::vector<bool> matching = query.MatchingVerses(*verses);
            for (qsizetype i = 0; i < verses->count(); ++i) {
                if (!matching[size_t(i)])
                    continue;
                Found hit{int(ti), b, verses, i, {}};
                if (interleave) {
                    const FoldedVerses::Verse &v = verses->verses.at(i);
                    hit.kjvPlace = t.numbering.KjvOrder(b, v.chapter, v.verse);
                }
                found.push_back(std::move(hit));
            }
        }
    }
    if (interleave) {
        std::stable_sort(found.begin(), found.end(), [](const Found &a, const Found &b) {
            return std::tie(a.kjvPlace, a.translation) < std::tie(b.kjvPlace, b.translation);
        });
    }
    result.found = int(found.size());
    const qsizetype listed =
        std::min<qsizetype>(qsizetype(found.size()), std::max(0, options.limit));
    result.hits.reserve(listed);
    for (qsizetype k = 0; k < listed; ++k) {
        const Found &f = found[size_t(k)];
        const Translation &t = translations[size_t(f.translation)];
        const FoldedVerses::Verse &v = f.verses->verses.at(f.index);
        QueryHit hit;
        hit.translation = t.name;
        hit.book = f.book;
        hit.bookName = t.store->BookName(f.book);
        hit.chapter = v.chapter;
        hit.verse = v.verse;
        hit.reference = basStrings::UpperCase(hit.bookName) + u' ' + QString::number(v.chapter) +
                        u':' + QString::number(v.verse);
        hit.text = f.verses->Shown(f.index).toString();
        result.hits.append(hit);
    }
    if (result.failureMessage.endsWith(u'\n'))
        result.failureMessage.chop(1);
    return result;
}
