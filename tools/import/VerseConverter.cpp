#include "tools/import/VerseConverter.h"

#include "tools/import/ImportLog.h"
#include "tools/import/MarkupReader.h"

#include <QRegularExpression>
#include <cctype>
#include <vector>

namespace importer {

namespace {

// Elements whose whole content is not verse text.
bool isDroppedElement(std::string_view name)
{
    return name == "note" || name == "speaker" || name == "figure";
}

// Elements that only mark structure; they separate words like a blank.
bool isBreak(std::string_view name)
{
    return name == "milestone" || name == "div" || name == "chapter" || name == "l" ||
           name == "lg" || name == "lb" || name == "p" || name == "verse" || name == "cell" ||
           name == "row" || name == "item" || name == "list" || name == "table";
}

bool hasLetterOrDigit(const std::string &s, size_t from)
{
    for (size_t i = from; i < s.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(s[i]);
        if (c >= 0x80 || std::isalnum(c))
            return true;
    }
    return false;
}

void trimTrailingBlanks(std::string &s)
{
    while (!s.empty() &&
           (s.back() == ' ' || s.back() == '\t' || s.back() == '\n' || s.back() == '\r'))
        s.pop_back();
}

} // namespace

QStringList VerseConverter::strongsNumbers(std::string_view lemma)
{
    QStringList numbers;
    size_t i = 0;
    while (i < lemma.size()) {
        while (i < lemma.size() && lemma[i] == ' ')
            ++i;
        size_t end = lemma.find(' ', i);
        if (end == std::string_view::npos)
            end = lemma.size();
        std::string_view token = lemma.substr(i, end - i);
        i = end;
        if (token.substr(0, 7) == "strong:")
            token.remove_prefix(7);
        if (token.size() < 2 || (token[0] != 'H' && token[0] != 'G'))
            continue;
        size_t d = 1;
        while (d < token.size() && token[d] == '0')
            ++d;
        size_t digitsEnd = d;
        while (digitsEnd < token.size() && token[digitsEnd] >= '0' && token[digitsEnd] <= '9')
            ++digitsEnd;
        if (digitsEnd == d)
            continue;
        numbers.append(QString(QChar(token[0])) +
                       QString::fromLatin1(token.substr(d, digitsEnd - d)));
    }
    return numbers;
}

std::string VerseConverter::cleanModuleText(std::string_view text, bool insideAdded)
{
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\\') {
            // Leftover source codes such as "\nd " or "\+nd*" from the module's conversion.
            size_t j = i + 1;
            if (j < text.size() && text[j] == '+')
                ++j;
            const size_t letters = j;
            while (j < text.size() && std::isalnum(static_cast<unsigned char>(text[j])))
                ++j;
            if (j > letters) {
                if (j < text.size() && text[j] == '*')
                    ++j;
                else if (j < text.size() && text[j] == ' ')
                    ++j;
                m_log.count(m_work, QStringLiteral("stray source codes removed"));
                m_log.example(m_work, QStringLiteral("stray source codes removed"),
                              QString::fromUtf8(text.substr(i, j - i)).trimmed());
                i = j - 1;
                continue;
            }
            m_log.count(m_work, QStringLiteral("reserved characters removed"));
            continue;
        }
        if (c == '{' || c == '}' || c == '|') {
            m_log.count(m_work, QStringLiteral("reserved characters removed"));
            continue;
        }
        if (c == '[' || c == ']') {
            if (insideAdded) {
                m_log.count(m_work, QStringLiteral("nested brackets flattened"));
            } else {
                out += c == '[' ? '(' : ')';
                m_log.count(m_work, QStringLiteral("module brackets made parentheses"));
            }
            continue;
        }
        // The pilcrow of the old printings marks a paragraph; it is not part of what is read.
        if (c == '\xC2' && i + 1 < text.size() && text[i + 1] == '\xB6') {
            m_log.count(m_work, QStringLiteral("paragraph marks dropped"));
            ++i;
            continue;
        }
        out += c;
    }
    return out;
}

ConvertedVerse VerseConverter::convert(std::string_view osis, const Options &options)
{
    struct OpenWord
    {
        QStringList numbers;
        std::string *buffer;
        size_t start;
    };

    std::string body;
    std::string title;
    std::string *out = &body;
    std::vector<OpenWord> words;
    std::vector<bool> addedStack; // per open transChange: whether it opened a bracket
    int addedDepth = 0;
    bool ended = false;
    bool trailing = false;
    ConvertedVerse result;

    MarkupReader reader(osis);
    for (MarkupReader::Token t = reader.next(); t != MarkupReader::Token::Finished;
         t = reader.next()) {
        const std::string_view name = reader.name();
        switch (t) {
        case MarkupReader::Token::Text:
            if (ended) {
                if (reader.text().find_first_not_of(" \t\r\n") != std::string::npos)
                    trailing = true;
                break;
            }
            *out += cleanModuleText(reader.text(), addedDepth > 0);
            break;
        case MarkupReader::Token::Start:
            if (ended)
                break;
            if (isDroppedElement(name)) {
                if (name == "note")
                    m_log.count(m_work, QStringLiteral("footnotes dropped"));
                reader.skipElement();
                *out += ' ';
            } else if (name == "title") {
                if (reader.attribute("canonical") == "true" &&
                    reader.attribute("type") == "psalm" && out == &body) {
                    out = &title;
                } else {
                    m_log.count(m_work, QStringLiteral("headings dropped"));
                    reader.skipElement();
                    *out += ' ';
                }
            } else if (name == "transChange") {
                const bool opens = addedDepth == 0;
                if (opens)
                    *out += " [";
                addedStack.push_back(opens);
                ++addedDepth;
            } else if (name == "w") {
                words.push_back({strongsNumbers(reader.attribute("lemma")), out, out->size()});
            } else if (isBreak(name)) {
                *out += ' ';
            }
            break;
        case MarkupReader::Token::End:
            if (ended)
                break;
            if (name == "title" && out == &title) {
                out = &body;
            } else if (name == "transChange" && !addedStack.empty()) {
                const bool opened = addedStack.back();
                addedStack.pop_back();
                --addedDepth;
                if (opened) {
                    trimTrailingBlanks(*out);
                    *out += "] ";
                }
            } else if (name == "w" && !words.empty()) {
                OpenWord word = words.back();
                words.pop_back();
                if (word.buffer != out || word.numbers.isEmpty() ||
                    !hasLetterOrDigit(*out, word.start))
                    break;
                if (options.collectTagged) {
                    QString text = QString::fromUtf8(out->substr(word.start));
                    text.remove(u'[');
                    text.remove(u']');
                    result.tagged.append({text.simplified(), word.numbers});
                }
                if (options.strongsNumbers) {
                    trimTrailingBlanks(*out);
                    for (const QString &n : std::as_const(word.numbers))
                        *out += '{' + n.toStdString() + '}';
                }
            } else if (isBreak(name)) {
                *out += ' ';
            }
            break;
        case MarkupReader::Token::Empty:
            // What a module appends after the end of a chapter or book (a glossary, the
            // subscription of an epistle) is not part of the verse.
            if ((name == "chapter" || (name == "div" && reader.attribute("type") == "book")) &&
                reader.hasAttribute("eID"))
                ended = true;
            if (isBreak(name))
                *out += ' ';
            break;
        case MarkupReader::Token::Finished:
            break;
        }
    }
    if (trailing)
        m_log.count(m_work, QStringLiteral("matter after a chapter's or book's end dropped"));
    // An added-words group the module never closed still ends with the verse.
    if (addedDepth > 0) {
        trimTrailingBlanks(*out);
        *out += ']';
        m_log.count(m_work, QStringLiteral("unclosed added words closed"));
    }

    result.title = tidySpacing(QString::fromUtf8(title));
    result.text = tidySpacing(QString::fromUtf8(body));
    return result;
}

QString VerseConverter::tidySpacing(const QString &text)
{
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    static const QRegularExpression afterOpen(QStringLiteral("([\\[(]) "));
    static const QRegularExpression beforeClose(QStringLiteral(" ([\\])])"));
    static const QRegularExpression beforePunctuation(QStringLiteral(" ([,.;:!?])"));
    static const QRegularExpression emptyAdded(QStringLiteral("\\[\\]"));
    QString s = text;
    s.replace(blanks, QStringLiteral(" "));
    s.replace(emptyAdded, QString());
    s.replace(afterOpen, QStringLiteral("\\1"));
    s.replace(beforeClose, QStringLiteral("\\1"));
    s.replace(beforePunctuation, QStringLiteral("\\1"));
    s.replace(blanks, QStringLiteral(" "));
    return s.trimmed();
}

} // namespace importer
