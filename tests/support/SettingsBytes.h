#pragma once

// The bytes of the binary settings records, built by hand as another program would write them.
#include <QByteArray>
#include <QtGlobal>

namespace fixture {

// A little-endian integer of the given size.
inline QByteArray le(quint32 value, int size = 4)
{
    QByteArray bytes;
    for (int i = 0; i < size; ++i)
        bytes += char((value >> (8 * i)) & 0xFF);
    return bytes;
}

// One display area of "display.cfg": colours, a 32-character font name, size, bold, italic
// (the flags as stored: 0 or -1).
inline QByteArray styleBytes(qint32 back, qint32 fore, const QByteArray &font, qint32 size,
                             qint16 bold, qint16 italic)
{
    return le(quint32(back)) + le(quint32(fore)) + font.leftJustified(32, ' ', true) +
           le(quint32(size)) + le(quint16(bold), 2) + le(quint16(italic), 2);
}

} // namespace fixture
