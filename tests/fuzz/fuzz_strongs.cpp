// Strong's index and data files of any content: reading the index, choosing an entry for a typed
// number or word and showing it never crash or hang; a chosen number is always an entry of the
// index and a shown entry's line starts with its number. The first byte of the input says where
// the index ends and the data begins.
#include "FuzzSupport.h"
#include "library/StrongsLexicon.h"

#include <cstdint>
#include <cstdlib>

namespace {

void choose(StrongsLexicon &lexicon, const QString &typed)
{
    const auto hebrew = StrongsLexicon::Language::Hebrew;
    const StrongsLexicon::Choice choice = lexicon.Choose(hebrew, typed);
    if (choice.number < 0 || choice.number > lexicon.Index(hebrew).size())
        std::abort();
    const StrongsLexicon::Entry entry = lexicon.Show(hebrew, choice.number);
    if (entry.outcome == StrongsLexicon::Outcome::Found &&
        !entry.definition.startsWith(QString::number(choice.number) + QStringLiteral(" - ")))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::quietMessages();
    if (size < 1 || size > 262144)
        return 0;
    const QByteArray rest(reinterpret_cast<const char *>(data) + 1, qsizetype(size) - 1);
    const qsizetype cut = rest.size() * data[0] / 255;
    const QString root = fuzz::scratch().path();
    fuzz::write(root + QStringLiteral("/strong/hebrew.idx"), rest.left(cut));
    fuzz::write(root + QStringLiteral("/strong/hebrew.dat"), rest.mid(cut));

    StrongsLexicon lexicon(root);
    const QStringList &index = lexicon.Index(StrongsLexicon::Language::Hebrew);
    for (const QString &typed : {QStringLiteral("1"), QStringLiteral("0"), QStringLiteral("32767"),
                                 QString(), QString::number(index.size() + 1)})
        choose(lexicon, typed);
    if (!index.isEmpty()) {
        choose(lexicon, index.constFirst());
        choose(lexicon, index.constLast().left(2));
    }
    if (StrongsLexicon::DefinitionLine(7, QString::fromLatin1(rest.left(200))).left(4) !=
        QStringLiteral("7 - "))
        std::abort();
    return 0;
}
