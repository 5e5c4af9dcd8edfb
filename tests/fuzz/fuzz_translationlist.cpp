// The installed translations of a program folder whose "bible.dat" files hold any bytes: listing
// them never crashes, lists every folder that has the file and no other, in name order without
// regard to case, each under its header's name or, when that is blank, its folder's. The input is
// up to four "bible.dat" files separated by NUL-NUL.
#include "FuzzSupport.h"
#include "scripture/TranslationList.h"
#include "scripture/basStrings.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::quietMessages();
    if (size > 16384)
        return 0;
    // Folder names in an order that name order without regard to case changes.
    static const QString folders[] = {QStringLiteral("web"), QStringLiteral("KJVS"),
                                      QStringLiteral("rv1909"), QStringLiteral("KJV")};
    const QString root = fuzz::freshFolder(QStringLiteral("program"));
    const QList<QByteArray> files = fuzz::parts(data, size, 4);
    QStringList installed;
    for (qsizetype i = 0; i < files.size(); ++i) {
        fuzz::write(root + u'/' + folders[i] + QStringLiteral("/bible.dat"), files.at(i));
        installed.append(folders[i]);
    }
    // Folders of the program folder that are no translations.
    QDir(root).mkpath(QStringLiteral("notes/oldtest"));
    QDir(root).mkpath(QStringLiteral("strong"));

    const QList<InstalledTranslation> list = TranslationList::List(root);
    if (list.size() != installed.size())
        std::abort();
    for (qsizetype i = 0; i < list.size(); ++i) {
        const InstalledTranslation &t = list.at(i);
        if (!installed.contains(t.folder) ||
            (i > 0 && list.at(i - 1).folder.compare(t.folder, Qt::CaseInsensitive) >= 0))
            std::abort();
        const TranslationList::Header header = TranslationList::ReadHeader(root + u'/' + t.folder);
        if (!header.found || header.name.contains(u'\r') || header.name.contains(u'\n'))
            std::abort();
        const bool blank = basStrings::TrimBlanks(header.name).isEmpty();
        if (t.displayName != (blank ? t.folder : header.name))
            std::abort();
    }
    if (TranslationList::ReadHeader(root + QStringLiteral("/notes")).found)
        std::abort();
    return 0;
}
