#include "scripture/PassageFormatter.h"

namespace PassageFormatter {

QString ToRichText(const QString &text, bool wholeDocument)
{
    QString rtf = text;
    // The superscript group starts with an invisible apostrophe of size 0; the text's own "}"
    // closes the group. The blank before \i0 is part of the output on purpose.
    rtf.replace(QStringLiteral("{"), QStringLiteral("{\\super {\\fs0 '}"));
    rtf.replace(QStringLiteral("\r\n"), QStringLiteral("\\par "));
    rtf.replace(QStringLiteral("["), QStringLiteral("\\i "));
    rtf.replace(QStringLiteral("]"), QStringLiteral(" \\i0"));
    if (!wholeDocument)
        return rtf;
    return QString::fromUtf16(kDocumentHeader) + rtf + QString::fromUtf16(kDocumentFooter);
}

} // namespace PassageFormatter
