#include "tools/import/MarkupReader.h"

#include <cstdint>

namespace importer {

namespace {

bool isNameStart(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool isNameChar(char c)
{
    return isNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == ':';
}

bool isSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

void appendUtf8(std::string &out, uint32_t cp)
{
    if (cp < 0x80) {
        out += char(cp);
    } else if (cp < 0x800) {
        out += char(0xC0 | (cp >> 6));
        out += char(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += char(0xE0 | (cp >> 12));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    } else {
        out += char(0xF0 | (cp >> 18));
        out += char(0x80 | ((cp >> 12) & 0x3F));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    }
}

// The value of a numeric character reference, or 0 when it is not one we can use.
uint32_t numericReference(std::string_view body)
{
    if (body.size() < 2 || body[0] != '#')
        return 0;
    const bool hex = body[1] == 'x' || body[1] == 'X';
    uint32_t value = 0;
    const size_t start = hex ? 2 : 1;
    if (start >= body.size())
        return 0;
    for (size_t i = start; i < body.size(); ++i) {
        const char c = body[i];
        uint32_t digit;
        if (c >= '0' && c <= '9')
            digit = uint32_t(c - '0');
        else if (hex && c >= 'a' && c <= 'f')
            digit = uint32_t(c - 'a' + 10);
        else if (hex && c >= 'A' && c <= 'F')
            digit = uint32_t(c - 'A' + 10);
        else
            return 0;
        value = value * (hex ? 16 : 10) + digit;
        if (value > 0x10FFFF)
            return 0;
    }
    if (value == 0 || (value >= 0xD800 && value <= 0xDFFF))
        return 0;
    return value;
}

} // namespace

std::string MarkupReader::decodeEntities(std::string_view raw)
{
    std::string out;
    out.reserve(raw.size());
    for (size_t i = 0; i < raw.size(); ++i) {
        const char c = raw[i];
        if (c != '&') {
            out += c;
            continue;
        }
        const size_t semi = raw.find(';', i + 1);
        if (semi == std::string_view::npos || semi - i > 10) {
            out += c;
            continue;
        }
        const std::string_view body = raw.substr(i + 1, semi - i - 1);
        if (body == "amp")
            out += '&';
        else if (body == "lt")
            out += '<';
        else if (body == "gt")
            out += '>';
        else if (body == "quot")
            out += '"';
        else if (body == "apos")
            out += '\'';
        else if (const uint32_t cp = numericReference(body))
            appendUtf8(out, cp);
        else {
            out += c;
            continue;
        }
        i = semi;
    }
    return out;
}

MarkupReader::Token MarkupReader::next()
{
    while (m_pos < m_markup.size()) {
        const size_t start = m_pos;
        if (m_markup[start] == '<') {
            if (m_markup.substr(start, 4) == "<!--") {
                const size_t end = m_markup.find("-->", start + 4);
                m_pos = end == std::string_view::npos ? m_markup.size() : end + 3;
                continue;
            }
            const size_t close = m_markup.find('>', start + 1);
            const size_t nextOpen = m_markup.find('<', start + 1);
            if (close != std::string_view::npos && close < nextOpen) {
                std::string_view inside = m_markup.substr(start + 1, close - start - 1);
                if (!inside.empty() && (inside[0] == '?' || inside[0] == '!')) {
                    m_pos = close + 1;
                    continue;
                }
                const bool isEnd = !inside.empty() && inside[0] == '/';
                if (isEnd)
                    inside.remove_prefix(1);
                const bool isEmpty = !isEnd && !inside.empty() && inside.back() == '/';
                if (isEmpty)
                    inside.remove_suffix(1);
                if (!inside.empty() && isNameStart(inside[0])) {
                    size_t n = 1;
                    while (n < inside.size() && isNameChar(inside[n]))
                        ++n;
                    if (n == inside.size() || isSpace(inside[n])) {
                        m_name = inside.substr(0, n);
                        m_attributes = inside.substr(n);
                        m_pos = close + 1;
                        return isEnd ? Token::End : isEmpty ? Token::Empty : Token::Start;
                    }
                }
            }
            // Not a tag: the "<" is text up to the next "<".
            m_pos = nextOpen == std::string_view::npos ? m_markup.size() : nextOpen;
            m_text = decodeEntities(m_markup.substr(start, m_pos - start));
            return Token::Text;
        }
        const size_t nextOpen = m_markup.find('<', start);
        m_pos = nextOpen == std::string_view::npos ? m_markup.size() : nextOpen;
        m_text = decodeEntities(m_markup.substr(start, m_pos - start));
        return Token::Text;
    }
    return Token::Finished;
}

bool MarkupReader::findAttribute(std::string_view key, std::string_view *value) const
{
    const std::string_view a = m_attributes;
    size_t i = 0;
    while (i < a.size()) {
        while (i < a.size() && isSpace(a[i]))
            ++i;
        const size_t nameStart = i;
        while (i < a.size() && isNameChar(a[i]))
            ++i;
        const std::string_view name = a.substr(nameStart, i - nameStart);
        if (name.empty()) {
            ++i;
            continue;
        }
        while (i < a.size() && isSpace(a[i]))
            ++i;
        std::string_view found;
        if (i < a.size() && a[i] == '=') {
            ++i;
            while (i < a.size() && isSpace(a[i]))
                ++i;
            if (i < a.size() && (a[i] == '"' || a[i] == '\'')) {
                const char quote = a[i];
                const size_t end = a.find(quote, i + 1);
                const size_t stop = end == std::string_view::npos ? a.size() : end;
                found = a.substr(i + 1, stop - i - 1);
                i = stop + 1;
            } else {
                const size_t valueStart = i;
                while (i < a.size() && !isSpace(a[i]))
                    ++i;
                found = a.substr(valueStart, i - valueStart);
            }
        }
        if (name == key) {
            if (value)
                *value = found;
            return true;
        }
    }
    return false;
}

bool MarkupReader::hasAttribute(std::string_view key) const
{
    return findAttribute(key, nullptr);
}

std::string MarkupReader::attribute(std::string_view key) const
{
    std::string_view value;
    return findAttribute(key, &value) ? decodeEntities(value) : std::string();
}

void MarkupReader::skipElement()
{
    const std::string outer(m_name);
    int depth = 1;
    for (Token t = next(); t != Token::Finished; t = next()) {
        if (m_name != outer)
            continue;
        if (t == Token::Start)
            ++depth;
        else if (t == Token::End && --depth == 0)
            return;
    }
}

QString MarkupReader::elementText()
{
    const std::string outer(m_name);
    QString text;
    for (Token t = next(); t != Token::Finished && !(t == Token::End && m_name == outer);
         t = next()) {
        if (t == Token::Text)
            text += QString::fromUtf8(m_text);
    }
    return text;
}

} // namespace importer
