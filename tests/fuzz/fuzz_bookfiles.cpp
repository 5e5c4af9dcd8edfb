// Book maps and book files of any content: loading, fetching, both searches and checking never
// crash or hang. The input is split at the first NUL-NUL: map.dat before it, the book file after
// it.
#include "FuzzSupport.h"
#include "platform/VbError.h"
#include "scripture/AdvancedSearch.h"
#include "scripture/BookFiles.h"
#include "scripture/BookScan.h"
#include "scripture/QuickSearch.h"
#include "scripture/TranslationCheck.h"
#include "scripture/clsBible.h"

#include <QStringList>
#include <cstdint>

namespace {

// The lines holding a word and their chapters, or the error, as a scan sees them: reading every
// line, or only where the word stands.
QStringList linesHolding(const clsBible &bible, const QString &word, bool byPlaces)
{
    QStringList lines;
    const SearchTerm term(word);
    BookScan scan;
    if (byPlaces)
        scan.heldWord = word.toLatin1();
    scan.onLine = [&](const BookScan::Line &line) {
        if (term.In(line, false))
            lines << line.chapter + u':' + line.text();
        return BookScan::Next::Line;
    };
    try {
        scan.run(bible);
    } catch (const VbError &error) {
        lines << QString::number(error.number);
    }
    return lines;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::quietMessages();
    if (size > 65536)
        return 0;
    const QByteArray input(reinterpret_cast<const char *>(data), qsizetype(size));
    const qsizetype cut = input.indexOf(QByteArray("\0\0", 2));
    const QByteArray map = cut < 0 ? input : input.left(cut);
    const QByteArray book = cut < 0 ? QByteArray("CHAPTER 1\r\n1 x\r\n") : input.mid(cut + 2);

    // The store keeps book files while their size and time stay the same, and a file rewritten
    // within the same clock tick keeps both: each run starts with nothing kept.
    BookFiles::clear();
    const QString root = fuzz::freshFolder(QStringLiteral("BOOKS"));
    fuzz::write(root + QStringLiteral("/bible.dat"), "Fuzz\r\nOld\r\nNew\r\n");
    fuzz::write(root + QStringLiteral("/oldtest/map.dat"), map);
    fuzz::write(root + QStringLiteral("/newtest/map.dat"), "\"Zed\",2\r\n");
    fuzz::write(root + QStringLiteral("/oldtest/GENESIS.dat"), book);
    fuzz::write(root + QStringLiteral("/newtest/ZED.dat"), book);

    clsBible bible;
    bible.setVersionPath(root);
    bible.Passagebystandard(QStringLiteral("Genesis 1:1-2:3,2,Zed 2"));
    bible.Passagebystandard(QStringLiteral("Zed 3:2"));
    for (int b = 1; b <= bible.BooksCount(); ++b)
        bible.passage(bible.BookName(b), 1, 0, 300, 0);
    for (const QString &word : {QStringLiteral("X"), QStringLiteral("A B"), QStringLiteral("SS")})
        FUZZ_CHECK(linesHolding(bible, word, true) == linesHolding(bible, word, false));
    QuickSearch search;
    search.run(bible, QStringLiteral("X  a"), true, 5);
    AdvancedSearch advanced;
    advanced.run(bible, {QStringLiteral("x \u00e9 A"),
                         AdvancedSearch::Mode::AnyWord,
                         false,
                         {true, true, true},
                         5});
    advanced.run(
        bible,
        {QStringLiteral("1 x"), AdvancedSearch::Mode::ExactPhrase, true, {true, true, true}, 5});
    TranslationCheck::Check(root);
    return 0;
}
