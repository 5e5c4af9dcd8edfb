#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QtGlobal>

// The two binary settings files, "display.cfg" and "general.cfg", are fixed little-endian records
// that users keep from one version of the program to the next, so they are read and written field
// by field, byte for byte.
// Colours are Windows colour values: 0x00BBGGRR, or a system colour with the high bit set.

// One display area's look: 48 bytes on disk.
struct TextStyle
{
    static constexpr int RecordLength = 48;
    static constexpr int FontNameLength = 32;

    qint32 BackColor = 0x00FFFFFF;
    qint32 ForeColor = 0;
    QString FontName = FixedFontName(QString()); // always FontNameLength characters
    qint32 FontSize = 10;
    qint16 FontBold = 0;   // -1 true, 0 false
    qint16 FontItalic = 0; // -1 true, 0 false

    // A name cut or padded with spaces to the fixed field's length.
    static QString FixedFontName(const QString &name);
    // The name without its padding (a NUL ends it too); stores it back padded with spaces, so
    // the record holds exactly what the control was given.
    QString trimFontName();

    QByteArray toBytes() const;
    // Reads the first RecordLength bytes; fewer give the defaults.
    static TextStyle fromBytes(QByteArrayView bytes);
};

// "display.cfg": 148 bytes.
struct DisplaySettings
{
    static constexpr int RecordLength = 148;

    // The defaults, for a missing or short file, are the controls' usual look: black on white
    // lists and views, and a bold title on the window's face colour.
    TextStyle navigation{.FontName = TextStyle::FixedFontName(QStringLiteral("Arial"))};
    TextStyle passage{.FontName = TextStyle::FixedFontName(QStringLiteral("Times New Roman")),
                      .FontSize = 12};
    TextStyle title{.BackColor = qint32(0x8000000F), // button face
                    .ForeColor = qint32(0x80000012), // button text
                    .FontName = TextStyle::FixedFontName(QStringLiteral("Arial")),
                    .FontSize = 12,
                    .FontBold = -1};
    qint32 RightClickColor = 0x0080FFFF; // light yellow

    static DisplaySettings Defaults() { return {}; }

    QByteArray toBytes() const;
    static DisplaySettings fromBytes(QByteArrayView bytes);

    // Reads record 1 of the file. A missing or short file leaves the defaults and gives false;
    // there is no message, since the program ships the file and works without it.
    bool read(const QString &path);
    // Writes record 1 atomically; bytes past the record in a longer file are kept. On failure
    // the old file stays whole, the user is told, and false comes back.
    bool write(const QString &path) const;
};

// "general.cfg": 4 bytes.
struct GeneralSettings
{
    static constexpr int RecordLength = 4;

    qint16 lineBreaks = -1;        // -1: each verse on a new line; 0: verses joined by a blank
    qint16 maxSearchResults = 500; // "Maximum search results to show:"

    static GeneralSettings Defaults() { return {}; }

    QByteArray toBytes() const;
    static GeneralSettings fromBytes(QByteArrayView bytes);

    bool read(const QString &path);
    bool write(const QString &path) const;
};
