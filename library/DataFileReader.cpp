#include "library/DataFileReader.h"

#include "platform/FileSystem.h"
#include "platform/TextCodec.h"
#include "scripture/clsSeparation.h"

#include <algorithm>
#include <cstring>
#include <optional>

bool DataFileReader::Open(const QString &path)
{
    std::optional<QByteArray> bytes = platform::ReadFileBytes(path);
    m_bytes = bytes ? std::move(*bytes) : QByteArray();
    m_position = 0;
    m_utf8 = QByteArrayView(m_bytes).isValidUtf8();
    if (m_utf8 && m_bytes.startsWith("\xEF\xBB\xBF"))
        m_position = 3;
    return bytes.has_value();
}

QByteArrayView DataFileReader::ReadRawLine()
{
    const qsizetype size = m_bytes.size();
    if (m_position >= size)
        return {};
    const char *start = m_bytes.constData() + m_position;
    const qsizetype left = size - m_position;
    // The nearer of the next CR and the next LF ends the line.
    const auto *cr = static_cast<const char *>(std::memchr(start, '\r', size_t(left)));
    const qsizetype crAt = cr ? cr - start : left;
    const auto *lf = static_cast<const char *>(std::memchr(start, '\n', size_t(crAt)));
    const qsizetype end = lf ? lf - start : crAt;
    qsizetype next = end + 1;
    if (end < left && start[end] == '\r' && end + 1 < left && start[end + 1] == '\n')
        ++next;
    m_position += std::min(next, left);
    return QByteArrayView(start, end);
}

QString DataFileReader::ReadLine()
{
    return Decode(ReadRawLine());
}

QStringList DataFileReader::ReadAll()
{
    QStringList lines;
    while (!AtEnd())
        lines.append(ReadLine());
    return lines;
}

QString DataFileReader::Decode(QByteArrayView bytes) const
{
    return m_utf8 ? QString::fromUtf8(bytes) : platform::DecodeWindows1252(bytes);
}

QStringList DataFileReader::Fields(const QString &record)
{
    clsSeparation split;
    split.setDelimiter(QStringLiteral("|"));
    split.setText(record);
    return split.items();
}

QString DataFileReader::Field(const QStringList &fields, int i)
{
    return i >= 1 && i <= fields.size() ? fields.at(i - 1) : QString();
}

QByteArrayView DataFileReader::FirstField(QByteArrayView record)
{
    const qsizetype bar = record.indexOf('|');
    return bar < 0 ? record : record.first(bar);
}

QStringList DataFileReader::References(const QString &list)
{
    if (list.isEmpty())
        return {};
    clsSeparation split;
    split.setDelimiter(QStringLiteral(";"));
    split.setText(list);
    return split.items();
}
