// Any bytes read as rich text give a document without crashing or hanging, and what the writer
// makes of that document reads back to the same text.
#include "FuzzApplication.h"
#include "platform/RtfReader.h"
#include "platform/RtfWriter.h"

#include <QAbstractTextDocumentLayout>
#include <QByteArray>
#include <QGuiApplication>
#include <QTextDocument>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::ensureApplication<QGuiApplication>();
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    QTextDocument doc;
    platform::RtfReader::read(bytes, &doc);
    // Laying the document out exercises the formats the reader produced (tiny and huge sizes).
    if (size < 4096)
        (void)doc.documentLayout()->documentSize();

    const QString rtf = platform::RtfWriter::write(doc);
    QTextDocument again;
    platform::RtfReader::read(QStringView(rtf), &again);
    if (again.toPlainText() != doc.toPlainText())
        __builtin_trap();
    return 0;
}
