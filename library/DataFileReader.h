#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

// A data file of the program folder read line by line from its start, as the reference windows'
// steps describe it: "read and discard the header line; until the end of the file, read a line
// and split it on "|"". Every reader of the reference library stands on it.
//
// The file is found whatever the case of its name and read into memory in one go. It is decoded
// as UTF-8 when all its bytes are valid UTF-8 (a byte-order mark is dropped), else as
// Windows-1252, the same decision the program makes for every text file. Lines end at CR LF, LF
// or CR; a final line end does not start an empty line.
class DataFileReader
{
public:
    // False when the file cannot be read: missing, a folder, no permission.
    bool Open(const QString &path);

    bool AtEnd() const { return m_position >= m_bytes.size(); }
    // The next line, decoded; an empty text once at the end.
    QString ReadLine();
    // The next line's bytes as they stand, for scans that decode only the part they look at.
    QByteArrayView ReadRawLine();
    void SkipLine() { ReadRawLine(); }
    // The remaining lines, decoded.
    QStringList ReadAll();
    // Text of bytes read from this file.
    QString Decode(QByteArrayView bytes) const;

    // A record's fields, split on "|" by the shared splitter.
    static QStringList Fields(const QString &record);
    // Field i, counted from 1; a record with fewer fields gives an empty text.
    static QString Field(const QStringList &fields, int i);
    // The bytes of field 1 alone. "|" is a single byte in both encodings, so the bytes before the
    // first one decode to the same text as Field(Fields(record), 1).
    static QByteArrayView FirstField(QByteArrayView record);
    // The pieces of a reference list ("Genesis 1:1;John 3:16") split on ";", used as they stand
    // without trimming; an empty list gives no piece at all.
    static QStringList References(const QString &list);

private:
    QByteArray m_bytes;
    qsizetype m_position = 0;
    bool m_utf8 = true;
};
