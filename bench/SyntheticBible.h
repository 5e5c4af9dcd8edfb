#pragma once

// A translation of the size of the King James Bible (66 books, 1,189 chapters, 31,102 verse lines
// of about 130 characters), written once into a temporary folder, for benchmarks that should not
// depend on the imported data. QS_BENCH_BIBLE names a real translation folder to use instead.
#include "tests/support/TranslationFixture.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace bench {

inline QString syntheticBible()
{
    const QString given = qEnvironmentVariable("QS_BENCH_BIBLE");
    if (!given.isEmpty())
        return given;
    static QTemporaryDir dir;
    static const QString root = [] {
        // Chapters per book, as in the usual Protestant canon.
        const int chapters[66] = {
            50, 40, 27, 36, 34, 24, 21, 4, 31, 24, 22, 25, 29, 36, 10, 13, 10, 42, 150, 31, 12, 8,
            66, 52, 5,  48, 12, 14, 3,  9, 1,  4,  7,  3,  3,  3,  2,  14, 4,  28, 16,  24, 21, 28,
            16, 16, 13, 6,  6,  4,  4,  5, 3,  6,  4,  3,  1,  13, 5,  5,  3,  5,  1,   1,  1,  22};
        const QStringList &names = fixture::canonNames();
        // Common words make up most of the text; the rest come from a large vocabulary, so a
        // search word such as "light" or "love" matches about as many verses as in a real Bible.
        const QStringList common = {"and",   "the",  "of",   "LORD", "God", "unto", "he",
                                    "shall", "that", "in",   "him",  "his", "them", "they",
                                    "for",   "said", "[is]", "a",    "to",  "I",    "with",
                                    "not",   "be",   "all",  "thou", "thy", "was"};
        QStringList vocabulary = {"love",     "heaven", "light",  "king",  "land",
                                  "children", "house",  "Israel", "earth", "day",
                                  "upon",     "father", "spirit", "people"};
        QRandomGenerator words(7);
        const char *syllables[] = {"ab", "el", "im", "or", "ur", "th",
                                   "sh", "ne", "ka", "mi", "ro", "za"};
        while (vocabulary.size() < 3000) {
            QString w;
            for (int k = 0, n = 2 + int(words.bounded(3)); k < n; ++k)
                w += QLatin1String(syllables[words.bounded(12)]);
            vocabulary << w;
        }
        QRandomGenerator rng(1611);
        const QString base = dir.path() + QStringLiteral("/SYN");
        QDir().mkpath(base + QStringLiteral("/oldtest"));
        QDir().mkpath(base + QStringLiteral("/newtest"));
        QFile header(base + QStringLiteral("/bible.dat"));
        if (header.open(QIODevice::WriteOnly))
            header.write("Synthetic Bible\r\nOld Testament\r\nNew Testament\r\n");
        QByteArray maps[2];
        const int totalChapters = 1189;
        const int totalVerses = 31102;
        int versesLeft = totalVerses;
        int chaptersLeft = totalChapters;
        for (int b = 0; b < 66; ++b) {
            const int t = b >= 39 ? 1 : 0;
            maps[t] +=
                "\"" + names.at(b).toUtf8() + "\"," + QByteArray::number(chapters[b]) + "\r\n";
            QByteArray file;
            for (int c = 1; c <= chapters[b]; ++c) {
                const int verses = b == 18 && c == 119 ? 176 : versesLeft / chaptersLeft;
                versesLeft -= verses;
                --chaptersLeft;
                file += "CHAPTER " + QByteArray::number(c) + "\r\n";
                for (int v = 1; v <= verses; ++v) {
                    QByteArray line = QByteArray::number(v);
                    while (line.size() < 130)
                        line += ' ' + (rng.bounded(100) < 70
                                           ? common.at(int(rng.bounded(common.size())))
                                           : vocabulary.at(int(rng.bounded(vocabulary.size()))))
                                          .toUtf8();
                    file += line + "\r\n";
                }
            }
            QFile out(base + (t ? QStringLiteral("/newtest/") : QStringLiteral("/oldtest/")) +
                      names.at(b).toUpper() + QStringLiteral(".dat"));
            if (out.open(QIODevice::WriteOnly))
                out.write(file);
        }
        QFile ot(base + QStringLiteral("/oldtest/map.dat"));
        if (ot.open(QIODevice::WriteOnly))
            ot.write(maps[0]);
        QFile nt(base + QStringLiteral("/newtest/map.dat"));
        if (nt.open(QIODevice::WriteOnly))
            nt.write(maps[1]);
        return base;
    }();
    return root;
}

} // namespace bench
