#include "BookmarksCommand.h"

#include "CliOutput.h"
#include "bookmarks/BookmarkFile.h"
#include "bookmarks/Bookmarks.h"
#include "scripture/clsBible.h"

namespace cli {

int ListBookmarks(clsBible &bible, const QString &programFolder)
{
    Bookmarks bookmarks(programFolder);
    bookmarks.Load();
    int status = Ok;
    for (int k = 1; k <= bookmarks.Count(); ++k) {
        const QString reference = bookmarks.Reference(k);
        bible.Passagebystandard(reference);
        // For a book it does not know, the store still names the passage it showed last, as the
        // window's title would; the line is printed all the same and the reader told.
        out(bookmarks.Names().at(k - 1) + u'\t' + reference + u'\t' + bible.Standard() + u'\n');
        if (bible.Testament() == clsBible::NotFound) {
            err(QStringLiteral("No book of this translation matches \"%1\" (bookmark \"%2\").")
                    .arg(reference, bookmarks.Names().at(k - 1)));
            status = BookNotFound;
        }
    }
    return status;
}

int AddBookmark(const QString &programFolder, const QString &name, const QString &reference)
{
    return BookmarkFile(programFolder).Add(name, reference) ? Ok : Problems;
}

} // namespace cli
