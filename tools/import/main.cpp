// quillstone-import: converts the SWORD modules that the Debian packages install into the files of
// the program folder (translations, commentary, lexicon, topics, names and word dictionary). The
// program itself never reads SWORD modules; only this tool links the library.
#include "tools/import/BookFolder.h"
#include "tools/import/BookTable.h"
#include "tools/import/ImportLog.h"
#include "tools/import/ModuleImport.h"
#include "tools/import/ModuleNumbering.h"
#include "tools/import/ModuleReaders.h"
#include "tools/import/OutputFiles.h"
#include "tools/import/SwordLibrary.h"
#include "tools/import/TopicIndex.h"
#include "tools/import/Versification.h"
#include "tools/import/WordStudy.h"
#include "tools/modules/ModuleConfig.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QSet>
#include <QTextStream>

#include <cstdio>

#include <swmodule.h>

using namespace importer;

namespace {

const QStringList AllParts = {QStringLiteral("kjv"),        QStringLiteral("kjvs"),
                              QStringLiteral("web"),        QStringLiteral("rv1909"),
                              QStringLiteral("tvc"),        QStringLiteral("strong"),
                              QStringLiteral("topics"),     QStringLiteral("names"),
                              QStringLiteral("dictionary"), QStringLiteral("notes")};

int usage(QTextStream &err)
{
    err << "usage: quillstone-import --out PROGRAM_FOLDER [--modules LIST] [--conf DIR] "
           "[--sword DIR]\n"
           "       quillstone-import --module NAME [--sword DIR] --out PROGRAM_FOLDER [--folder "
           "FOLDER]\n"
           "  NAME   an installed SWORD Bible module (quillstone-cli modules lists them), "
           "imported\n"
           "         into PROGRAM_FOLDER/FOLDER (FOLDER defaults to NAME); --sword defaults to\n"
           "         ~/.sword, then /usr/share/sword\n"
           "  LIST   comma-separated parts to write (default all): "
        << AllParts.join(u',')
        << "\n"
           "  --conf the corrected module configuration files (default: the importer's own)\n"
           "  --sword the folder holding the SWORD modules/ (default /usr/share/sword)\n"
           "The notes folder is created only when the program folder has none: notes are the "
           "user's.\n";
    return 64;
}

void countFolder(ImportLog &log, const QString &work, const BookFolder &folder)
{
    log.count(work, QStringLiteral("books"), folder.books.size());
    log.count(work, QStringLiteral("chapters"), folder.chapterCount());
}

Versification versificationOf(const BookFolder &kjv)
{
    Versification v;
    for (qsizetype b = 0; b < kjv.books.size(); ++b) {
        QList<int> counts;
        for (const QStringList &chapter : kjv.books.at(b).chapters)
            counts.append(int(chapter.size()));
        v.setBook(int(b), counts);
    }
    return v;
}

// An empty notes folder with every chapter marker, for the notes tab to write into.
BookFolder notesSkeleton(const BookFolder &kjv)
{
    BookFolder notes;
    for (const BookText &book : kjv.books) {
        BookText empty{book.name, book.testament, {}};
        for (qsizetype c = 0; c < book.chapters.size(); ++c)
            empty.chapters.append(QStringList());
        notes.books.append(empty);
    }
    return notes;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);

    QString outDir;
    // Our corrected configuration files: in the sources, or beside an installed importer.
    QString confDir = QStringLiteral(QS_IMPORT_CONF_DIR);
    if (!QFileInfo(confDir).isDir())
        confDir = QCoreApplication::applicationDirPath() +
                  QStringLiteral("/../share/quillstone-import/mods.d");
    QString swordDir;
    QString moduleName;
    QString folderName;
    QStringList parts = AllParts;
    const QStringList args = app.arguments().mid(1);
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString &a = args.at(i);
        const bool hasValue = i + 1 < args.size();
        if (a == u"--out" && hasValue)
            outDir = args.at(++i);
        else if (a == u"--conf" && hasValue)
            confDir = args.at(++i);
        else if (a == u"--sword" && hasValue)
            swordDir = args.at(++i);
        else if (a == u"--module" && hasValue)
            moduleName = args.at(++i);
        else if (a == u"--folder" && hasValue)
            folderName = args.at(++i);
        else if (a == u"--modules" && hasValue)
            parts = args.at(++i).toLower().split(u',', Qt::SkipEmptyParts);
        else
            return usage(err);
    }
    if (outDir.isEmpty() || (moduleName.isEmpty() && !folderName.isEmpty()))
        return usage(err);
    if (!moduleName.isEmpty()) {
        const QStringList libraries =
            swordDir.isEmpty() ? DefaultLibraryFolders() : QStringList{swordDir};
        return ImportModule({moduleName, libraries, outDir, folderName}, out, err);
    }
    if (swordDir.isEmpty())
        swordDir = QStringLiteral("/usr/share/sword");
    for (const QString &p : std::as_const(parts)) {
        if (!AllParts.contains(p)) {
            err << "unknown part: " << p << '\n';
            return usage(err);
        }
    }
    const QSet<QString> want(parts.begin(), parts.end());
    const auto wants = [&](const char *part) { return want.contains(QLatin1String(part)); };
    const QString root = QDir(outDir).absolutePath();

    QElapsedTimer timer;
    timer.start();
    ImportLog log;
    SwordLibrary library(confDir, swordDir);
    if (!library.error().isEmpty()) {
        err << "quillstone-import: " << library.error() << '\n';
        return 1;
    }
    const auto open = [&](const char *name, const QString &work) -> sword::SWModule * {
        QString why;
        sword::SWModule *module = library.module(name, &why);
        if (!module)
            log.fail(work, why);
        return module;
    };

    // The KJV comes first: its books, chapters and verses check every reference written later.
    const bool wordStudies = wants("names") || wants("dictionary");
    BibleText kjv;
    bool haveKjv = false;
    if (sword::SWModule *module = open("engKJV2006eb", QStringLiteral("KJV"))) {
        BibleOptions options;
        options.work = QStringLiteral("KJV");
        options.strongsCopy = wants("kjvs");
        options.collectTagged = wordStudies;
        haveKjv = ReadBible(module, options, log, kjv);
    }
    Versification versification;
    if (haveKjv) {
        kjv.plain.displayName = QStringLiteral("King James Version");
        kjv.plain.firstTestament = QStringLiteral("Old Testament");
        kjv.plain.secondTestament = QStringLiteral("New Testament");
        versification = versificationOf(kjv.plain);
        countFolder(log, QStringLiteral("KJV"), kjv.plain);
        if (wants("kjv"))
            kjv.plain.write(root + QStringLiteral("/KJV"), log, QStringLiteral("KJV"));
        if (wants("kjvs")) {
            kjv.strongs.displayName = QStringLiteral("King James Version with Strong's Numbers");
            kjv.strongs.firstTestament = kjv.plain.firstTestament;
            kjv.strongs.secondTestament = kjv.plain.secondTestament;
            countFolder(log, QStringLiteral("KJVS"), kjv.strongs);
            kjv.strongs.write(root + QStringLiteral("/KJVS"), log, QStringLiteral("KJVS"));
        }
    } else {
        for (const char *part : {"kjvs", "tvc", "topics", "names", "dictionary", "notes"}) {
            if (wants(part))
                log.fail(QString::fromLatin1(part),
                         QStringLiteral("needs the KJV, which was not read"));
        }
    }

    struct OtherBible
    {
        const char *part;
        const char *module;
        QString folder;
        QString name;
        QString first;
        QString second;
        bool spanish;
    };
    const OtherBible others[] = {
        {"web", "engWEB2015eb", QStringLiteral("WEB"), QStringLiteral("World English Bible"),
         QStringLiteral("Old Testament"), QStringLiteral("New Testament"), false},
        {"rv1909", "spaRV1909eb", QStringLiteral("RV1909"), QStringLiteral("Reina Valera 1909"),
         QStringLiteral("Antiguo Testamento"), QStringLiteral("Nuevo Testamento"), true},
    };
    for (const OtherBible &o : others) {
        if (!wants(o.part))
            continue;
        if (sword::SWModule *module = open(o.module, o.folder)) {
            BibleText text;
            BibleOptions options;
            options.work = o.folder;
            options.spanishNames = o.spanish;
            if (ReadBible(module, options, log, text)) {
                text.plain.displayName = o.name;
                text.plain.firstTestament = o.first;
                text.plain.secondTestament = o.second;
                countFolder(log, o.folder, text.plain);
                text.plain.write(root + u'/' + o.folder, log, o.folder);
                // The WEB numbers a few verses unlike the KJV; the file says which.
                const QString system = QString::fromUtf8(module->getConfigEntry("Versification"));
                if (const std::optional<VerseNumbering> numbering = ModuleNumbering(
                        system.isEmpty() ? QStringLiteral("KJV") : system, text.osisIds))
                    WriteTextFile(root + u'/' + o.folder + u'/' + VerseNumbering::FileName(),
                                  numbering->Lines(), log, o.folder);
                else
                    log.fail(o.folder, QStringLiteral("unknown versification ") + system);
            }
        }
    }

    if (haveKjv && wants("tvc")) {
        const QString work = QStringLiteral("tvc (Matthew Henry's Concise Commentary)");
        if (sword::SWModule *module = open("MHCC", work)) {
            BookFolder commentary;
            if (ReadCommentary(module, work, versification, log, commentary)) {
                countFolder(log, work, commentary);
                log.count(work, QStringLiteral("paragraph lines"), commentary.lineCount());
                commentary.write(root + QStringLiteral("/tvc"), log, work);
            }
        }
    }

    QList<StrongsEntry> hebrew;
    QList<StrongsEntry> greek;
    bool haveStrongs = false;
    if (wants("strong") || wordStudies) {
        const QString work = QStringLiteral("strong (Strong's Hebrew and Greek)");
        sword::SWModule *hebrewModule = open("StrongsHebrew", work);
        sword::SWModule *greekModule = open("StrongsGreek", work);
        haveStrongs = hebrewModule && greekModule &&
                      ReadStrongs(hebrewModule, u'H', 8674, work, log, hebrew) &&
                      ReadStrongs(greekModule, u'G', 5624, work, log, greek);
        if (haveStrongs && wants("strong")) {
            for (const auto &[list, stem] : {std::pair{&hebrew, QStringLiteral("hebrew")},
                                             std::pair{&greek, QStringLiteral("greek")}}) {
                QStringList idx;
                QStringList dat;
                for (const StrongsEntry &e : *list) {
                    idx.append(e.indexText());
                    dat.append(e.dataLine());
                }
                WriteTextFile(root + QStringLiteral("/strong/") + stem + QStringLiteral(".idx"),
                              idx, log, work);
                WriteTextFile(root + QStringLiteral("/strong/") + stem + QStringLiteral(".dat"),
                              dat, log, work);
                log.count(work, stem + QStringLiteral(" entries"), list->size());
            }
        }
    }

    if (haveKjv && wants("topics")) {
        const QString work = QStringLiteral("topics.dat (Nave's Topical Bible)");
        if (sword::SWModule *module = open("Nave", work)) {
            TopicIndex topics(versification, log, work);
            if (ReadDictionary(module, work, log, [&](const QString &key, std::string_view raw) {
                    topics.addEntry(key, raw);
                })) {
                log.count(work, QStringLiteral("topic lines"), topics.size());
                WriteTextFile(root + QStringLiteral("/topics.dat"),
                              topics.lines(QStringLiteral(
                                  "Bible topics from Nave's Topical Bible by Orville J. Nave "
                                  "(public domain): one line per topic or subtopic, with its "
                                  "passages in the KJV")),
                              log, work);
            }
        }
    }

    if (haveKjv && haveStrongs && wordStudies) {
        const WordStudy study(hebrew, greek, kjv.tagged);
        if (wants("names")) {
            const QString work = QStringLiteral("names.dat");
            const QStringList lines = study.namesLines(QStringLiteral(
                "Bible names and their meanings, derived from the proper-name entries of Strong's "
                "Hebrew and Greek dictionaries (James Strong, 1890, public domain) under the "
                "spelling of the KJV; the Strong's number of each entry is in parentheses"));
            log.count(work, QStringLiteral("names"), lines.size() - 1);
            WriteTextFile(root + QStringLiteral("/names.dat"), lines, log, work);
        }
        if (wants("dictionary")) {
            const QString work = QStringLiteral("Dictionary.dat");
            const QStringList lines = study.dictionaryLines(QStringLiteral(
                "KJV word dictionary, derived from the Strong's numbers tagged in the King James "
                "Version (SWORD module engKJV2006eb) and the definitions of Strong's Hebrew and "
                "Greek dictionaries (public domain): each word with the Hebrew and Greek words it "
                "translates and the first passage for each"));
            log.count(work, QStringLiteral("words"), lines.size() - 1);
            WriteTextFile(root + QStringLiteral("/Dictionary.dat"), lines, log, work);
        }
    } else if (wordStudies && haveKjv) {
        log.fail(QStringLiteral("names.dat and Dictionary.dat"),
                 QStringLiteral("need Strong's dictionaries, which were not read"));
    }

    if (haveKjv && wants("notes")) {
        const QString work = QStringLiteral("notes");
        const QString notes = root + QStringLiteral("/notes");
        if (QFileInfo::exists(notes)) {
            log.count(work, QStringLiteral("left as they are (the user's)"));
        } else {
            notesSkeleton(kjv.plain).write(notes, log, work);
        }
    }

    log.print(out);
    out << "imported into " << root << " in " << QString::number(timer.elapsed() / 1000.0, 'f', 1)
        << " s\n";
    out.flush();
    if (log.failed()) {
        for (const QString &f : log.failures())
            err << "quillstone-import: " << f << '\n';
        return 1;
    }
    return 0;
}
