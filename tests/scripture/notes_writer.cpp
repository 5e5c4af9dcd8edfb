// Saves notes into one book file for ever, each chapter in turn, switching between two versions;
// or, with --file, a whole file (as bookmarks and settings are saved) for ever in two versions.
// The crash test kills it at random moments.
#include "NotesCrashTexts.h"
#include "platform/FileSystem.h"
#include "scripture/ChapterSection.h"

#include <QCoreApplication>
#include <QStringList>
#include <cstdio>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() == 3 && args.at(1) == u"--file") {
        for (int i = 0;; ++i) {
            const QString reason =
                platform::WriteFileAtomically(args.at(2), crash::fileBytes(i % 2));
            if (!reason.isEmpty()) {
                std::fprintf(stderr, "%s\n", qPrintable(reason));
                return 1;
            }
        }
    }
    if (args.size() != 2)
        return 64;
    for (int i = 0;; ++i) {
        const int chapter = 1 + i % crash::Chapters;
        const QString reason = ChapterSection::Rewrite(
            args.at(1), chapter, crash::notesText(chapter, 1 - i / crash::Chapters % 2));
        if (!reason.isEmpty()) {
            std::fprintf(stderr, "%s\n", qPrintable(reason));
            return 1;
        }
    }
}
