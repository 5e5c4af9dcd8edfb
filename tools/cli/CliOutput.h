#pragma once

#include <QString>

// What every command of quillstone-cli shares: its exit statuses and its two output streams.
namespace cli {

enum Exit
{
    Ok = 0,
    Problems = 1,
    BookNotFound = 2,
    Usage = 64,
    NoInput = 66
};

// Standard output, as UTF-8, exactly as given.
void out(const QString &text);
// Standard error, as UTF-8, with a line end added.
void err(const QString &text);

} // namespace cli
