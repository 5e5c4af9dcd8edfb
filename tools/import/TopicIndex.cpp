#include "tools/import/TopicIndex.h"

#include "tools/import/ImportLog.h"
#include "tools/import/MarkupReader.h"
#include "tools/import/Versification.h"

#include <QRegularExpression>
#include <algorithm>

namespace importer {

namespace {

bool hasLowerCase(const QString &s)
{
    return std::any_of(s.begin(), s.end(), [](QChar c) { return c.isLower(); });
}

} // namespace

QString TopicIndex::titleCase(const QString &upper)
{
    static const QStringList small = {
        QStringLiteral("a"),    QStringLiteral("an"),   QStringLiteral("and"),
        QStringLiteral("as"),   QStringLiteral("at"),   QStringLiteral("by"),
        QStringLiteral("for"),  QStringLiteral("from"), QStringLiteral("in"),
        QStringLiteral("into"), QStringLiteral("of"),   QStringLiteral("on"),
        QStringLiteral("or"),   QStringLiteral("the"),  QStringLiteral("to"),
        QStringLiteral("unto"), QStringLiteral("upon"), QStringLiteral("with")};
    QString out = upper.simplified().toLower();
    bool wordStart = true;
    qsizetype wordBegin = 0;
    for (qsizetype i = 0; i <= out.size(); ++i) {
        const bool letter = i < out.size() &&
                            (out.at(i).isLetter() || out.at(i) == u'\'' || out.at(i) == u'\u2019');
        if (letter && wordStart) {
            wordStart = false;
            wordBegin = i;
        } else if (!letter && !wordStart) {
            const QString word = out.mid(wordBegin, i - wordBegin);
            if (wordBegin == 0 || !small.contains(word) || out.at(wordBegin - 1) == u'-')
                out[wordBegin] = out.at(wordBegin).toUpper();
            wordStart = true;
        }
        if (i < out.size() && !letter)
            wordStart = true;
    }
    return out;
}

QString TopicIndex::cleanLabel(const QString &text)
{
    static const QRegularExpression arrows(QStringLiteral("^[\\s\\x{2192}\\-]+"));
    static const QRegularExpression danglingEnd(QStringLiteral("[\\s,;:.\\-]+$"));
    static const QRegularExpression emptyPieces(QStringLiteral("([,;])(\\s*[,;])+"));
    static const QRegularExpression spaceBefore(QStringLiteral("\\s+([,;:.])"));
    static const QRegularExpression zeroForO(QStringLiteral("\\b0([Ff])\\b"));
    QString s = text.simplified();
    s.remove(arrows);
    s.replace(zeroForO, QStringLiteral("O\\1")); // "0F MAN FOR JESUS": a zero typed for an O
    s.replace(emptyPieces, QStringLiteral("\\1"));
    s.replace(spaceBefore, QStringLiteral("\\1"));
    s.remove(danglingEnd);
    s.remove(u'|');
    s = s.trimmed();
    // Nave sets many subtopics in capitals; they read better, and keep their names, in title case.
    if (!s.isEmpty() && !hasLowerCase(s))
        s = titleCase(s);
    return s;
}

void TopicIndex::add(const QString &name, const QStringList &references)
{
    if (references.isEmpty())
        return;
    auto it = m_references.find(name);
    if (it == m_references.end()) {
        m_names.append(name);
        m_references.insert(name, references);
        return;
    }
    m_log.count(m_work, QStringLiteral("repeated subtopics merged"));
    for (const QString &r : references) {
        if (!it->contains(r))
            it->append(r);
    }
}

void TopicIndex::addEntry(const QString &key, std::string_view tei)
{
    const QString topic = titleCase(key);
    QString line;
    QStringList lineRefs;
    QString parent;
    QString item;
    QStringList itemRefs;
    bool inItem = false;
    int added = 0;
    QString lastRef;       // the osisRef just read, while the text after it is not yet seen
    QStringList lastAdded; // the references it added

    // In the one-chapter books the module's references stop at the chapter and leave the verses
    // as text after them ("Jude 1</ref>:21"): the verses replace the reference to verse 1.
    const auto repairTruncated = [&](const QString &osisRef, const QString &text,
                                     QStringList &target) {
        static const QRegularExpression verses(
            QStringLiteral("^:(\\d+(?:-\\d+)?(?:,\\s?\\d+(?:-\\d+)?)*)"));
        const QRegularExpressionMatch m = verses.match(text);
        const QStringList parts = osisRef.split(u'.');
        if (!m.hasMatch() || parts.size() < 2 || osisRef.contains(u'-'))
            return text;
        for (const QString &r : std::as_const(lastAdded))
            target.removeAll(r);
        const QString chapter = parts.at(0) + u'.' + parts.at(1) + u'.';
        for (const QString &piece : m.captured(1).split(u',')) {
            const QStringList range = piece.trimmed().split(u'-');
            QString osis = chapter + range.at(0);
            if (range.size() > 1)
                osis += u'-' + chapter + range.at(1);
            for (const QString &r : m_versification.references(osis)) {
                if (!target.contains(r))
                    target.append(r);
            }
        }
        m_log.count(m_work, QStringLiteral("references cut short at the chapter repaired"));
        m_log.example(m_work, QStringLiteral("references cut short at the chapter repaired"),
                      osisRef + m.captured(0));
        return text.mid(m.capturedLength());
    };

    const auto nameFor = [&](const QString &label) {
        return label.isEmpty() ? topic : topic + QStringLiteral(": ") + label;
    };
    const auto flushLine = [&] {
        const QString label = cleanLabel(line);
        if (!lineRefs.isEmpty()) {
            add(nameFor(label), lineRefs);
            ++added;
        }
        line.clear();
        lineRefs.clear();
        return label;
    };

    MarkupReader reader(tei);
    for (MarkupReader::Token t = reader.next(); t != MarkupReader::Token::Finished;
         t = reader.next()) {
        const std::string_view name = reader.name();
        if (t != MarkupReader::Token::Text && !(t == MarkupReader::Token::Start && name == "ref"))
            lastRef.clear();
        if (t == MarkupReader::Token::Text) {
            QString text = QString::fromUtf8(reader.text());
            if (!lastRef.isEmpty())
                text = repairTruncated(lastRef, text, inItem ? itemRefs : lineRefs);
            lastRef.clear();
            (inItem ? item : line) += text;
        } else if (t == MarkupReader::Token::Start && name == "ref" &&
                   reader.hasAttribute("osisRef")) {
            QStringList problems;
            const QStringList refs = m_versification.references(
                QString::fromStdString(reader.attribute("osisRef")), &problems);
            for (const QString &p : std::as_const(problems)) {
                m_log.count(m_work, QStringLiteral("references left out (no such passage)"));
                m_log.example(m_work, QStringLiteral("references left out (no such passage)"),
                              topic + u' ' + p);
            }
            QStringList &target = inItem ? itemRefs : lineRefs;
            lastAdded.clear();
            for (const QString &r : refs) {
                if (!target.contains(r)) {
                    target.append(r);
                    lastAdded.append(r);
                }
            }
            m_log.count(m_work, QStringLiteral("references"), refs.size());
            lastRef = QString::fromStdString(reader.attribute("osisRef"));
            reader.skipElement();
        } else if (name == "lb") {
            lastRef.clear();
            parent.clear();
            flushLine();
        } else if (t == MarkupReader::Token::Start && name == "list") {
            parent = flushLine();
        } else if (t == MarkupReader::Token::Start && name == "item") {
            inItem = true;
            item.clear();
            itemRefs.clear();
        } else if (t == MarkupReader::Token::End && name == "item") {
            inItem = false;
            const QString label = cleanLabel(item);
            if (!itemRefs.isEmpty()) {
                add(nameFor(parent.isEmpty()  ? label
                            : label.isEmpty() ? parent
                                              : parent + QStringLiteral(": ") + label),
                    itemRefs);
                ++added;
            }
        }
    }
    flushLine();
    if (added == 0) {
        m_log.count(m_work, QStringLiteral("topics left out (only cross-references)"));
        m_log.example(m_work, QStringLiteral("topics left out (only cross-references)"), topic);
    }
}

QStringList TopicIndex::lines(const QString &header) const
{
    QStringList names = m_names;
    std::stable_sort(names.begin(), names.end(), [](const QString &a, const QString &b) {
        const int c = a.compare(b, Qt::CaseInsensitive);
        return c != 0 ? c < 0 : a < b;
    });
    QStringList out = {header};
    for (const QString &n : std::as_const(names))
        out.append(n + u'|' + m_references.value(n).join(u';'));
    return out;
}

} // namespace importer
