#include "settings/WindowSettings.h"

#include "settings/ProgramSettings.h"
#include "settings/clsIni.h"

#include <QHash>

namespace WindowSettings {

namespace {
QString s(const char16_t *text)
{
    return QString::fromUtf16(text);
}
clsIni &store()
{
    return ProgramSettings::instance().Ini();
}
} // namespace

bool Get(const clsIni &ini, const Flag &flag)
{
    const int value = ini.Data(s(flag.section), s(flag.key));
    return value == -1 ? flag.missing : value != 0;
}

QString Get(const clsIni &ini, const Text &text)
{
    return ini.Text(s(text.section), s(text.key));
}

bool Get(const Flag &flag)
{
    return Get(store(), flag);
}

int Get(const Number &number)
{
    const int value = store().Data(s(number.section), s(number.key));
    return value < 0 ? number.missing : value;
}

QString Get(const Text &text)
{
    return Get(store(), text);
}

void Set(const Flag &flag, bool on)
{
    store().setData(s(flag.section), s(flag.key), on ? 1 : 0);
}

void Set(const Number &number, int value)
{
    store().setData(s(number.section), s(number.key), value);
}

void Set(const Text &text, const QString &value)
{
    store().setText(s(text.section), s(text.key), value);
}

QStringList Get(const TextList &list)
{
    // The numbers run from 1 without a gap; the first missing one ends the list. The first of
    // two keys of one name wins, as everywhere in the file.
    QHash<QString, QString> byKey;
    for (const auto &[key, value] : store().Section(s(list.section)))
        if (!byKey.contains(key.toLower()))
            byKey.insert(key.toLower(), value);
    QStringList values;
    const QString prefix = s(list.keyPrefix).toLower();
    for (int i = 1;; ++i) {
        const QString value = byKey.value(prefix + QString::number(i));
        if (value.isEmpty())
            break;
        values.append(value);
    }
    return values;
}

void Set(const TextList &list, const QStringList &values)
{
    QList<std::pair<QString, QString>> keys;
    keys.reserve(values.size());
    for (qsizetype i = 0; i < values.size(); ++i)
        keys.append({s(list.keyPrefix) + QString::number(i + 1), values.at(i)});
    store().setSection(s(list.section), keys);
}

int Get(const NamedNumbers &numbers, const QString &name)
{
    const int value = store().Data(s(numbers.section), name);
    return value < 0 ? numbers.missing : value;
}

void Set(const NamedNumbers &numbers, const QString &name, int value)
{
    store().setData(s(numbers.section), name, value);
}

} // namespace WindowSettings
