// Dictionary and names files of any content: filling the list and looking words up never crash or
// hang, every headword that has no blanks around it is found, the definition starts with the key
// in capitals, and the list search never passes the entry it was given the start of.
#include "FuzzSupport.h"
#include "library/ListSearch.h"
#include "library/WordList.h"
#include "scripture/basStrings.h"

#include <cstdint>
#include <cstdlib>

namespace {

void lookUp(const WordList &list, const QStringList &headwords, qsizetype at)
{
    const QString &word = headwords.at(at);
    const WordList::LookUp found = list.Find(word);
    if (basStrings::TrimBlanks(word).size() == word.size()) {
        if (found.outcome != WordList::Outcome::Found ||
            !found.definition.startsWith(WordList::SearchKey(word) + QStringLiteral(": ")))
            std::abort();
    }
    if (list.kind() == WordList::Kind::Names && !found.references.isEmpty())
        std::abort();
    const int row = ListSearch::FirstPrefixMatch(headwords, word.left(3));
    if (row < 0 || row > at)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::quietMessages();
    if (size > 262144)
        return 0;
    const QByteArray input(reinterpret_cast<const char *>(data), qsizetype(size));
    const QString root = fuzz::scratch().path();
    fuzz::write(root + QStringLiteral("/Dictionary.dat"), input);
    fuzz::write(root + QStringLiteral("/names.dat"), input);

    for (const WordList::Kind kind : {WordList::Kind::Dictionary, WordList::Kind::Names}) {
        const WordList list(root, kind);
        const std::optional<QStringList> headwords = list.Headwords();
        if (!headwords)
            std::abort();
        if (!headwords->isEmpty()) {
            lookUp(list, *headwords, 0);
            lookUp(list, *headwords, headwords->size() - 1);
        }
        list.Find(QStringLiteral(" love "));
    }
    return 0;
}
