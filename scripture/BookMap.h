#pragma once

#include <QString>
#include <optional>

struct VbError;

// One line of a testament's "map.dat": the book's name (a fixed field of 30 characters) and its
// number of chapters, written as list input: "Genesis",50
namespace BookMap {

inline constexpr int NameWidth = 30;

struct Entry
{
    QString name;
    int chapters = 0;
};

// Blank lines hold no book.
bool IsBlank(const QString &line);

// The entry of a line, or the failure that reading it as list input meets: a count that is not a
// number (13) or does not fit a byte (6).
std::optional<Entry> Parse(const QString &line, VbError *error);

} // namespace BookMap
