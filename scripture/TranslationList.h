#pragma once

#include <QList>
#include <QString>

// The installed translations: every folder of the program folder that holds a "bible.dat", with
// the first line of that file as its display name.
struct InstalledTranslation
{
    QString folder;      // the folder's name inside the program folder
    QString displayName; // line 1 of its bible.dat
};

namespace TranslationList {

QList<InstalledTranslation> List(const QString &programFolder);

// Whether a folder is a translation: it holds a "bible.dat" (in any case).
bool IsTranslation(const QString &folderPath);

// The three lines of a translation's bible.dat (name, first and second testament labels); missing
// lines are empty.
struct Header
{
    QString name;
    QString firstTestament;
    QString secondTestament;
    bool found = false;
};
Header ReadHeader(const QString &translationFolder);

} // namespace TranslationList
