// Feeds arbitrary bytes to the settings store as "window.ini": reads must not crash or hang, and a
// value just written must read back, whatever the rest of the file holds.
#include "settings/clsIni.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("window.ini"));
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return 0;
        file.write(reinterpret_cast<const char *>(data), qint64(size));
    }

    clsIni ini;
    ini.Create(path);
    const QString sections[] = {QString(), QStringLiteral("load"), QStringLiteral("Main")};
    const QString keys[] = {QStringLiteral("rememberwindowsetting"), QStringLiteral("version"),
                            QStringLiteral("left")};
    for (const QString &section : sections) {
        for (const QString &key : keys) {
            if (ini.Text(section, key).size() > 254)
                std::abort();
            ini.Data(section, key);
        }
    }

    ini.setText(QStringLiteral("load"), QStringLiteral("version"), QStringLiteral("KJV 1769"));
    ini.setData(QString(), QStringLiteral("rememberwindowsetting"), -1);
    if (ini.Text(QStringLiteral("LOAD"), QStringLiteral("Version")) != QStringLiteral("KJV 1769") ||
        ini.Data(QString(), QStringLiteral("RememberWindowSetting")) != -1)
        std::abort();
    return 0;
}
