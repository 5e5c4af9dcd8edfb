#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace importer {

// Walks the XML-like markup of one module entry token by token. Module entries are fragments:
// elements may close that never opened, and a stray "<" may stand in text. The reader never fails;
// what it cannot read as a tag comes back as text.
class MarkupReader
{
public:
    enum class Token
    {
        Text,
        Start,
        End,
        Empty,
        Finished
    };

    explicit MarkupReader(std::string_view markup) : m_markup(markup) {}

    Token next();

    // The element name of the last Start, End or Empty token.
    std::string_view name() const { return m_name; }
    // An attribute of the last Start or Empty token, entities decoded; empty when absent.
    std::string attribute(std::string_view key) const;
    bool hasAttribute(std::string_view key) const;
    // The last Text token, entities decoded.
    const std::string &text() const { return m_text; }

    // Skips to the end of the element whose Start token was just read, nested ones included.
    void skipElement();
    // The text inside the element just started, up to its end tag, its inner markup dropped.
    QString elementText();

    static std::string decodeEntities(std::string_view raw);

private:
    bool findAttribute(std::string_view key, std::string_view *value) const;

    std::string_view m_markup;
    size_t m_pos = 0;
    std::string_view m_name;
    std::string_view m_attributes;
    std::string m_text;
};

} // namespace importer
