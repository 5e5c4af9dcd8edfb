#pragma once

// The notes the crash test's writer saves: two versions for each of four chapters, long enough
// that a kill often lands in the middle of writing one.
#include <QByteArray>
#include <QString>

namespace crash {

constexpr int Chapters = 4;

inline QString notesText(int chapter, int version)
{
    QString text;
    for (int line = 0; line < 400; ++line)
        text += QStringLiteral("{\\pard chapter %1 version %2 line %3 of the notes\\par}\r\n")
                    .arg(chapter)
                    .arg(version)
                    .arg(line);
    return text;
}

// A whole file of about 120 KB, as a long bookmark file is.
inline QByteArray fileBytes(int version)
{
    QByteArray bytes;
    for (int line = 0; line < 3000; ++line)
        bytes += "\"Bookmark " + QByteArray::number(line) + " version " +
                 QByteArray::number(version) + "\",\"John 3:16\"\r\n";
    return bytes;
}

} // namespace crash
