#pragma once

#include <QStringList>

// Checks a translation folder as its author would want before handing it out: the header and book
// maps, every book file, its chapter markers against the map, empty chapters, verse numbering and
// stray lines. Each problem is one line naming the book and chapter.
namespace TranslationCheck {

QStringList Check(const QString &translationFolder);

} // namespace TranslationCheck
