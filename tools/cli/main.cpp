// quillstone-cli: the scripture store from the command line, for scripts, checks and authors of
// new translations. Built on the UI-free libraries only.
#include "BookmarksCommand.h"
#include "CliOutput.h"
#include "MapCommand.h"
#include "ModulesCommand.h"
#include "ParallelCommand.h"
#include "QueryCommand.h"
#include "ReferenceCommand.h"
#include "SettingsCommand.h"
#include "WordStudyCommand.h"
#include "platform/FileSystem.h"
#include "platform/MsgBox.h"
#include "platform/TextCodec.h"
#include "scripture/AdvancedSearch.h"
#include "scripture/BookFiles.h"
#include "scripture/CommentaryStore.h"
#include "scripture/NotesStore.h"
#include "scripture/PassageFormatter.h"
#include "scripture/QuickSearch.h"
#include "scripture/StrongConcordance.h"
#include "scripture/TranslationCheck.h"
#include "scripture/TranslationList.h"
#include "scripture/basStrings.h"
#include "scripture/clsBible.h"
#include "settings/ProgramSettings.h"
#include "settings/SettingsRecords.h"
#include "settings/WindowSettings.h"
#include "settings/clsIni.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStringList>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include <optional>

namespace {

using namespace cli;

int usage()
{
    err(QStringLiteral(
        "usage: quillstone-cli [--dir PROGRAM_FOLDER] [--translation FOLDER] COMMAND ...\n"
        "commands:\n"
        "  passage REFERENCE                 the text of a reference or list of references\n"
        "  standard REFERENCE                the standard form of the passage fetched\n"
        "  rtf REFERENCE                     the passage as a rich-text document\n"
        "  books                             number, name and chapter count of every book\n"
        "  search [--word] [--limit N] QUERY the quick keyword search over the translation\n"
        "  search --mode exact|all|any [--word] [--books LIST] [--limit N] QUERY\n"
        "                                    the advanced search; LIST like 1-39 or 1,19,40-43\n"
        "  search --mode query [--translations A,B,...] [--books LIST] [--limit N]\n"
        "         [--format text|csv] QUERY  the query language (see the README) over one or\n"
        "                                    several translations\n"
        "  concordance [--limit N] NUMBER    every verse carrying a Strong's number (H430, G26)\n"
        "  check FOLDER                      check a translation folder for problems\n"
        "  notes REFERENCE                   the notes kept for the reference's chapter (rich "
        "text)\n"
        "  notes --set FILE REFERENCE        keep FILE (rich or plain text) as that chapter's "
        "notes\n"
        "  commentary REFERENCE              the commentary on the reference's chapter\n"
        "  bookmarks                         name, reference and standard reference of every "
        "bookmark\n"
        "  bookmarks add NAME REFERENCE      add a bookmark as the Add Bookmark window does\n"
        "  settings                          the general options and the look, as key=value lines\n"
        "  dictionary WORD                   the dictionary's definition of a word, then its "
        "references\n"
        "  names NAME                        the meaning of a Bible name\n"
        "  strong H430|G26                   the Strong's lexicon entry of a number\n"
        "  strong --hebrew|--greek TEXT      the lexicon entry of a number or of a word's "
        "beginning\n"
        "  topics QUERY                      the topics whose names hold every word of the query\n"
        "  stories QUERY                     the same over the famous Bible stories\n"
        "  parallels parables|miracles NAME  the Matthew, Mark, Luke and John references, one a "
        "line\n"
        "  prophecy NAME                     a prophecy's Old Testament reference, then its "
        "fulfilment\n"
        "  topic NAME                        a topic's title line, then the text of all its "
        "references\n"
        "  verse [--line N]                  the verse of the day for line N of verses.dat (random "
        "without it)\n"
        "  modules [--sword DIR]             the installed SWORD modules: name, type, language, "
        "versification\n"
        "  map --translations FROM,TO REFERENCE...  references in FROM's verse numbering in TO's\n"
        "  parallel --translations A,B[,C,D] REFERENCE  the passage side by side, verse by verse\n"
        "PROGRAM_FOLDER defaults to $QUILLSTONE_DIR, else the folder of this program."));
    return Usage;
}

QString ProgramFile(const QString &folder, const QString &name)
{
    return basStrings::JoinPath(folder, name);
}

// The translation the window would open: "version" of section "load", else the first installed.
QString defaultTranslation(const QString &folder)
{
    clsIni ini;
    if (ini.Create(ProgramFile(folder, QStringLiteral("window.ini")))) {
        const QString saved = WindowSettings::Get(ini, WindowSettings::SavedTranslation);
        if (!saved.isEmpty() && TranslationList::IsTranslation(ProgramFile(folder, saved)))
            return saved;
    }
    const QList<InstalledTranslation> installed = TranslationList::List(folder);
    return installed.isEmpty() ? QString() : installed.first().folder;
}

// The quick search, or with concordance the Strong's concordance of a number; both print their
// results, then the title line.
// A book list such as "1-39", "40-66" or "1,19,40-43": entry i - 1 says whether book i is
// chosen. Nothing when the list names no book or a book past the translation's last.
std::optional<QList<bool>> bookList(const QString &list, int count)
{
    QList<bool> books(count, false);
    for (const QString &part : list.split(u',')) {
        const QStringList ends = part.trimmed().split(u'-');
        bool okFirst = false;
        bool okLast = false;
        const int first = ends.first().toInt(&okFirst);
        const int last = ends.size() == 2 ? ends.last().toInt(&okLast) : first;
        if (!okFirst || (ends.size() == 2 && !okLast) || ends.size() > 2 || first < 1 ||
            last > count || first > last)
            return std::nullopt;
        for (int b = first; b <= last; ++b)
            books[b - 1] = true;
    }
    return books;
}

int searchCommand(const clsBible &bible, const QString &folder, QStringList args,
                  bool concordance = false)
{
    bool wholeWord = false;
    GeneralSettings general;
    general.read(ProgramFile(folder, QStringLiteral("general.cfg")));
    int limit = general.maxSearchResults;
    std::optional<AdvancedSearch::Mode> mode;
    QString books;
    while (!args.isEmpty() && args.first().startsWith(QStringLiteral("--"))) {
        const QString option = args.takeFirst();
        if (option == u"--word" && !concordance) {
            wholeWord = true;
        } else if (option == u"--limit" && !args.isEmpty()) {
            bool ok = false;
            limit = args.takeFirst().toInt(&ok);
            if (!ok || limit < 0 || limit > 32767)
                return usage();
        } else if (option == u"--mode" && !args.isEmpty() && !concordance) {
            const QString name = args.takeFirst();
            if (name == u"exact")
                mode = AdvancedSearch::Mode::ExactPhrase;
            else if (name == u"all")
                mode = AdvancedSearch::Mode::AllWords;
            else if (name == u"any")
                mode = AdvancedSearch::Mode::AnyWord;
            else
                return usage();
        } else if (option == u"--books" && !args.isEmpty() && !concordance) {
            books = args.takeFirst();
        } else if (option == u"--") {
            break;
        } else {
            return usage();
        }
    }
    // A query of several words may come as several arguments.
    if (args.isEmpty() || (concordance && args.size() != 1) || (!books.isEmpty() && !mode))
        return usage();
    const QString query = args.join(u' ');

    if (mode) {
        AdvancedSearch::Options options{query, *mode, wholeWord,
                                        QList<bool>(bible.BooksCount(), true), limit};
        if (!books.isEmpty()) {
            const std::optional<QList<bool>> chosen = bookList(books, bible.BooksCount());
            if (!chosen) {
                err(QStringLiteral("\"%1\" names no books of this translation (1 to %2), such as "
                                   "1-39 or 1,19,40-43.")
                        .arg(books)
                        .arg(bible.BooksCount()));
                return Usage;
            }
            options.books = *chosen;
        }
        AdvancedSearch search;
        search.onOverLimit = [](const QString &message) {
            platform::MsgBox(message, vb::vbCritical | vb::vbOKOnly);
        };
        const AdvancedSearch::Result result = search.run(bible, options);
        for (const SearchHit &hit : result.hits)
            out(hit.Reference() + u'\n');
        if (!result.failureMessage.isEmpty()) {
            platform::MsgBox(result.failureMessage);
            return Problems;
        }
        out(result.title + u'\n');
        return Ok;
    }

    QuickSearch search;
    QuickSearch::Result result;
    if (!concordance) {
        result = search.run(bible, query, wholeWord, limit);
    } else {
        const QString number = StrongConcordance::Normalize(query);
        if (number.isEmpty()) {
            err(u'"' + query +
                QStringLiteral("\" is not a Strong's number. Type H or G and the number, such as "
                               "H430 or G26."));
            return Problems;
        }
        // The translation asked for when it carries the numbers, else the installed one that does.
        std::unique_ptr<clsBible> other;
        QString otherName;
        const clsBible *store =
            StrongConcordance::StoreFor(bible, folder, QString(), other, otherName);
        if (!store) {
            err(QStringLiteral("None of the installed translations carries Strong's numbers."));
            return NoInput;
        }
        result = StrongConcordance::Run(search, *store, number, limit, otherName);
    }
    for (const SearchHit &hit : result.hits)
        out(hit.Listed());
    if (!result.failureMessage.isEmpty())
        platform::MsgBox(result.failureMessage);
    out(result.title + u'\n');
    return result.outcome == QuickSearch::Outcome::Failed ||
                   result.outcome == QuickSearch::Outcome::TooMany
               ? Problems
               : Ok;
}

int checkCommand(const QString &folder, const QString &target)
{
    QString path = target;
    if (!QFileInfo(platform::ResolvePath(path)).isDir() && QDir::isRelativePath(path))
        path = ProgramFile(folder, target);
    const QStringList problems = TranslationCheck::Check(path);
    for (const QString &problem : problems)
        out(problem + u'\n');
    if (problems.isEmpty())
        out(QStringLiteral("%1: no problems found\n").arg(target));
    return problems.isEmpty() ? Ok : Problems;
}

int bookNotFound(const QString &reference)
{
    err(QStringLiteral("No book of this translation matches \"%1\".").arg(reference));
    return BookNotFound;
}

// The notes of the chapter a reference names, printed or replaced by a file's content; the file
// may hold rich text or plain text, which is stored as rich text.
int notesCommand(clsBible &bible, const QString &folder, QStringList args)
{
    QString file;
    if (args.size() == 3 && args.first() == u"--set") {
        args.removeFirst();
        file = args.takeFirst();
    }
    if (args.size() != 1)
        return usage();
    std::optional<QByteArray> bytes;
    if (!file.isEmpty()) {
        bytes = platform::ReadFileBytes(file);
        if (!bytes) {
            err(QStringLiteral("The notes file \"%1\" %2.")
                    .arg(file, platform::FileExists(file) ? QStringLiteral("cannot be read")
                                                          : QStringLiteral("does not exist")));
            return NoInput;
        }
    }
    const Passage chapter = bible.Fetch(args.first());
    if (!chapter.found())
        return bookNotFound(args.first());
    const NotesStore notes(folder);
    if (!bytes) {
        out(notes.Read(chapter.testament, chapter.book, chapter.chapterFrom));
        return Ok;
    }
    QString markup = platform::DecodeText(*bytes).text;
    if (!markup.startsWith(QStringLiteral("{\\rtf")))
        markup = NotesStore::RtfFromPlainText(markup);
    const QString reason =
        notes.Write(chapter.testament, chapter.book, chapter.chapterFrom, markup);
    if (!reason.isEmpty()) {
        const QString path = notes.BookPath(chapter.testament, chapter.book);
        err(path.isEmpty() ? reason
                           : QStringLiteral("The notes could not be saved to %1.dat: %2")
                                 .arg(QDir::toNativeSeparators(path), reason));
        return Problems;
    }
    return Ok;
}

// "verse" for a random line, "verse --line N" for line N.
int verseCommand(clsBible &bible, const QString &folder, const QStringList &args)
{
    if (args.isEmpty())
        return VerseCommand(folder, bible, std::nullopt);
    bool ok = false;
    const int line = args.size() == 2 && args.first() == u"--line" ? args.at(1).toInt(&ok) : 0;
    return ok ? VerseCommand(folder, bible, line) : usage();
}

// "strong H430" as the passage hands a number over, or "strong --hebrew|--greek TEXT" as typed
// into a tab's word box.
int strongCommand(const QString &folder, const QStringList &args)
{
    if (args.size() == 1 && !args.first().startsWith(QStringLiteral("--")))
        return StrongCommand(folder, StrongsLexicon::FromNumber(args.first()));
    if (args.size() == 2 && (args.first() == u"--hebrew" || args.first() == u"--greek"))
        return StrongCommand(folder, {args.first() == u"--hebrew" ? StrongsLexicon::Language::Hebrew
                                                                  : StrongsLexicon::Language::Greek,
                                      args.at(1)});
    return usage();
}

int runCommand(QStringList args)
{
    QString dirOption;
    QString translation;
    while (!args.isEmpty() && args.first().startsWith(QStringLiteral("--"))) {
        const QString option = args.takeFirst();
        if ((option == u"--dir" || option == u"--translation") && !args.isEmpty()) {
            (option == u"--dir" ? dirOption : translation) = args.takeFirst();
        } else if (option == u"--help") {
            usage();
            return Ok;
        } else {
            return usage();
        }
    }
    if (args.isEmpty())
        return usage();
    const QString folder = ProgramSettings::ResolveProgramFolder(dirOption);
    const QString command = args.takeFirst();

    if (command == u"check")
        return args.size() == 1 ? checkCommand(folder, args.first()) : usage();
    if (command == u"settings")
        return args.isEmpty() ? SettingsCommand(folder) : usage();
    if (command == u"bookmarks" && !args.isEmpty())
        return args.size() == 3 && args.first() == u"add"
                   ? AddBookmark(folder, args.at(1), args.at(2))
                   : usage();
    if (command == u"dictionary" || command == u"names") {
        if (args.size() != 1)
            return usage();
        return command == u"dictionary" ? DictionaryCommand(folder, args.first())
                                        : NamesCommand(folder, args.first());
    }
    if (command == u"strong")
        return strongCommand(folder, args);
    if (command == u"topics" || command == u"stories")
        return args.size() == 1 ? NameSearchCommand(folder, command, args.first()) : usage();
    if (command == u"parallels") {
        if (args.size() != 2 || (args.first() != u"parables" && args.first() != u"miracles"))
            return usage();
        return ParallelsCommand(folder, args.first(), args.at(1));
    }
    if (command == u"prophecy")
        return args.size() == 1 ? ProphecyCommand(folder, args.first()) : usage();
    if (command == u"parallel")
        return ParallelCommand(folder, args);
    if (command == u"modules" || command == u"map") {
        const int status = command == u"modules" ? ModulesCommand(args) : MapCommand(folder, args);
        return status == Usage ? usage() : status;
    }

    if (translation.isEmpty())
        translation = defaultTranslation(folder);
    QString translationPath =
        QDir::isAbsolutePath(translation) ? translation : ProgramFile(folder, translation);
    if (command == u"search" && IsQueryMode(args)) {
        const int status = QueryCommand(folder, translationPath, args, bookList);
        return status == BadArguments ? usage() : status;
    }
    if (translation.isEmpty() || !TranslationList::IsTranslation(translationPath)) {
        err(QStringLiteral("No translation \"%1\" in %2 (a translation folder holds bible.dat).")
                .arg(translation, QDir::toNativeSeparators(folder)));
        return NoInput;
    }

    clsBible bible;
    bible.setVersionPath(translationPath);
    if (bible.LastReadFailed())
        return NoInput;
    bible.setInTextReference(true);
    bible.setSeparator(QStringLiteral("\r\n"));

    if (command == u"books") {
        if (!args.isEmpty())
            return usage();
        for (int b = 1; b <= bible.BooksCount(); ++b)
            out(QString::number(b) + u'\t' + bible.BookName(b) + u'\t' +
                QString::number(bible.Chapters(b)) + u'\n');
        return Ok;
    }
    if (command == u"search")
        return searchCommand(bible, folder, args);
    if (command == u"concordance")
        return searchCommand(bible, folder, args, true);
    if (command == u"bookmarks")
        return ListBookmarks(bible, folder);
    if (command == u"notes")
        return notesCommand(bible, folder, args);
    if (command == u"topic")
        return args.size() == 1 ? TopicCommand(folder, bible, args.first()) : usage();
    if (command == u"verse")
        return verseCommand(bible, folder, args);
    if (command == u"commentary") {
        if (args.size() != 1)
            return usage();
        const Passage chapter = bible.Fetch(args.first());
        if (!chapter.found())
            return bookNotFound(args.first());
        CommentaryStore commentary(folder);
        out(commentary.ViewText(bible, chapter));
        return Ok;
    }

    if (command != u"passage" && command != u"standard" && command != u"rtf")
        return usage();
    if (args.size() != 1)
        return usage();
    const Passage fetched = bible.Fetch(args.first());
    if (command == u"passage")
        out(fetched.text);
    else if (command == u"standard")
        out(fetched.Standard() + u'\n');
    else
        out(PassageFormatter::ToRichText(fetched.text, true));
    if (!fetched.found())
        return bookNotFound(args.first());
    return Ok;
}

// Whether the command line or the environment names the program folder. Only the folder of this
// program, the default, needs an application object: without one a command starts without the
// locale and event loop it never uses.
bool folderGiven(const QStringList &args)
{
    if (!qEnvironmentVariableIsEmpty("QUILLSTONE_DIR"))
        return true;
    for (qsizetype i = 0; i + 1 < args.size() && args.at(i).startsWith(QStringLiteral("--"));
         i += 2) {
        if (args.at(i) == u"--dir" && !args.at(i + 1).isEmpty())
            return true;
    }
    return false;
}

} // namespace

int main(int argc, char **argv)
{
    QStringList args;
    for (int i = 1; i < argc; ++i)
        args.append(QString::fromLocal8Bit(argv[i]));
    std::optional<QCoreApplication> app;
    if (!folderGiven(args))
        app.emplace(argc, argv);
    // A command reads the book files it searches once: keeping or mapping them gains nothing.
    BookFiles::setOnePass(true);
    const int status = runCommand(args);
    // Once the output is out, the process ends at once: the system takes back its memory and
    // files faster than freeing them piece by piece would.
    std::fflush(stdout);
    std::fflush(stderr);
    std::_Exit(status);
}
