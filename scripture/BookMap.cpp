#include "scripture/BookMap.h"

#include "platform/VbError.h"
#include "scripture/basStrings.h"

namespace BookMap {

namespace {
// One field read as list input: leading blanks skipped, a field may stand in double quotes,
// otherwise it runs to the next comma.
QString takeField(QStringView &rest)
{
    qsizetype i = 0;
    while (i < rest.size() && (rest[i] == u' ' || rest[i] == u'\t'))
        ++i;
    rest = rest.mid(i);
    if (!rest.isEmpty() && rest[0] == u'"') {
        const qsizetype close = rest.indexOf(u'"', 1);
        const QString field = (close < 0 ? rest.mid(1) : rest.mid(1, close - 1)).toString();
        rest = close < 0 ? QStringView() : rest.mid(close + 1);
        const qsizetype comma = rest.indexOf(u',');
        rest = comma < 0 ? QStringView() : rest.mid(comma + 1);
        return field;
    }
    const qsizetype comma = rest.indexOf(u',');
    const QString field = (comma < 0 ? rest : rest.left(comma)).trimmed().toString();
    rest = comma < 0 ? QStringView() : rest.mid(comma + 1);
    return field;
}
} // namespace

bool IsBlank(const QString &line)
{
    return line.trimmed().isEmpty();
}

std::optional<Entry> Parse(const QString &line, VbError *error)
{
    QStringView rest(line);
    const QString name = takeField(rest);
    const QString count = takeField(rest);
    bool ok = false;
    const int chapters = count.toInt(&ok);
    if (!ok) {
        if (error)
            *error = VbError::typeMismatch();
        return std::nullopt;
    }
    if (chapters < 0 || chapters > 255) {
        if (error)
            *error = VbError::overflow();
        return std::nullopt;
    }
    return Entry{name.left(NameWidth), chapters};
}

} // namespace BookMap
