// Strong's numbers as typed and in book text of any content: a typed number is either refused or
// made H or G and a number from 1 without leading zeros, the same again when typed as made; the
// concordance lists only verses that carry the number in braces; and the first tagged translation
// of a program folder is the one whose text carries numbers. The input is what was typed, NUL-NUL,
// then the book file of the second testament's first book.
#include "FuzzSupport.h"
#include "scripture/BookFiles.h"
#include "scripture/QuickSearch.h"
#include "scripture/StrongConcordance.h"
#include "scripture/basStrings.h"
#include "scripture/clsBible.h"

#include <QRegularExpression>
#include <cstdint>

namespace {

void writeTranslation(const QString &folder, const QByteArray &secondTestamentBook)
{
    fuzz::write(folder + QStringLiteral("/bible.dat"), "Fuzz\r\nOld\r\nNew\r\n");
    fuzz::write(folder + QStringLiteral("/oldtest/map.dat"), "\"Genesis\",2\r\n");
    fuzz::write(folder + QStringLiteral("/newtest/map.dat"), "\"Matthew\",2\r\n\"Mark\",1\r\n");
    fuzz::write(folder + QStringLiteral("/oldtest/GENESIS.dat"),
                "CHAPTER 1\r\n1 In the beginning God created\r\nCHAPTER 2\r\n1 Thus\r\n");
    fuzz::write(folder + QStringLiteral("/newtest/MATTHEW.dat"), secondTestamentBook);
    fuzz::write(folder + QStringLiteral("/newtest/MARK.dat"),
                "CHAPTER 1\r\n1 The beginning{G746} of the gospel{G2098}\r\n");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::quietMessages();
    if (size > 65536)
        return 0;
    const QList<QByteArray> input = fuzz::parts(data, size, 2);
    const QString typed = QString::fromUtf8(input.first());

    static const QRegularExpression shape(QStringLiteral("^[HG][1-9][0-9]{0,8}$"));
    const QString number = StrongConcordance::Normalize(typed);
    FUZZ_CHECK(number.isEmpty() || shape.match(number).hasMatch());
    FUZZ_CHECK(StrongConcordance::Normalize(number) == number);

    BookFiles::clear();
    const QString program = fuzz::freshFolder(QStringLiteral("program"));
    // A translation without numbers listed first, so the search for a tagged one passes over it.
    writeTranslation(program + QStringLiteral("/AKJV"),
                     "CHAPTER 1\r\n1 The book of the generation\r\n");
    writeTranslation(program + QStringLiteral("/TAGGED"),
                     input.size() > 1 ? input.at(1) : QByteArray());
    clsBible tagged;
    tagged.setVersionPath(program + QStringLiteral("/TAGGED"));
    FUZZ_CHECK(StrongConcordance::TaggedTranslation(program) ==
               (StrongConcordance::CarriesNumbers(tagged) ? QStringLiteral("TAGGED") : QString()));

    QuickSearch search;
    const QString sought = number.isEmpty() ? QStringLiteral("G746") : number;
    const QuickSearch::Result result =
        StrongConcordance::Run(search, tagged, sought, 20, QStringLiteral("Fuzz"));
    const QString braced = u'{' + sought + u'}';
    for (const SearchHit &hit : result.hits)
        FUZZ_CHECK(basStrings::UpperCase(hit.line).contains(braced));
    return 0;
}
