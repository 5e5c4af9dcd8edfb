#include "tools/import/ModuleNumbering.h"

#include "tools/import/BookTable.h"

#include <QRegularExpression>
#include <QSet>

#include <localemgr.h>
#include <swlocale.h>
#include <versekey.h>
#include <versificationmgr.h>

namespace importer {

namespace {

using System = sword::VersificationMgr::System;

const System *systemNamed(const QString &name)
{
    return sword::VersificationMgr::getSystemVersificationMgr()->getVersificationSystem(
        name.toLatin1().constData());
}

VerseId idOf(const sword::VerseKey &key)
{
    return {QString::fromLatin1(key.getOSISBookName()), key.getChapter(), key.getVerse()};
}

// Where one verse of the first system is in the second, as the library says. A verse the second
// lacks comes back as the start of the next book; it has no counterpart.
VerseSpan lookUp(const char *fromSystem, const char *toSystem, const VerseId &verse)
{
    sword::VerseKey from;
    from.setVersificationSystem(fromSystem);
    from.setIntros(true); // verse 0, a psalm's title, is a place of its own
    from.setText(verse.text().toLatin1().constData());
    sword::VerseKey to;
    to.setVersificationSystem(toSystem);
    to.positionFrom(from);
    VerseSpan span{idOf(to), idOf(to)};
    if (to.isBoundSet())
        span = {idOf(to.getLowerBound()), idOf(to.getUpperBound())};
    if (span.first.book != verse.book)
        return {};
    if (span.last.book != verse.book)
        span.last = span.first;
    return span;
}

// Every verse of the canon's books in a system, each with the look-up into the other system where
// the library moves it. From the KJV the titles (verse 0) are looked up too: a verse of one
// numbering that is a title in the KJV goes on through it to the title in a third.
template <typename Add>
void mapSystem(const System &system, const char *fromName, const char *toName, int firstVerse,
               Add add)
{
    for (int b = 0; b < system.getBookCount(); ++b) {
        const sword::VersificationMgr::Book *book = system.getBook(b);
        const QString osis = QString::fromLatin1(book->getOSISName());
        if (CanonIndex(osis) < 0)
            continue;
        for (int c = 1; c <= book->getChapterMax(); ++c) {
            for (int v = firstVerse; v <= book->getVerseMax(c); ++v) {
                const VerseId verse{osis, c, v};
                const VerseSpan there = lookUp(fromName, toName, verse);
                if (!(there == VerseSpan{verse, verse}))
                    add(verse, there);
            }
        }
    }
}

} // namespace

bool IsKnownVersification(const QString &name)
{
    const System *system = systemNamed(name);
    return system && QString::fromLatin1(system->getName()) == name;
}

std::optional<VerseNumbering> ModuleNumbering(const QString &versification,
                                              const QStringList &books)
{
    const System *own = systemNamed(versification);
    const System *kjv = systemNamed(QStringLiteral("KJV"));
    if (!own || !kjv || !IsKnownVersification(versification))
        return std::nullopt;
    VerseNumbering numbering;
    numbering.setName(versification);
    numbering.setBooks(books);
    if (versification == u"KJV")
        return numbering;
    const QByteArray name = versification.toLatin1();
    mapSystem(*own, name.constData(), "KJV", 1, [&](const VerseId &here, const VerseSpan &there) {
        numbering.addToKjv(here, there);
    });
    mapSystem(*kjv, "KJV", name.constData(), 0, [&](const VerseId &there, const VerseSpan &here) {
        numbering.addFromKjv(there, here);
    });
    return numbering;
}

QStringList LocalBookNames(const QString &language)
{
    QStringList names;
    sword::LocaleMgr *locales = sword::LocaleMgr::getSystemLocaleMgr();
    sword::SWLocale *locale = nullptr;
    for (const QString &candidate :
         {language, language.section(u'-', 0, 0), language.section(u'_', 0, 0)}) {
        if (!locale && !candidate.isEmpty())
            locale = locales->getLocale(candidate.toUtf8().constData());
    }
    const System *kjv = systemNamed(QStringLiteral("KJV"));
    if (!locale || !kjv)
        return names;
    // "1. Царств", "1 Samuel": the number joins the name, as the reference parser reads it.
    static const QRegularExpression numberedBook(QStringLiteral("^(\\d+)[.\\s]+"));
    // Characters that a map line or a file name cannot hold.
    static const QRegularExpression unsafe(QStringLiteral("[\"/\\\\|{}\\[\\]]"));
    QSet<QString> taken;
    for (const BookInfo &info : CanonBooks()) {
        QString own;
        for (int b = 0; b < kjv->getBookCount(); ++b) {
            const sword::VersificationMgr::Book *book = kjv->getBook(b);
            if (qstrcmp(book->getOSISName(), info.osisId) != 0)
                continue;
            const char *translated = locale->translate(book->getLongName());
            if (translated && qstrcmp(translated, book->getLongName()) != 0)
                own = QString::fromUtf8(translated);
        }
        own.replace(numberedBook, QStringLiteral("\\1"));
        own.remove(unsafe);
        own = own.simplified().left(30);
        // Two books may not share a file: the second keeps the English name.
        if (taken.contains(own.toUpper()))
            own.clear();
        if (!own.isEmpty())
            taken.insert(own.toUpper());
        names.append(own);
    }
    return names;
}

} // namespace importer
