#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// Text files of the program folder are old single-byte files or newer UTF-8 ones. A file is read
// as UTF-8 when its bytes are valid UTF-8, else as Windows-1252, and written back the same way,
// so no character a user typed is ever lost.
namespace platform {

enum class TextEncoding
{
    Utf8,
    Windows1252
};

struct DecodedText
{
    QString text;
    TextEncoding encoding = TextEncoding::Utf8;
};

DecodedText DecodeText(const QByteArray &bytes);
QString DecodeWindows1252(QByteArrayView bytes);

// Characters that Windows-1252 cannot hold make the text UTF-8 instead of being lost.
QByteArray EncodeText(const QString &text, TextEncoding encoding);
bool FitsWindows1252(const QString &text);

// Splits text into lines at CR LF, LF or CR. A final line break does not start an empty line.
QStringList SplitLines(const QString &text);

} // namespace platform
