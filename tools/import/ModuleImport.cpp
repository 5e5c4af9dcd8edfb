#include "tools/import/ModuleImport.h"

#include "tools/import/BookTable.h"
#include "tools/import/ImportLog.h"
#include "tools/import/ModuleNumbering.h"
#include "tools/import/ModuleReaders.h"
#include "tools/import/OutputFiles.h"
#include "tools/import/SwordLibrary.h"
#include "tools/modules/ModuleConfig.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextStream>

#include <unistd.h>

namespace importer {

namespace {

struct TestamentLabels
{
    const char *language;
    const char16_t *first;
    const char16_t *second;
};

// The two testament labels in the languages whose modules are most often met; English otherwise.
constexpr TestamentLabels Labels[] = {
    {"en", u"Old Testament", u"New Testament"},
    {"es", u"Antiguo Testamento", u"Nuevo Testamento"},
    {"de", u"Altes Testament", u"Neues Testament"},
    {"fr", u"Ancien Testament", u"Nouveau Testament"},
    {"it", u"Antico Testamento", u"Nuovo Testamento"},
    {"pt", u"Antigo Testamento", u"Novo Testamento"},
    {"nl", u"Oude Testament", u"Nieuwe Testament"},
    {"la", u"Vetus Testamentum", u"Novum Testamentum"},
    {"ru", u"Ветхий Завет", u"Новый Завет"},
    {"uk", u"Старий Заповіт", u"Новий Заповіт"},
};

const TestamentLabels &labelsFor(const QString &language)
{
    const QString code = language.section(u'-', 0, 0).section(u'_', 0, 0).toLower();
    for (const TestamentLabels &labels : Labels) {
        if (code == QLatin1String(labels.language))
            return labels;
    }
    return Labels[0];
}

// A folder name that stays inside the program folder.
bool isPlainFolderName(const QString &name)
{
    return !name.isEmpty() && name != u"." && name != u".." && !name.contains(u'/') &&
           !name.contains(u'\\');
}

// Puts the finished folder in place of an earlier import of the same name, if any.
QString moveIntoPlace(const QString &finished, const QString &target)
{
    QString old;
    if (QFileInfo::exists(target)) {
        old = QFileInfo(target).absolutePath() + QStringLiteral("/.") +
              QFileInfo(target).fileName() + QStringLiteral(".replaced-") +
              QString::number(::getpid());
        if (!QDir().rename(target, old))
            return QStringLiteral("cannot move the earlier ") + target + QStringLiteral(" aside");
    }
    if (!QDir().rename(finished, target)) {
        if (!old.isEmpty())
            QDir().rename(old, target);
        return QStringLiteral("cannot rename the finished folder to ") + target;
    }
    if (!old.isEmpty())
        QDir(old).removeRecursively();
    return QString();
}

} // namespace

int ImportModule(const ModuleImportRequest &request, QTextStream &out, QTextStream &err)
{
    const auto fail = [&](int status, const QString &message) {
        err << "quillstone-import: " << message << '\n';
        err.flush();
        return status;
    };

    // The module, as its configuration file describes it.
    const std::optional<ModuleConfig> config = FindModule(request.libraries, request.module);
    if (!config)
        return fail(
            NotInstalled,
            QStringLiteral("no module \"%1\" is installed in %2 (see: quillstone-cli modules)")
                .arg(request.module, request.libraries.join(QStringLiteral(" or "))));
    const QString name = config->Name();
    if (!config->IsBible())
        return fail(NotReadable,
                    QStringLiteral("%1 is a %2 module, not a Bible").arg(name, config->Type()));
    if (config->IsLocked())
        return fail(
            Locked,
            QStringLiteral("%1 is locked: its text is enciphered and its configuration holds no "
                           "unlock key (CipherKey in %2)")
                .arg(name, config->ConfPath()));
    const QString folderName = request.folder.isEmpty() ? name : request.folder;
    if (!isPlainFolderName(folderName))
        return fail(CannotWrite, QStringLiteral("\"%1\" is not a folder name").arg(folderName));

    // Its versification, known to the library, and its numbering against the KJV's.
    const QString versification = config->Versification();
    if (!IsKnownVersification(versification))
        return fail(NotReadable,
                    QStringLiteral("%1 names a versification the SWORD library does not know: %2")
                        .arg(name, versification));

    // The text, read through a library that holds this module's configuration alone.
    QTemporaryDir confs;
    if (!confs.isValid() ||
        !QFile::copy(config->ConfPath(), confs.filePath(QFileInfo(config->ConfPath()).fileName())))
        return fail(CannotWrite, QStringLiteral("cannot create a temporary folder"));
    SwordLibrary library(confs.path(), config->LibraryFolder());
    if (!library.error().isEmpty())
        return fail(NotReadable, library.error());
    QString why;
    sword::SWModule *module = library.module(name.toUtf8().constData(), &why);
    if (!module)
        return fail(NotReadable, why);

    const QString language = config->Value(QStringLiteral("Lang"));
    BibleOptions options;
    options.work = name;
    options.wholeBible = false;
    // Tagged words keep their Strong's numbers in braces; a module without them reads the same.
    options.strongsCopy = true;
    if (!language.startsWith(QStringLiteral("en")))
        options.bookNames = LocalBookNames(language);
    // One line rewritten in place on a terminal; in a log, one line for the whole module.
    const bool terminal = ::isatty(STDERR_FILENO) != 0;
    if (!terminal)
        err << "Reading " << name << "...";
    options.progress = [&](int done, int total, const QString &book) {
        if (!terminal)
            return;
        err << "\rReading " << name << ": " << book << " (" << done << " of " << total << ")\x1b[K";
        err.flush();
    };
    ImportLog log;
    BibleText text;
    const bool read = ReadBible(module, options, log, text);
    err << '\n';
    if (!read) {
        if (config->Has(QStringLiteral("CipherKey")))
            return fail(
                Locked,
                QStringLiteral("%1 is locked: its unlock key (CipherKey in %2) does not open it")
                    .arg(name, config->ConfPath()));
        return fail(NotReadable, QStringLiteral("%1 cannot be read, its data is damaged: %2")
                                     .arg(name, log.failures().join(QStringLiteral("; "))));
    }
    const std::optional<VerseNumbering> numbering = ModuleNumbering(versification, text.osisIds);
    if (!numbering)
        return fail(NotReadable,
                    QStringLiteral("%1 names a versification the SWORD library does not know: %2")
                        .arg(name, versification));

    // The folder, written under a temporary name beside its place, then renamed into place.
    const QString root = QDir(request.programFolder).absolutePath();
    if (!QDir().mkpath(root))
        return fail(CannotWrite, QStringLiteral("cannot create ") + root);
    // What an import of the same name left when it was killed halfway (hidden, so never listed).
    const QString stem = u'.' + folderName + QStringLiteral(".importing-");
    for (const QString &leftover : QDir(root).entryList({stem + u'*'}, QDir::Dirs | QDir::Hidden))
        QDir(root + u'/' + leftover).removeRecursively();
    QTemporaryDir work(root + u'/' + stem + QStringLiteral("XXXXXX"));
    if (!work.isValid())
        return fail(CannotWrite, QStringLiteral("cannot write in ") + root + QStringLiteral(": ") +
                                     work.errorString());
    const TestamentLabels &labels = labelsFor(language);
    BookFolder &folder = text.strongs;
    folder.displayName = config->Value(QStringLiteral("Description")).simplified();
    if (folder.displayName.isEmpty())
        folder.displayName = name;
    folder.firstTestament = QString::fromUtf16(labels.first);
    folder.secondTestament = QString::fromUtf16(labels.second);
    bool written = folder.write(work.path(), log, name);
    written = written && WriteTextFile(work.filePath(VerseNumbering::FileName()),
                                       numbering->Lines(), log, name);
    if (!written)
        return fail(CannotWrite, log.failures().join(QStringLiteral("; ")));
    const QString target = root + u'/' + folderName;
    const QString problem = moveIntoPlace(work.path(), target);
    if (!problem.isEmpty())
        return fail(CannotWrite, problem);
    work.setAutoRemove(false);

    log.print(out);
    out << "imported " << name << " (" << versification << ", " << folder.books.size() << " books, "
        << log.value(name, QStringLiteral("verses with text")) << " verses) into " << target
        << '\n';
    out.flush();
    return Imported;
}

} // namespace importer
