#include "platform/TextCodec.h"

#include <QStringDecoder>

namespace platform {

namespace {
// Windows-1252 differs from Latin-1 only in 0x80..0x9F; the five unassigned bytes map to the
// C1 control characters of the same value, as Windows itself does.
constexpr char16_t kHigh1252[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

int To1252(char16_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return c;
    for (int i = 0; i < 32; ++i) {
        if (kHigh1252[i] == c)
            return 0x80 + i;
    }
    return -1;
}
} // namespace

QString DecodeWindows1252(QByteArrayView bytes)
{
    QString out(bytes.size(), Qt::Uninitialized);
    QChar *dst = out.data();
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto b = static_cast<unsigned char>(bytes[i]);
        dst[i] = QChar(b >= 0x80 && b < 0xA0 ? kHigh1252[b - 0x80] : char16_t(b));
    }
    return out;
}

DecodedText DecodeText(const QByteArray &bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(bytes);
    if (!utf8.hasError())
        return {text, TextEncoding::Utf8};
    return {DecodeWindows1252(bytes), TextEncoding::Windows1252};
}

bool FitsWindows1252(const QString &text)
{
    for (const QChar c : text) {
        if (To1252(c.unicode()) < 0)
            return false;
    }
    return true;
}

QByteArray EncodeText(const QString &text, TextEncoding encoding)
{
    if (encoding == TextEncoding::Utf8 || !FitsWindows1252(text))
        return text.toUtf8();
    QByteArray out(text.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i)
        out[i] = static_cast<char>(To1252(text.at(i).unicode()));
    return out;
}

QStringList SplitLines(const QString &text)
{
    QStringList lines;
    const qsizetype n = text.size();
    qsizetype start = 0;
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = text.at(i);
        if (c == u'\r' || c == u'\n') {
            lines.append(text.mid(start, i - start));
            if (c == u'\r' && i + 1 < n && text.at(i + 1) == u'\n')
                ++i;
            start = i + 1;
        }
    }
    if (start < n)
        lines.append(text.mid(start));
    return lines;
}

} // namespace platform
