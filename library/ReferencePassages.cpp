#include "library/ReferencePassages.h"

#include "library/ReferenceLists.h"
#include "scripture/clsBible.h"

namespace ReferencePassages {

QString TopicTitle(const NamedReferences &topics, int record)
{
    return topics.Names().value(record - 1) + QStringLiteral(" - ") + topics.ReferenceField(record);
}

QString TopicText(const clsBible &bible, const NamedReferences &topics, int record)
{
    QString text;
    for (const QString &reference : topics.References(record))
        text += bible.Fetch(reference).text;
    return text;
}

int PickVerse(const VerseList &verses, double r)
{
    // Guards the draw too, so that a value at or past 1 still names a line of the list.
    const int n = int(r * verses.Count()) + 1;
    return n < 1 ? 1 : (verses.Count() > 0 && n > verses.Count() ? verses.Count() : n);
}

QString VerseText(const clsBible &bible, const VerseList &verses, int n)
{
    if (verses.Count() == 0)
        return {};
    const Passage verse = bible.Fetch(verses.Line(n), false);
    return verse.Standard() + QStringLiteral("\r\n") + verse.text;
}

QString VersesMissingText()
{
    // The question mark after "not found" and the trailing blank are kept as users know them.
    const QString name = QStringLiteral("verses.dat");
    return QStringLiteral("That the ") + name + QStringLiteral(" file was not found? ") +
           QStringLiteral("\r\n\r\n") + QStringLiteral("Create a text file named ") + name +
           QStringLiteral(" using NotePad with 1 verse per line. ") +
           QStringLiteral("Then place it in the same directory as the application. ");
}

} // namespace ReferencePassages
