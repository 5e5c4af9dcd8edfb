#pragma once

#include <QString>
#include <QStringView>
#include <vector>

namespace importer {

// The 66 books of the Protestant canon in their usual order, with the names the translation
// folders use. Numbered books join the digit to the name (1Samuel, 1John) because the reference
// parser expects them so; "Song of Solomon" keeps its blanks.
struct BookInfo
{
    const char *osisId;
    QString english;
    QString spanish;
    int testament; // 0 the Old Testament, 1 the New
};

const std::vector<BookInfo> &CanonBooks();

// The position of a book in CanonBooks() by its OSIS id, or -1 for a book outside the canon
// (the deuterocanonical books some modules carry).
int CanonIndex(QStringView osisId);

} // namespace importer
