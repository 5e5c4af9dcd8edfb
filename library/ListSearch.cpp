#include "library/ListSearch.h"

#include "scripture/basStrings.h"

namespace ListSearch {

int FirstPrefixMatch(const QStringList &entries, const QString &text)
{
    const QString wanted = basStrings::UpperCase(text);
    for (qsizetype i = 0; i < entries.size(); ++i) {
        if (basStrings::UpperCase(entries.at(i).left(text.size())) == wanted)
            return int(i);
    }
    return -1;
}

} // namespace ListSearch
