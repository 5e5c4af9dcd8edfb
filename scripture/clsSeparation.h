#pragma once

#include <QString>
#include <QStringList>

// Splits a text at a delimiter into items numbered from 1. Every "|"-separated data file and every
// reference list is split with it.
class clsSeparation
{
public:
    QString delimiter() const { return m_delimiter; }
    void setDelimiter(const QString &delimiter);
    QString text() const { return m_text; }
    void setText(const QString &text);

    // Occurrences of the delimiter (counted case-blind) plus one.
    int count() const { return m_count; }

    // The i-th piece, 1-based. Empty when the text is empty; throws VbError 9 when i is out of
    // range, as callers that walk past the end expect.
    QString item(int i) const;

    // All pieces in order, the same as item(1) .. item(count()).
    QStringList items() const;

private:
    void recount();

    QString m_delimiter = QStringLiteral(" ");
    QString m_text;
    int m_count = 1;
};
