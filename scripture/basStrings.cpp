#include "scripture/basStrings.h"

#include "platform/FileSystem.h"
#include "platform/Version.h"

namespace basStrings {

int CountOccurrences(QStringView text, QStringView what, bool ignoreCase)
{
    if (what.isEmpty())
        return 0;
    const Qt::CaseSensitivity cs = ignoreCase ? Qt::CaseInsensitive : Qt::CaseSensitive;
    int count = 0;
    qsizetype from = 0;
    while ((from = text.indexOf(what, from, cs)) >= 0) {
        ++count;
        from += what.size();
    }
    return count;
}

int NthOccurrence(QStringView text, QStringView what, int n, bool ignoreCase)
{
    if (what.isEmpty() || n < 1)
        return 0;
    const Qt::CaseSensitivity cs = ignoreCase ? Qt::CaseInsensitive : Qt::CaseSensitive;
    qsizetype from = 0;
    for (int found = 0;;) {
        const qsizetype at = text.indexOf(what, from, cs);
        if (at < 0)
            return 0;
        if (++found == n)
            return int(at) + 1;
        from = at + what.size();
    }
}

bool IsDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

QString JoinPath(const QString &folder, const QString &name, const QString &separator)
{
    const QString sep = separator.isEmpty() ? platform::PathSeparator() : separator;
    if (folder.endsWith(sep, Qt::CaseInsensitive))
        return folder + name;
    return folder + sep + name;
}

bool FileExists(const QString &path)
{
    return platform::FileExists(path);
}

QString VersionText()
{
    return platform::VersionText();
}

int LeadingNumber(QStringView text)
{
    qsizetype i = 0;
    while (i < text.size() && text[i] == u' ')
        ++i;
    int value = 0;
    for (; i < text.size() && IsDigit(text[i]); ++i) {
        value = value * 10 + (text[i].unicode() - u'0');
        if (value > 32767)
            value = 32767;
    }
    return value;
}

QStringView TrimBlanks(QStringView text)
{
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && text[start] == u' ')
        ++start;
    while (end > start && text[end - 1] == u' ')
        --end;
    return text.mid(start, end - start);
}

QString UpperCase(const QString &text)
{
    const qsizetype n = text.size();
    const QChar *src = text.constData();
    for (qsizetype i = 0; i < n; ++i) {
        // Marks such as a pilcrow or a curly quote have no upper case; a letter that may change,
        // alone or into several letters (lower and title case), needs the full conversion.
        const QChar c = src[i];
        if (c.unicode() >= 0x80 &&
            (c.isSurrogate() || c.toUpper() != c || c.category() == QChar::Letter_Lowercase ||
             c.category() == QChar::Letter_Titlecase))
            return text.toUpper();
    }
    QString out = text;
    QChar *dst = out.data();
    for (qsizetype i = 0; i < n; ++i) {
        const char16_t c = dst[i].unicode();
        if (c >= u'a' && c <= u'z')
            dst[i] = QChar(char16_t(c - 32));
    }
    return out;
}

} // namespace basStrings
