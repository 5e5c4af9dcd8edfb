#include "tools/import/StrongsEntry.h"

#include "tools/import/MarkupReader.h"

#include <QRegularExpression>

namespace importer {

namespace {

// The module marks with braces the words that Strong's printed with a comma after them.
QString bracesToCommas(QString s)
{
    static const QRegularExpression braced(QStringLiteral("\\{([^{}]*)\\}"));
    s.replace(braced, QStringLiteral("\\1,"));
    s.remove(u'{');
    s.remove(u'}');
    return s;
}

QString tidy(QString s)
{
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    static const QRegularExpression spaceBefore(QStringLiteral(" +([,;:.)])"));
    static const QRegularExpression commaBefore(QStringLiteral(",+([;:.)])"));
    static const QRegularExpression doubleComma(QStringLiteral(",(\\s*,)+"));
    static const QRegularExpression afterOpen(QStringLiteral("\\( +"));
    s = bracesToCommas(s);
    s.replace(u'|', u'/');
    s.remove(u'\\');
    s.replace(blanks, QStringLiteral(" "));
    s.replace(spaceBefore, QStringLiteral("\\1"));
    s.replace(doubleComma, QStringLiteral(","));
    s.replace(commaBefore, QStringLiteral("\\1"));
    s.replace(afterOpen, QStringLiteral("("));
    s = s.trimmed();
    while (s.endsWith(u','))
        s.chop(1);
    return s.trimmed();
}

// The number a reference points to: "StrongsHebrew:0433" gives 433.
QString targetNumber(const std::string &target)
{
    const size_t colon = target.rfind(':');
    QString digits =
        QString::fromStdString(colon == std::string::npos ? target : target.substr(colon + 1));
    bool ok = false;
    const int n = digits.toInt(&ok);
    return ok ? QString::number(n) : QString();
}

// "H0175" as shown in the Greek module becomes "H175".
QString shownNumber(const QString &shown)
{
    static const QRegularExpression form(QStringLiteral("^([HG])0*(\\d+)$"));
    const QRegularExpressionMatch m = form.match(shown.trimmed());
    return m.hasMatch() ? m.captured(1) + m.captured(2) : shown;
}

QString endSentence(QString s)
{
    while (s.endsWith(u':') || s.endsWith(u';') || s.endsWith(u',') || s.endsWith(u' '))
        s.chop(1);
    if (!s.isEmpty() && !s.endsWith(u'.') && !s.endsWith(u'?') && !s.endsWith(u')'))
        s += u'.';
    return s;
}

} // namespace

QString StrongsEntry::plainLetters(const QString &text)
{
    const QString decomposed = text.normalized(QString::NormalizationForm_D);
    QString out;
    for (const QChar c : decomposed) {
        if (c.category() == QChar::Mark_NonSpacing)
            continue;
        if (c.isLetterOrNumber() && c.unicode() < 0x250)
            out += c;
        else if (c == u' ' || c == u'-')
            out += c;
    }
    return out.simplified();
}

QString StrongsEntry::indexText() const
{
    if (!used)
        return QStringLiteral("(not used)");
    QString text = plainLetters(transliteration);
    if (text.isEmpty())
        text = plainLetters(pronunciation);
    return text.isEmpty() ? QStringLiteral("(entry %1)").arg(number) : text;
}

QString StrongsEntry::definition() const
{
    if (!used)
        return QStringLiteral("Not used: Strong's numbering leaves this number without a word.");
    QString text = endSentence(sense);
    if (!usage.isEmpty())
        text += (text.isEmpty() ? QString() : QStringLiteral(" ")) + QStringLiteral("KJV: ") +
                endSentence(usage);
    return text;
}

QString StrongsEntry::dataLine() const
{
    QString word = original;
    if (!transliteration.isEmpty())
        word += (word.isEmpty() ? QString() : QStringLiteral(" ")) + transliteration;
    QStringList fields = {QString(language) + QString::number(number), word, pronunciation,
                          definition()};
    for (QString &f : fields)
        f.replace(u'|', u'/');
    return fields.join(u'|');
}

StrongsEntry ParseStrongsEntry(std::string_view tei, QChar language)
{
    StrongsEntry entry;
    entry.language = language;
    const bool hebrew = language == u'H';

    enum class Part
    {
        Head,
        Definition
    };
    Part part = Part::Head;
    QString definition;
    QStringList segments;
    QString segment;

    MarkupReader reader(tei);
    for (MarkupReader::Token t = reader.next(); t != MarkupReader::Token::Finished;
         t = reader.next()) {
        const std::string_view name = reader.name();
        if (t == MarkupReader::Token::Text) {
            if (part == Part::Definition) {
                const QString text = QString::fromUtf8(reader.text());
                definition += text;
                segment += text;
            }
            continue;
        }
        if (t == MarkupReader::Token::Start && name == "entryFree") {
            entry.number = QString::fromStdString(reader.attribute("n")).toInt();
            continue;
        }
        if (t == MarkupReader::Token::Start && (name == "orth" || name == "pron")) {
            const std::string type = reader.attribute("type");
            QString inner;
            const std::string element(name);
            for (MarkupReader::Token r = reader.next();
                 r != MarkupReader::Token::Finished &&
                 !(r == MarkupReader::Token::End && reader.name() == element);
                 r = reader.next()) {
                if (r == MarkupReader::Token::Text)
                    inner += QString::fromUtf8(reader.text());
            }
            inner = tidy(inner);
            if (part == Part::Head) {
                if (name == "pron") {
                    entry.pronunciation = inner;
                    part = Part::Definition;
                } else if (type == "trans") {
                    entry.transliteration = inner;
                } else if (type.empty() && entry.original.isEmpty()) {
                    entry.original = inner;
                }
            } else if (type == "trans" || name == "pron") {
                // A related word quoted inside the definition is shown by its transliteration.
                definition += inner;
                segment += inner;
            }
            continue;
        }
        if (t == MarkupReader::Token::Start && name == "def") {
            part = Part::Definition;
            continue;
        }
        if (t == MarkupReader::Token::Start && name == "ref") {
            const std::string target = reader.attribute("target");
            QString text = reader.elementText();
            if (hebrew && target.rfind("StrongsHebrew:", 0) == 0)
                text = targetNumber(target);
            else if (!target.empty())
                text = shownNumber(text);
            definition += text;
            segment += text;
            continue;
        }
        if (name == "lb" && part == Part::Definition) {
            definition += u' ';
            if (!tidy(segment).isEmpty())
                segments.append(tidy(segment));
            segment.clear();
        }
    }
    if (!tidy(segment).isEmpty())
        segments.append(tidy(segment));

    definition = tidy(definition);
    if (definition.compare(QStringLiteral("Not Used"), Qt::CaseInsensitive) == 0 ||
        (definition.isEmpty() && entry.original.isEmpty())) {
        entry.used = false;
        return entry;
    }
    // The renderings of the KJV follow ":--" in the Greek and " - " in the Hebrew dictionary.
    qsizetype split = -1;
    qsizetype skip = 0;
    for (const QString &mark :
         {QStringLiteral(":--"), QStringLiteral(" - "), QStringLiteral("--")}) {
        split = definition.indexOf(mark);
        if (split >= 0) {
            skip = mark.size();
            break;
        }
    }
    if (split >= 0) {
        entry.sense = tidy(definition.left(split));
        entry.usage = tidy(definition.mid(split + skip));
    } else {
        entry.sense = definition;
    }
    entry.segments = segments;
    return entry;
}

} // namespace importer
