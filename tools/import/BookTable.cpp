#include "tools/import/BookTable.h"

#include <QHash>

namespace importer {

const std::vector<BookInfo> &CanonBooks()
{
    static const std::vector<BookInfo> books = {
        {"Gen", QStringLiteral("Genesis"), QStringLiteral("Génesis"), 0},
        {"Exod", QStringLiteral("Exodus"), QStringLiteral("Éxodo"), 0},
        {"Lev", QStringLiteral("Leviticus"), QStringLiteral("Levítico"), 0},
        {"Num", QStringLiteral("Numbers"), QStringLiteral("Números"), 0},
        {"Deut", QStringLiteral("Deuteronomy"), QStringLiteral("Deuteronomio"), 0},
        {"Josh", QStringLiteral("Joshua"), QStringLiteral("Josué"), 0},
        {"Judg", QStringLiteral("Judges"), QStringLiteral("Jueces"), 0},
        {"Ruth", QStringLiteral("Ruth"), QStringLiteral("Rut"), 0},
        {"1Sam", QStringLiteral("1Samuel"), QStringLiteral("1Samuel"), 0},
        {"2Sam", QStringLiteral("2Samuel"), QStringLiteral("2Samuel"), 0},
        {"1Kgs", QStringLiteral("1Kings"), QStringLiteral("1Reyes"), 0},
        {"2Kgs", QStringLiteral("2Kings"), QStringLiteral("2Reyes"), 0},
        {"1Chr", QStringLiteral("1Chronicles"), QStringLiteral("1Crónicas"), 0},
        {"2Chr", QStringLiteral("2Chronicles"), QStringLiteral("2Crónicas"), 0},
        {"Ezra", QStringLiteral("Ezra"), QStringLiteral("Esdras"), 0},
        {"Neh", QStringLiteral("Nehemiah"), QStringLiteral("Nehemías"), 0},
        {"Esth", QStringLiteral("Esther"), QStringLiteral("Ester"), 0},
        {"Job", QStringLiteral("Job"), QStringLiteral("Job"), 0},
        {"Ps", QStringLiteral("Psalms"), QStringLiteral("Salmos"), 0},
        {"Prov", QStringLiteral("Proverbs"), QStringLiteral("Proverbios"), 0},
        {"Eccl", QStringLiteral("Ecclesiastes"), QStringLiteral("Eclesiastés"), 0},
        {"Song", QStringLiteral("Song of Solomon"), QStringLiteral("Cantares"), 0},
        {"Isa", QStringLiteral("Isaiah"), QStringLiteral("Isaías"), 0},
        {"Jer", QStringLiteral("Jeremiah"), QStringLiteral("Jeremías"), 0},
        {"Lam", QStringLiteral("Lamentations"), QStringLiteral("Lamentaciones"), 0},
        {"Ezek", QStringLiteral("Ezekiel"), QStringLiteral("Ezequiel"), 0},
        {"Dan", QStringLiteral("Daniel"), QStringLiteral("Daniel"), 0},
        {"Hos", QStringLiteral("Hosea"), QStringLiteral("Oseas"), 0},
        {"Joel", QStringLiteral("Joel"), QStringLiteral("Joel"), 0},
        {"Amos", QStringLiteral("Amos"), QStringLiteral("Amós"), 0},
        {"Obad", QStringLiteral("Obadiah"), QStringLiteral("Abdías"), 0},
        {"Jonah", QStringLiteral("Jonah"), QStringLiteral("Jonás"), 0},
        {"Mic", QStringLiteral("Micah"), QStringLiteral("Miqueas"), 0},
        {"Nah", QStringLiteral("Nahum"), QStringLiteral("Nahúm"), 0},
        {"Hab", QStringLiteral("Habakkuk"), QStringLiteral("Habacuc"), 0},
        {"Zeph", QStringLiteral("Zephaniah"), QStringLiteral("Sofonías"), 0},
        {"Hag", QStringLiteral("Haggai"), QStringLiteral("Hageo"), 0},
        {"Zech", QStringLiteral("Zechariah"), QStringLiteral("Zacarías"), 0},
        {"Mal", QStringLiteral("Malachi"), QStringLiteral("Malaquías"), 0},
        {"Matt", QStringLiteral("Matthew"), QStringLiteral("Mateo"), 1},
        {"Mark", QStringLiteral("Mark"), QStringLiteral("Marcos"), 1},
        {"Luke", QStringLiteral("Luke"), QStringLiteral("Lucas"), 1},
        {"John", QStringLiteral("John"), QStringLiteral("Juan"), 1},
        {"Acts", QStringLiteral("Acts"), QStringLiteral("Hechos"), 1},
        {"Rom", QStringLiteral("Romans"), QStringLiteral("Romanos"), 1},
        {"1Cor", QStringLiteral("1Corinthians"), QStringLiteral("1Corintios"), 1},
        {"2Cor", QStringLiteral("2Corinthians"), QStringLiteral("2Corintios"), 1},
        {"Gal", QStringLiteral("Galatians"), QStringLiteral("Gálatas"), 1},
        {"Eph", QStringLiteral("Ephesians"), QStringLiteral("Efesios"), 1},
        {"Phil", QStringLiteral("Philippians"), QStringLiteral("Filipenses"), 1},
        {"Col", QStringLiteral("Colossians"), QStringLiteral("Colosenses"), 1},
        {"1Thess", QStringLiteral("1Thessalonians"), QStringLiteral("1Tesalonicenses"), 1},
        {"2Thess", QStringLiteral("2Thessalonians"), QStringLiteral("2Tesalonicenses"), 1},
        {"1Tim", QStringLiteral("1Timothy"), QStringLiteral("1Timoteo"), 1},
        {"2Tim", QStringLiteral("2Timothy"), QStringLiteral("2Timoteo"), 1},
        {"Titus", QStringLiteral("Titus"), QStringLiteral("Tito"), 1},
        {"Phlm", QStringLiteral("Philemon"), QStringLiteral("Filemón"), 1},
        {"Heb", QStringLiteral("Hebrews"), QStringLiteral("Hebreos"), 1},
        {"Jas", QStringLiteral("James"), QStringLiteral("Santiago"), 1},
        {"1Pet", QStringLiteral("1Peter"), QStringLiteral("1Pedro"), 1},
        {"2Pet", QStringLiteral("2Peter"), QStringLiteral("2Pedro"), 1},
        {"1John", QStringLiteral("1John"), QStringLiteral("1Juan"), 1},
        {"2John", QStringLiteral("2John"), QStringLiteral("2Juan"), 1},
        {"3John", QStringLiteral("3John"), QStringLiteral("3Juan"), 1},
        {"Jude", QStringLiteral("Jude"), QStringLiteral("Judas"), 1},
        {"Rev", QStringLiteral("Revelation"), QStringLiteral("Apocalipsis"), 1},
    };
    return books;
}

int CanonIndex(QStringView osisId)
{
    static const QHash<QString, int> index = [] {
        QHash<QString, int> map;
        const std::vector<BookInfo> &books = CanonBooks();
        for (size_t i = 0; i < books.size(); ++i)
            map.insert(QString::fromLatin1(books[i].osisId), int(i));
        return map;
    }();
    return index.value(osisId.toString(), -1);
}

} // namespace importer
