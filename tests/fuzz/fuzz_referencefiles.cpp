// Reference-list files of any content: every reader loads without crashing or hanging, they agree
// on the number of entries, the name search finds every entry by its own name, and the verse list
// holds the header line as well as the entries.
#include "FuzzSupport.h"
#include "library/ReferenceLists.h"
#include "scripture/basStrings.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::quietMessages();
    if (size > 262144)
        return 0;
    const QByteArray input(reinterpret_cast<const char *>(data), qsizetype(size));
    const QString path = fuzz::scratch().path() + QStringLiteral("/list.dat");
    fuzz::write(path, input);

    NamedReferences named;
    GospelParallels parallels;
    Prophecies prophecies;
    VerseList verses;
    if (!named.Load(path) || !parallels.Load(path) || !prophecies.Load(path) || !verses.Load(path))
        std::abort();
    const int count = named.Count();
    if (parallels.Count() != count || prophecies.Count() != count)
        std::abort();
    if (verses.Count() != count + 1 && !(verses.Count() == 0 && count == 0))
        std::abort();

    for (const int record : {0, 1, count, count + 1}) {
        named.References(record);
        prophecies.Prophecy(record);
        for (int g = 0; g < GospelParallels::GospelCount; ++g)
            parallels.Reference(record, GospelParallels::Gospel(g));
    }
    if (count > 0) {
        // A name found by itself, unless it is only blanks (an empty query finds nothing).
        const QString name = named.Names().last();
        if (!basStrings::TrimBlanks(name).isEmpty() && !named.Search(name).contains(count - 1))
            std::abort();
        if (FindName(named.Names(), named.Names().first()) == 0 &&
            basStrings::TrimBlanks(named.Names().first()).size() == named.Names().first().size())
            std::abort();
    }
    return 0;
}
