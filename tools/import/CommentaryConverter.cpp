#include "tools/import/CommentaryConverter.h"

#include "tools/import/ImportLog.h"
#include "tools/import/MarkupReader.h"
#include "tools/import/Versification.h"

#include <QRegularExpression>
#include <vector>

namespace importer {

namespace {

QString tidy(const QString &text)
{
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    static const QRegularExpression beforePunctuation(QStringLiteral(" ([,.;:!?)])"));
    static const QRegularExpression afterOpen(QStringLiteral("\\( "));
    QString s = text;
    s.replace(blanks, QStringLiteral(" "));
    s.replace(beforePunctuation, QStringLiteral("\\1"));
    s.replace(afterOpen, QStringLiteral("("));
    // The book files reserve these characters for markup.
    s.remove(u'|');
    s.remove(u'\\');
    s.remove(u'{');
    s.remove(u'}');
    return s.trimmed();
}

} // namespace

QString CommentaryConverter::avoidMarker(const QString &line)
{
    if (line.trimmed().left(7).toUpper() != QStringLiteral("CHAPTER"))
        return line;
    return QStringLiteral("The ") + line.trimmed().at(0).toLower() + line.trimmed().mid(1);
}

QStringList CommentaryConverter::paragraphs(std::string_view osis)
{
    QStringList lines;
    QString current;
    std::vector<bool> boldOpen;
    const auto flush = [&] {
        const QString text = tidy(current);
        if (!text.isEmpty())
            lines.append(avoidMarker(text));
        current.clear();
    };

    MarkupReader reader(osis);
    for (MarkupReader::Token t = reader.next(); t != MarkupReader::Token::Finished;
         t = reader.next()) {
        const std::string_view name = reader.name();
        if (t == MarkupReader::Token::Text) {
            QString text = QString::fromUtf8(reader.text());
            // Verse numbers in the module sometimes keep a "#" from their source: "ver. #(8)".
            const qsizetype codes = text.count(QStringLiteral("#("));
            if (codes > 0) {
                text.replace(QStringLiteral("#("), QStringLiteral("("));
                m_log.count(m_work, QStringLiteral("stray # codes removed"), codes);
            }
            current += text;
            continue;
        }
        if (t == MarkupReader::Token::Start && name == "title") {
            const std::string type = reader.attribute("type");
            flush();
            if (type == "x-IS") {
                // "Chapter Outline": the rows that follow are the outline.
                reader.skipElement();
                lines.append(QStringLiteral("Outline:"));
            } else {
                m_log.count(m_work, QStringLiteral("book and chapter titles dropped"));
                reader.skipElement();
            }
            continue;
        }
        if (t == MarkupReader::Token::Start && name == "note") {
            m_log.count(m_work, QStringLiteral("footnotes dropped"));
            reader.skipElement();
            continue;
        }
        if (t == MarkupReader::Token::Start && name == "reference") {
            const QStringList refs =
                m_versification.references(QString::fromStdString(reader.attribute("osisRef")));
            const QString shown = reader.elementText();
            if (!refs.isEmpty()) {
                current += refs.join(QStringLiteral(", "));
                m_log.count(m_work, QStringLiteral("references written in full"));
            } else {
                current += shown;
            }
            continue;
        }
        if (name == "hi" && t == MarkupReader::Token::Start) {
            // A bold label ("Verses 1-2") heads the paragraph that follows, on its own line.
            boldOpen.push_back(reader.attribute("type") == "bold");
            if (boldOpen.back())
                flush();
            continue;
        }
        if (name == "hi" && t == MarkupReader::Token::End) {
            if (!boldOpen.empty() && boldOpen.back())
                flush();
            if (!boldOpen.empty())
                boldOpen.pop_back();
            continue;
        }
        if (name == "cell" && t == MarkupReader::Token::End) {
            current += u' ';
            continue;
        }
        if (name == "row" || name == "div" || name == "lb" || name == "p" || name == "l" ||
            name == "lg" || name == "table" || name == "item" || name == "list") {
            flush();
            continue;
        }
        if (name == "milestone" || name == "chapter" || name == "verse")
            current += u' ';
    }
    flush();
    return lines;
}

} // namespace importer
