#include "WordStudyCommand.h"

#include "CliOutput.h"
#include "library/DataFiles.h"
#include "library/StrongsLexicon.h"
#include "library/WordList.h"
#include "platform/MsgBox.h"
#include "platform/VbError.h"

#include <QDir>

namespace cli {

namespace {

int lookUp(const QString &programFolder, WordList::Kind kind, const QString &word,
           const QString &notFound)
{
    const WordList list(programFolder, kind);
    const WordList::LookUp found = list.Find(word);
    if (found.outcome == WordList::Outcome::Unreadable) {
        err(DataFiles::MissingFileMessage(QDir::toNativeSeparators(list.Path())));
        return NoInput;
    }
    if (found.outcome == WordList::Outcome::NotFound) {
        out(notFound + u'\n');
        return Problems;
    }
    out(found.definition + u'\n');
    for (const QString &reference : found.references)
        out(reference + u'\n');
    return Ok;
}

} // namespace

int DictionaryCommand(const QString &programFolder, const QString &word)
{
    return lookUp(programFolder, WordList::Kind::Dictionary, word, QStringLiteral("Not Found"));
}

int NamesCommand(const QString &programFolder, const QString &name)
{
    return lookUp(programFolder, WordList::Kind::Names, name, QStringLiteral("Not Found!"));
}

int StrongCommand(const QString &programFolder, const StrongsLexicon::Typed &typed)
{
    using Language = StrongsLexicon::Language;
    const Language language = typed.language;

    StrongsLexicon lexicon(programFolder);
    lexicon.Index(language);
    if (!lexicon.IndexReadable(language)) {
        err(DataFiles::MissingFileMessage(QDir::toNativeSeparators(lexicon.IndexPath(language))));
        return NoInput;
    }
    const StrongsLexicon::Choice choice = lexicon.Choose(language, typed.text);
    if (choice.number < 1) {
        err(QStringLiteral("No %1 entry starts with \"%2\".")
                .arg(language == Language::Hebrew ? QStringLiteral("Hebrew")
                                                  : QStringLiteral("Greek"),
                     typed.text));
        return Problems;
    }
    const StrongsLexicon::Entry entry = lexicon.Show(language, choice.number);
    if (entry.outcome == StrongsLexicon::Outcome::Unreadable) {
        err(DataFiles::MissingFileMessage(QDir::toNativeSeparators(lexicon.DataPath(language))));
        return NoInput;
    }
    if (entry.outcome == StrongsLexicon::Outcome::NotFound) {
        err(platform::ErrText(62, VbError::inputPastEnd().description));
        return Problems;
    }
    out(entry.definition + u'\n');
    return Ok;
}

} // namespace cli
