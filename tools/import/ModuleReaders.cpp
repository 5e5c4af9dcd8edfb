#include "tools/import/ModuleReaders.h"

#include "tools/import/BookTable.h"
#include "tools/import/CommentaryConverter.h"
#include "tools/import/ImportLog.h"
#include "tools/import/Versification.h"

#include <QMap>
#include <QSet>
#include <memory>

#include <swbuf.h>
#include <swmodule.h>
#include <versekey.h>
#include <versificationmgr.h>

namespace importer {

namespace {

using System = sword::VersificationMgr::System;

std::string_view rawEntry(sword::SWModule *module)
{
    const sword::SWBuf &buf = module->getRawEntryBuf();
    return std::string_view(buf.c_str(), buf.length());
}

const System *systemOf(const sword::VerseKey &key)
{
    return sword::VersificationMgr::getSystemVersificationMgr()->getVersificationSystem(
        key.getVersificationSystem());
}

QString place(const BookText &book, int chapter, int verse)
{
    return book.name + u' ' + QString::number(chapter) + u':' + QString::number(verse);
}

// A psalm title goes at the start of its verse. When a chapter carries such titles in several
// verses they are the letters of an acrostic psalm, which are headings, and are left out.
void placeTitles(QList<ConvertedVerse *> &verses, ImportLog &log, const QString &work)
{
    int titled = 0;
    for (const ConvertedVerse *v : verses)
        titled += v->title.isEmpty() ? 0 : 1;
    for (ConvertedVerse *v : verses) {
        if (v->title.isEmpty())
            continue;
        if (titled == 1) {
            v->text = v->text.isEmpty() ? v->title : v->title + u' ' + v->text;
            log.count(work, QStringLiteral("psalm titles placed at the start of their verse"));
        } else {
            log.count(work, QStringLiteral("acrostic letter headings dropped"));
        }
        v->title.clear();
    }
}

} // namespace

bool ReadBible(sword::SWModule *module, const BibleOptions &options, ImportLog &log, BibleText &out)
{
    const QString &work = options.work;
    std::unique_ptr<sword::VerseKey> key(static_cast<sword::VerseKey *>(module->createKey()));
    const System *system = systemOf(*key);
    if (!system) {
        log.fail(work, QStringLiteral("the module names no known versification"));
        return false;
    }
    VerseConverter converter(log, work);
    // The copy with Strong's numbers makes the same repairs again; they are counted once.
    ImportLog repeatedRepairs;
    VerseConverter strongsConverter(repeatedRepairs, work);
    const VerseConverter::Options plainOptions{false, options.collectTagged};
    const VerseConverter::Options strongsOptions{true, false};

    QMap<int, BookText> plainBooks; // by canonical position, whatever order the module keeps
    QMap<int, BookText> strongsBooks;
    qint64 verses = 0;
    qint64 emptySlots = 0;
    qint64 undecodable = 0;
    QSet<int> seen;
    for (int b = 0; b < system->getBookCount(); ++b) {
        const sword::VersificationMgr::Book *sourceBook = system->getBook(b);
        const QString osis = QString::fromLatin1(sourceBook->getOSISName());
        const int canon = CanonIndex(osis);
        if (canon < 0) {
            log.count(work, QStringLiteral("books outside the 66 skipped"));
            continue;
        }
        seen.insert(canon);
        const BookInfo &info = CanonBooks()[size_t(canon)];
        const QString ownName = options.bookNames.value(canon);
        BookText plainBook{!ownName.isEmpty()     ? ownName
                           : options.spanishNames ? info.spanish
                                                  : info.english,
                           info.testament,
                           {}};
        if (options.progress)
            options.progress(b + 1, system->getBookCount(), plainBook.name);
        BookText strongsBook{plainBook.name, info.testament, {}};

        for (int c = 1; c <= sourceBook->getChapterMax(); ++c) {
            const int verseMax = sourceBook->getVerseMax(c);
            QList<ConvertedVerse> plain(verseMax);
            QList<ConvertedVerse> strongs(options.strongsCopy ? verseMax : 0);
            key->setText(QStringLiteral("%1.%2.1").arg(osis).arg(c).toLatin1().constData());
            std::string previous;
            for (int v = 1; v <= verseMax; ++v) {
                key->setVerse(v);
                module->setKey(*key);
                const std::string_view raw = rawEntry(module);
                if (!raw.empty() && raw == previous) {
                    log.count(work, QStringLiteral("merged verses (text kept on the first)"));
                    log.example(work, QStringLiteral("merged verses (text kept on the first)"),
                                place(plainBook, c, v));
                    continue;
                }
                previous.assign(raw);
                plain[v - 1] = converter.convert(raw, plainOptions);
                if (plain[v - 1].text.contains(QChar::ReplacementCharacter))
                    ++undecodable;
                if (options.strongsCopy)
                    strongs[v - 1] = strongsConverter.convert(raw, strongsOptions);
                if (options.collectTagged && !plain[v - 1].tagged.isEmpty())
                    out.tagged.append({canon, c, v, std::move(plain[v - 1].tagged)});
            }
            QList<ConvertedVerse *> plainRefs;
            QList<ConvertedVerse *> strongsRefs;
            for (ConvertedVerse &v : plain)
                plainRefs.append(&v);
            for (ConvertedVerse &v : strongs)
                strongsRefs.append(&v);
            placeTitles(plainRefs, log, work);
            QList<ConvertedVerse *> quiet = strongsRefs;
            ImportLog scratch;
            placeTitles(quiet, scratch, work);

            int last = verseMax;
            while (last > 0 && plain[last - 1].text.isEmpty())
                --last;
            if (last < verseMax) {
                log.count(work, QStringLiteral("empty slots at chapter ends dropped"),
                          verseMax - last);
                log.example(work, QStringLiteral("empty slots at chapter ends dropped"),
                            place(plainBook, c, last + 1) + (verseMax > last + 1
                                                                 ? u'-' + QString::number(verseMax)
                                                                 : QString()));
            }
            QStringList plainLines;
            QStringList strongsLines;
            for (int v = 1; v <= last; ++v) {
                if (plain[v - 1].text.isEmpty()) {
                    ++emptySlots;
                    log.example(work, QStringLiteral("empty slots kept as numbered empty verses"),
                                place(plainBook, c, v));
                } else {
                    ++verses;
                }
                plainLines.append(QString::number(v) + u' ' + plain[v - 1].text);
                if (options.strongsCopy)
                    strongsLines.append(QString::number(v) + u' ' + strongs[v - 1].text);
            }
            plainBook.chapters.append(plainLines);
            strongsBook.chapters.append(strongsLines);
        }
        // Outside a whole Bible, a book the module leaves empty is left out, and so are the
        // empty chapters at its end.
        if (!options.wholeBible) {
            while (!plainBook.chapters.isEmpty() && plainBook.chapters.last().isEmpty()) {
                plainBook.chapters.removeLast();
                strongsBook.chapters.removeLast();
            }
            if (plainBook.chapters.isEmpty()) {
                seen.remove(canon);
                continue;
            }
        }
        plainBooks.insert(canon, plainBook);
        strongsBooks.insert(canon, strongsBook);
    }
    log.count(work, QStringLiteral("verses with text"), verses);
    log.count(work, QStringLiteral("empty slots kept as numbered empty verses"), emptySlots);

    // A module read with the wrong driver or encoding yields empty or undecodable text; such
    // output is not written.
    if (options.wholeBible && seen.size() != int(CanonBooks().size())) {
        log.fail(work, QStringLiteral("the module has %1 of the 66 books").arg(seen.size()));
        return false;
    }
    if ((options.wholeBible && verses < 20000) || verses == 0 || emptySlots * 50 > verses ||
        undecodable * 1000 > verses) {
        log.fail(work, QStringLiteral("unreadable module text (%1 verses with text, %2 empty, "
                                      "%3 undecodable)")
                           .arg(verses)
                           .arg(emptySlots)
                           .arg(undecodable));
        return false;
    }
    out.plain.books = plainBooks.values();
    for (const int canon : plainBooks.keys())
        out.osisIds.append(QString::fromLatin1(CanonBooks()[size_t(canon)].osisId));
    if (options.strongsCopy)
        out.strongs.books = strongsBooks.values();
    return true;
}

bool ReadCommentary(sword::SWModule *module, const QString &work, const Versification &kjv,
                    ImportLog &log, BookFolder &out)
{
    std::unique_ptr<sword::VerseKey> key(static_cast<sword::VerseKey *>(module->createKey()));
    key->setIntros(true);
    const System *system = systemOf(*key);
    if (!system) {
        log.fail(work, QStringLiteral("the module names no known versification"));
        return false;
    }
    CommentaryConverter converter(log, work, kjv);
    qint64 withText = 0;
    const std::vector<BookInfo> &books = CanonBooks();
    for (size_t b = 0; b < books.size(); ++b) {
        const BookInfo &info = books[b];
        BookText book{info.english, info.testament, {}};
        int sourceBook = -1;
        for (int i = 0; i < system->getBookCount() && sourceBook < 0; ++i) {
            if (qstrcmp(system->getBook(i)->getOSISName(), info.osisId) == 0)
                sourceBook = i;
        }
        for (int c = 1; c <= kjv.chapterCount(int(b)); ++c) {
            QStringList lines;
            if (sourceBook >= 0 && c <= system->getBook(sourceBook)->getChapterMax()) {
                const int verseMax = system->getBook(sourceBook)->getVerseMax(c);
                key->setText(QStringLiteral("%1.%2.1")
                                 .arg(QLatin1String(info.osisId))
                                 .arg(c)
                                 .toLatin1()
                                 .constData());
                std::string previous;
                for (int v = 0; v <= verseMax; ++v) {
                    key->setVerse(v);
                    module->setKey(*key);
                    const std::string_view raw = rawEntry(module);
                    // Comments on a range of verses are linked to every verse of the range.
                    if (raw.empty() || raw == previous)
                        continue;
                    previous.assign(raw);
                    lines += converter.paragraphs(raw);
                }
            }
            if (lines.isEmpty()) {
                log.count(work, QStringLiteral("chapters without comment (marker kept)"));
                log.example(work, QStringLiteral("chapters without comment (marker kept)"),
                            book.name + u' ' + QString::number(c));
            } else {
                ++withText;
            }
            book.chapters.append(lines);
        }
        out.books.append(book);
    }
    // The commentary speaks to every chapter; a module read with the wrong driver loses many.
    if (withText * 100 < qint64(kjv.chapterCount()) * 95) {
        log.fail(work,
                 QStringLiteral("unreadable module text (%1 chapters with comment)").arg(withText));
        return false;
    }
    log.count(work, QStringLiteral("chapters with comment"), withText);
    return true;
}

bool ReadStrongs(sword::SWModule *module, QChar language, int count, const QString &work,
                 ImportLog &log, QList<StrongsEntry> &out)
{
    int readable = 0;
    for (int n = 1; n <= count; ++n) {
        const QByteArray keyText = QString::number(n).rightJustified(5, u'0').toLatin1();
        module->setKeyText(keyText.constData());
        StrongsEntry entry = ParseStrongsEntry(rawEntry(module), language);
        if (entry.number != n) {
            // The lexicon driver answers a missing key with its nearest entry.
            log.count(work, QStringLiteral("numbers missing in the module (marked unused)"));
            log.example(work, QStringLiteral("numbers missing in the module (marked unused)"),
                        QString(language) + QString::number(n));
            entry = StrongsEntry();
            entry.language = language;
            entry.number = n;
            entry.used = false;
        } else {
            ++readable;
            if (!entry.used)
                log.count(work, QStringLiteral("numbers Strong's left unused"));
        }
        out.append(entry);
    }
    if (readable * 10 < count * 9) {
        log.fail(work,
                 QStringLiteral("unreadable module (%1 of %2 entries)").arg(readable).arg(count));
        return false;
    }
    return true;
}

bool ReadDictionary(sword::SWModule *module, const QString &work, ImportLog &log,
                    const std::function<void(const QString &key, std::string_view raw)> &visit)
{
    QSet<QString> keys;
    module->setPosition(sword::TOP);
    while (!module->popError()) {
        const QString key = QString::fromUtf8(module->getKeyText());
        if (!keys.contains(key)) {
            keys.insert(key);
            visit(key, rawEntry(module));
        }
        module->increment();
    }
    if (keys.size() < 100) {
        log.fail(work, QStringLiteral("unreadable module (%1 entries)").arg(keys.size()));
        return false;
    }
    log.count(work, QStringLiteral("module entries read"), keys.size());
    return true;
}

} // namespace importer
