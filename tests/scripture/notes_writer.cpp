// Saves notes into one book file for ever, each chapter in turn, switching between two versions;
// the crash test kills it at random moments.
#include "NotesCrashTexts.h"
#include "scripture/ChapterSection.h"

#include <QCoreApplication>
#include <QStringList>
#include <cstdio>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
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
