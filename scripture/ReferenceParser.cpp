#include "scripture/ReferenceParser.h"

#include "scripture/basStrings.h"
#include "scripture/clsSeparation.h"

namespace ReferenceParser {

ChapterVerse SplitChapterVerse(const QString &text)
{
    const qsizetype colon = text.indexOf(u':');
    if (colon < 0)
        return {basStrings::LeadingNumber(text), 0, false};
    return {basStrings::LeadingNumber(QStringView(text).left(colon)),
            basStrings::LeadingNumber(QStringView(text).mid(colon + 1)), true};
}

QString ExpandAbbreviation(const QString &bookPart)
{
    struct Row
    {
        const char16_t *abbreviation;
        const char16_t *replacement;
    };
    static constexpr Row table[] = {
        {u"DT", u"DEU"},    {u"JDG", u"JUD"},   {u"JG", u"JUD"},  {u"SS", u"SONG"},
        {u"SOS", u"SONG"},  {u"JNH", u"JONAH"}, {u"MT", u"MAT"},  {u"MK", u"MARK"},
        {u"MR", u"MARK"},   {u"LK", u"LUKE"},   {u"JN", u"JOHN"}, {u"PHP", u"PHILI"},
        {u"PHM", u"PHILE"}, {u"JAS", u"JAMES"},
    };
    const QString key = basStrings::UpperCase(basStrings::TrimBlanks(bookPart).toString());
    for (const Row &row : table) {
        if (key == QStringView(row.abbreviation))
            return QString::fromUtf16(row.replacement);
    }
    // The numbered epistles of John: the digit stays, the rest becomes JOHN.
    if (key == u"1JN" || key == u"2JN" || key == u"3JN")
        return key.left(1) + QStringLiteral("JOHN");
    return bookPart;
}

Reference Parse(const QString &text)
{
    // 1. Upper-case and trim.
    QString s = basStrings::UpperCase(basStrings::TrimBlanks(text).toString());

    // 2. A leading digit is joined to the book name: "1 COR 13" reads as "1COR 13".
    if (!s.isEmpty() && basStrings::IsDigit(s.at(0))) {
        qsizetype i = 1;
        while (i < s.size() && s.at(i) == u' ')
            ++i;
        s = s.left(1) + s.mid(i);
    }

    // 3. A bare book name means its first chapter.
    if (!s.contains(u' '))
        s += QStringLiteral(" 1");

    // 4. Split at the last blank, so book names may hold blanks ("SONG OF SOLOMON 2:1").
    const qsizetype blank = s.lastIndexOf(u' ');
    Reference ref;
    ref.book = s.left(blank);
    const QString numbers = basStrings::TrimBlanks(QStringView(s).mid(blank + 1)).toString();

    // 5. One or two chapter:verse pieces.
    clsSeparation pieces;
    pieces.setDelimiter(QStringLiteral("-"));
    pieces.setText(numbers);
    const QStringList items = pieces.items();
    const ChapterVerse first = SplitChapterVerse(items.value(0));
    ref.chapterFrom = first.chapter;
    ref.verseFrom = first.verse;
    if (items.size() < 2)
        return ref;

    // 7. "3:16-18": a second piece without ":" after a verse is a verse of the same chapter.
    QString second = items.at(1);
    if (!second.contains(u':') && first.verse != 0)
        second = QString::number(first.chapter) + u':' + second;
    const ChapterVerse last = SplitChapterVerse(second);
    ref.chapterTo = last.chapter;
    ref.verseTo = last.verse;
    return ref;
}

} // namespace ReferenceParser
