#include "scripture/clsSeparation.h"

#include "platform/VbError.h"
#include "scripture/basStrings.h"

void clsSeparation::setDelimiter(const QString &delimiter)
{
    m_delimiter = delimiter;
    recount();
}

void clsSeparation::setText(const QString &text)
{
    m_text = text;
    recount();
}

void clsSeparation::recount()
{
    m_count = basStrings::CountOccurrences(m_text, m_delimiter, true) + 1;
}

QStringList clsSeparation::items() const
{
    if (m_delimiter.isEmpty())
        return {m_text};
    QStringList pieces;
    qsizetype from = 0;
    for (;;) {
        const qsizetype at = m_text.indexOf(m_delimiter, from, Qt::CaseInsensitive);
        if (at < 0) {
            pieces.append(m_text.mid(from));
            return pieces;
        }
        pieces.append(m_text.mid(from, at - from));
        from = at + m_delimiter.size();
    }
}

QString clsSeparation::item(int i) const
{
    if (m_text.isEmpty())
        return QString();
    if (i < 1 || i > m_count)
        throw VbError::subscriptOutOfRange();
    if (m_delimiter.isEmpty())
        return m_text;
    // The text wrapped in the delimiter on both sides: the piece lies between the i-th and the
    // (i+1)-th delimiter of the wrapped text.
    const QString wrapped = m_delimiter + m_text + m_delimiter;
    const int from = basStrings::NthOccurrence(wrapped, m_delimiter, i, true);
    const int to = basStrings::NthOccurrence(wrapped, m_delimiter, i + 1, true);
    if (from == 0 || to == 0)
        return QString();
    return m_text.mid(from - 1, to - from - m_delimiter.size());
}
