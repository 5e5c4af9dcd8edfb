#include "tools/import/WordStudy.h"

#include "tools/import/Versification.h"

#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>

namespace importer {

namespace {

// Words that carry grammar rather than a sense of their own; the dictionary leaves them out.
const QSet<QString> &stopWords()
{
    static const QSet<QString> words = [] {
        const char *list[] = {
            "a",         "an",         "the",        "and",   "or",      "but",       "nor",
            "of",        "to",         "in",         "into",  "on",      "upon",      "unto",
            "at",        "by",         "for",        "from",  "with",    "as",        "that",
            "this",      "these",      "those",      "which", "who",     "whom",      "whose",
            "what",      "he",         "him",        "his",   "himself", "she",       "her",
            "hers",      "herself",    "it",         "its",   "itself",  "they",      "them",
            "their",     "themselves", "we",         "us",    "our",     "ourselves", "ye",
            "you",       "your",       "yourselves", "thou",  "thee",    "thy",       "thine",
            "thyself",   "i",          "me",         "my",    "mine",    "myself",    "is",
            "are",       "was",        "were",       "be",    "been",    "being",     "am",
            "art",       "wast",       "wert",       "not",   "so",      "then",      "than",
            "there",     "if",         "shall",      "shalt", "will",    "wilt",      "should",
            "shouldest", "would",      "wouldest",   "hath",  "have",    "had",       "has",
            "hast",      "hadst",      "having",     "do",    "did",     "doth",      "dost",
            "didst",     "done",       "also",       "o",     "oh",      "s"};
        QSet<QString> set;
        for (const char *w : list)
            set.insert(QString::fromLatin1(w));
        return set;
    }();
    return words;
}

// Beginnings of the derivation part of a definition ("From 1 and 3050", "A primitive root").
bool isDerivation(const QString &piece)
{
    static const QRegularExpression digits(QStringLiteral("\\d"));
    static const QRegularExpression start(
        QStringLiteral(
            "^(\\(?chaldee\\)?|from\\b|of (foreign|uncertain|hebrew|latin|chaldee|egyptian|persian|"
            "aramaic|arabic|greek|philistine|phoenician|babylonian|assyrian|moabitish|syrian|"
            "median|accadian)|a primitive|apparently|a primary|primary|probably|perhaps|prolonged|"
            "contracted|feminine|masculine|plural|dual|active|passive|patronymic|patrial|the same|"
            "same as|corresponding|a form of|denominative|causative|intensive|including all|"
            "compare|by (implication|extension|contraction|reduplication|transposition)|"
            "partly|imitative|neuter|middle voice|reflexive|a derivative|a root)"),
        QRegularExpression::CaseInsensitiveOption);
    const QString p = piece.trimmed();
    return p.contains(digits) || start.match(p).hasMatch();
}

QString firstUpper(QString s)
{
    if (!s.isEmpty())
        s[0] = s.at(0).toUpper();
    return s;
}

QString endSentence(QString s)
{
    s = s.trimmed();
    while (s.endsWith(u':') || s.endsWith(u';') || s.endsWith(u',') || s.endsWith(u'-'))
        s = s.chopped(1).trimmed();
    if (!s.isEmpty() && !s.endsWith(u'.') && !s.endsWith(u'?') && !s.endsWith(u'!'))
        s += u'.';
    return s;
}

// Cuts the renderings (after " - " or ":--") off a piece of a definition.
QString withoutUsage(const QString &text)
{
    qsizetype cut = text.indexOf(QStringLiteral(":--"));
    if (cut < 0)
        cut = text.indexOf(QStringLiteral(" - "));
    if (cut < 0)
        cut = text.indexOf(QStringLiteral("--"));
    return cut < 0 ? text : text.left(cut);
}

// The pieces of a definition between semicolons, leaving asides in parentheses whole.
QStringList splitPieces(const QString &text)
{
    QStringList pieces;
    int depth = 0;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == u'(')
            ++depth;
        else if (c == u')' && depth > 0)
            --depth;
        else if (c == u';' && depth == 0) {
            pieces.append(text.mid(start, i - start));
            start = i + 1;
        }
    }
    pieces.append(text.mid(start));
    return pieces;
}

// Asides that only point to other entries: "(larger than G3037)".
QString withoutNumberedAsides(QString text)
{
    static const QRegularExpression aside(
        QStringLiteral("\\s*(\\([^()\\[\\]]*\\d[^()\\[\\]]*\\)|\\[[^\\[\\]]*\\d[^\\[\\]]*\\])"));
    while (text.contains(aside))
        text.remove(aside);
    return text;
}

QString squashed(const QString &name)
{
    QString s = name.toLower();
    s.remove(u'-');
    s.remove(u' ');
    return s;
}

QString stripPossessive(const QString &word)
{
    if (word.endsWith(QStringLiteral("'s")) || word.endsWith(QStringLiteral("\u2019s")))
        return word.chopped(2);
    if (word.endsWith(u'\'') || word.endsWith(u'\u2019'))
        return word.chopped(1);
    return word;
}

} // namespace

QString WordStudy::times(int n)
{
    if (n == 1)
        return QStringLiteral("once");
    if (n == 2)
        return QStringLiteral("twice");
    return QString::number(n) + QStringLiteral(" times");
}

QStringList WordStudy::usageItems(const QString &usage)
{
    static const QRegularExpression parenthesis(QStringLiteral("\\([^()]*\\)"));
    static const QRegularExpression sentenceEnd(QStringLiteral("\\.\\s"));
    QString text = usage;
    const qsizetype end = text.indexOf(sentenceEnd);
    if (end >= 0)
        text = text.left(end);
    while (text.contains(parenthesis))
        text.remove(parenthesis);
    QStringList items;
    for (QString item : text.split(u',')) {
        item = item.trimmed();
        while (item.startsWith(u'X') && (item.size() == 1 || item.at(1) == u' '))
            item = item.mid(1).trimmed();
        while (item.startsWith(u'+'))
            item = item.mid(1).trimmed();
        while (item.endsWith(u'.'))
            item.chop(1);
        if (!item.isEmpty())
            items.append(item);
    }
    return items;
}

bool WordStudy::isNameEntry(const StrongsEntry &entry)
{
    if (!entry.used)
        return false;
    const QStringList items = usageItems(entry.usage);
    int capitalised = 0;
    for (const QString &item : items) {
        if (item.at(0).isUpper())
            ++capitalised;
    }
    return capitalised > 0 && capitalised * 2 >= items.size();
}

QStringList WordStudy::describingPieces(const StrongsEntry &entry, bool lastSegmentOnly)
{
    QStringList segments = entry.segments;
    if (segments.isEmpty())
        segments = {entry.sense};
    if (lastSegmentOnly)
        segments = segments.mid(segments.size() - 1);
    QStringList pieces;
    for (const QString &segment : std::as_const(segments)) {
        for (QString piece : splitPieces(withoutUsage(segment))) {
            piece = withoutNumberedAsides(piece).trimmed();
            while (piece.endsWith(u':') || piece.endsWith(u','))
                piece.chop(1);
            piece = piece.trimmed();
            if (!piece.isEmpty() && !isDerivation(piece))
                pieces.append(piece);
        }
    }
    return pieces;
}

QString WordStudy::gloss(const StrongsEntry &entry)
{
    QStringList pieces;
    for (QString piece : splitPieces(withoutUsage(entry.sense))) {
        piece = withoutNumberedAsides(piece).trimmed();
        while (piece.endsWith(u':') || piece.endsWith(u','))
            piece.chop(1);
        if (!piece.isEmpty() && !isDerivation(piece))
            pieces.append(piece.trimmed());
    }
    QString text = pieces.isEmpty() ? usageItems(entry.usage).mid(0, 3).join(QStringLiteral(", "))
                                    : pieces.first();
    constexpr int MaxLength = 90;
    if (text.size() > MaxLength) {
        qsizetype cut = text.lastIndexOf(u' ', MaxLength);
        text = text.left(cut > 40 ? cut : MaxLength);
        while (text.endsWith(u',') || text.endsWith(u'(') || text.endsWith(u' '))
            text.chop(1);
        if (text.count(u'(') > text.count(u')'))
            text += u')';
        text += QStringLiteral("...");
    }
    return text;
}

WordStudy::WordStudy(const QList<StrongsEntry> &hebrew, const QList<StrongsEntry> &greek,
                     const QList<VerseWords> &tagged)
    : m_hebrew(hebrew), m_greek(greek), m_tagged(tagged)
{
    static const QRegularExpression word(QStringLiteral("[A-Za-z]+(?:['\u2019][A-Za-z]*)?"));
    for (int i = 0; i < m_tagged.size(); ++i) {
        for (const TaggedWords &run : m_tagged.at(i).words) {
            QRegularExpressionMatchIterator it = word.globalMatch(run.text);
            while (it.hasNext()) {
                const QString printed = stripPossessive(it.next().captured());
                if (printed.size() < 2)
                    continue;
                const QString lower = printed.toLower();
                if (printed.at(0).isUpper()) {
                    for (const QString &n : run.numbers)
                        ++m_printedNames[n][printed];
                }
                if (stopWords().contains(lower))
                    continue;
                m_wordTotals[lower] += 1;
                if (!printed.at(0).isUpper() || printed == printed.toUpper())
                    m_notCapitalised.insert(lower);
                QHash<QString, Stats> &senses = m_words[lower];
                for (const QString &n : run.numbers) {
                    Stats &s = senses[n];
                    if (s.count++ == 0)
                        s.first = i;
                }
            }
        }
    }
}

const StrongsEntry *WordStudy::entry(const QString &number) const
{
    if (number.size() < 2)
        return nullptr;
    const QList<StrongsEntry> &list = number.at(0) == u'H' ? m_hebrew : m_greek;
    const int n = number.mid(1).toInt();
    if (n < 1 || n > list.size() || !list.at(n - 1).used)
        return nullptr;
    return &list.at(n - 1);
}

QString WordStudy::reference(int taggedIndex) const
{
    const VerseWords &v = m_tagged.at(taggedIndex);
    return Versification::bookName(v.book) + u' ' + QString::number(v.chapter) + u':' +
           QString::number(v.verse);
}

QString WordStudy::nameDescription(const StrongsEntry &e) const
{
    static const QRegularExpression hebrewOrigin(QStringLiteral("^of Hebrew origin \\(H(\\d+)\\)"),
                                                 QRegularExpression::CaseInsensitiveOption);
    QStringList pieces;
    QStringList segments = e.segments.isEmpty() ? QStringList{e.sense} : e.segments;
    for (const QString &segment : std::as_const(segments)) {
        for (QString piece : splitPieces(withoutUsage(segment))) {
            piece = piece.trimmed();
            while (piece.endsWith(u':') || piece.endsWith(u','))
                piece = piece.chopped(1).trimmed();
            if (piece.isEmpty())
                continue;
            const QRegularExpressionMatch origin = hebrewOrigin.match(piece);
            if (origin.hasMatch()) {
                // A Greek form of a Hebrew name means what the Hebrew name means.
                const StrongsEntry *source = entry(QStringLiteral("H") + origin.captured(1));
                QString meaning;
                if (source && source->segments.size() > 1) {
                    QStringList first = describingPieces(*source);
                    const QStringList last = describingPieces(*source, true);
                    for (const QString &l : last)
                        first.removeAll(l);
                    meaning = first.join(QStringLiteral("; "));
                }
                pieces.append(meaning.isEmpty() ? QStringLiteral("of Hebrew origin")
                                                : QStringLiteral("of Hebrew origin, ") + meaning);
                continue;
            }
            // Other spellings of the Greek word, and derivations that only name other entries
            // or say that the word is primitive, tell a reader nothing about the name.
            static const QRegularExpression digits(QStringLiteral("\\d"));
            static const QRegularExpression noise(
                QStringLiteral("^(or\\b|,|compare\\b|apparently a primary|a primary|"
                               "a primitive|\\(?chaldee\\)?$)"),
                QRegularExpression::CaseInsensitiveOption);
            piece = withoutNumberedAsides(piece).trimmed();
            if (piece.isEmpty() || piece.contains(digits) || noise.match(piece).hasMatch())
                continue;
            pieces.append(piece);
        }
    }
    QString text = endSentence(firstUpper(pieces.join(QStringLiteral("; "))));
    if (text.size() < 3)
        return QString();
    return text + QStringLiteral(" (") + QString(e.language) + QString::number(e.number) + u')';
}

QStringList WordStudy::namesLines(const QString &header) const
{
    QMap<QString, QStringList> descriptions; // by name, lower case, for sorting
    QHash<QString, QString> spelling;
    const auto addEntries = [&](const QList<StrongsEntry> &list) {
        for (const StrongsEntry &e : list) {
            if (!isNameEntry(e))
                continue;
            const QString number = QString(e.language) + QString::number(e.number);
            QSet<QString> wanted;
            for (const QString &item : usageItems(e.usage)) {
                if (item.at(0).isUpper())
                    wanted.insert(squashed(item));
            }
            // The spelling the KJV prints, when it prints one of the renderings listed.
            QStringList names;
            const QHash<QString, int> printed = m_printedNames.value(number);
            for (auto it = printed.begin(); it != printed.end(); ++it) {
                const QString &p = it.key();
                if (p == p.toUpper() || !wanted.contains(squashed(p)))
                    continue;
                names.append(p);
            }
            if (names.isEmpty()) {
                for (const QString &item : usageItems(e.usage)) {
                    if (item.at(0).isUpper() && !item.contains(u' '))
                        names.append(item);
                }
            }
            const QString description = nameDescription(e);
            if (description.isEmpty())
                continue;
            for (const QString &name : std::as_const(names)) {
                const QString key = name.toLower();
                if (!spelling.contains(key))
                    spelling.insert(key, name);
                if (!descriptions[key].contains(description))
                    descriptions[key].append(description);
            }
        }
    };
    addEntries(m_hebrew);
    addEntries(m_greek);

    QStringList lines = {header};
    for (auto it = descriptions.begin(); it != descriptions.end(); ++it) {
        QString text = it.value().join(QStringLiteral(" Also: "));
        text.replace(u'|', u'/');
        lines.append(spelling.value(it.key()) + u'|' + text);
    }
    return lines;
}

QStringList WordStudy::dictionaryLines(const QString &header) const
{
    // Proper names have their own dictionary; a word the KJV also prints in small letters or in
    // capitals (lord, LORD) is a word of this one.
    QStringList forms;
    for (auto it = m_words.begin(); it != m_words.end(); ++it) {
        int named = 0;
        for (auto s = it.value().begin(); s != it.value().end(); ++s) {
            const StrongsEntry *e = entry(s.key());
            if (e && isNameEntry(*e))
                named += s.value().count;
        }
        if (named * 10 < m_wordTotals.value(it.key()) * 9 || m_notCapitalised.contains(it.key()))
            forms.append(it.key());
    }
    std::sort(forms.begin(), forms.end(), [](const QString &a, const QString &b) {
        return a.size() != b.size() ? a.size() < b.size() : a < b;
    });

    // Inflected forms join the headword of a shorter form when they translate the same words.
    static const QStringList suffixes = {
        QStringLiteral("edst"), QStringLiteral("eth"), QStringLiteral("est"),
        QStringLiteral("ings"), QStringLiteral("ing"), QStringLiteral("ied"),
        QStringLiteral("ies"),  QStringLiteral("ed"),  QStringLiteral("es"),
        QStringLiteral("dst"),  QStringLiteral("th"),  QStringLiteral("st"),
        QStringLiteral("s"),    QStringLiteral("d")};
    const auto shareSense = [&](const QString &form, const QString &base) {
        const QHash<QString, Stats> &a = m_words.value(form);
        const QHash<QString, Stats> &b = m_words.value(base);
        const int total = m_wordTotals.value(form);
        for (auto it = a.begin(); it != a.end(); ++it) {
            if (it.value().count * 5 >= total && b.contains(it.key()))
                return true;
        }
        return false;
    };
    QHash<QString, QString> headOf;
    for (const QString &f : std::as_const(forms)) {
        QString head = f;
        for (const QString &suffix : suffixes) {
            if (!f.endsWith(suffix) || f.size() - suffix.size() < 2)
                continue;
            const QString stem = f.chopped(suffix.size());
            QStringList candidates = {stem, stem + u'e'};
            if (stem.size() > 2 && stem.at(stem.size() - 1) == stem.at(stem.size() - 2))
                candidates.append(stem.chopped(1));
            if (suffix.startsWith(u'i'))
                candidates.append(stem + u'y');
            for (const QString &c : std::as_const(candidates)) {
                if (c != f && headOf.contains(c) && shareSense(f, c)) {
                    head = headOf.value(c);
                    break;
                }
            }
            if (head != f)
                break;
        }
        headOf.insert(f, head);
    }
    QMap<QString, QStringList> groups;
    for (const QString &f : std::as_const(forms))
        groups[headOf.value(f)].append(f);

    QStringList lines = {header};
    for (auto g = groups.begin(); g != groups.end(); ++g) {
        QStringList members = g.value();
        std::sort(members.begin(), members.end());
        QHash<QString, Stats> senses;
        int total = 0;
        for (const QString &m : std::as_const(members)) {
            total += m_wordTotals.value(m);
            const QHash<QString, Stats> &own = m_words.value(m);
            for (auto s = own.begin(); s != own.end(); ++s) {
                Stats &sum = senses[s.key()];
                sum.count += s.value().count;
                if (sum.first < 0 || s.value().first < sum.first)
                    sum.first = s.value().first;
            }
        }
        QList<QPair<QString, Stats>> ranked;
        for (auto s = senses.begin(); s != senses.end(); ++s) {
            if (entry(s.key()))
                ranked.append({s.key(), s.value()});
        }
        if (ranked.isEmpty())
            continue;
        std::sort(ranked.begin(), ranked.end(), [](const auto &a, const auto &b) {
            return a.second.count != b.second.count ? a.second.count > b.second.count
                                                    : a.first < b.first;
        });

        constexpr int MaxSenses = 5;
        QStringList senseTexts;
        QList<int> firsts;
        for (int i = 0; i < ranked.size() && i < MaxSenses; ++i) {
            const StrongsEntry *e = entry(ranked.at(i).first);
            QString text =
                (e->language == u'H' ? QStringLiteral("Hebrew ") : QStringLiteral("Greek ")) +
                e->transliteration + QStringLiteral(" (") + ranked.at(i).first +
                QStringLiteral(")");
            const QString g2 = gloss(*e);
            if (!g2.isEmpty())
                text += QStringLiteral(", ") + g2;
            text += QStringLiteral(", ") + times(ranked.at(i).second.count);
            senseTexts.append(text);
            if (!firsts.contains(ranked.at(i).second.first))
                firsts.append(ranked.at(i).second.first);
        }
        QString definition;
        if (members.size() > 1)
            definition += QStringLiteral("Forms: ") + members.join(QStringLiteral(", ")) +
                          QStringLiteral(". ");
        definition += QStringLiteral("Occurs ") + times(total) + QStringLiteral(" in the KJV. ");
        definition += QStringLiteral("Translates ") + senseTexts.join(QStringLiteral("; "));
        if (ranked.size() > MaxSenses) {
            const qsizetype more = ranked.size() - MaxSenses;
            definition +=
                QStringLiteral("; and ") + QString::number(more) +
                (more == 1 ? QStringLiteral(" rarer word") : QStringLiteral(" rarer words"));
        }
        definition += u'.';
        definition.replace(u'|', u'/');

        std::sort(firsts.begin(), firsts.end());
        QStringList refs;
        for (int index : std::as_const(firsts))
            refs.append(reference(index));
        lines.append(g.key().toUpper() + u'|' + definition + u'|' + refs.join(u';'));
    }
    return lines;
}

} // namespace importer
