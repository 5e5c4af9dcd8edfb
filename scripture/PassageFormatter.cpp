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

QString FitForView(const QString &text)
{
    if (text.size() <= kMostShown)
        return text;
    qsizetype cut = text.lastIndexOf(QStringLiteral("\r\n"), kMostShown);
    cut = cut > kMostShown / 2 ? cut + 2 : kMostShown;
    // A cut inside a pair of UTF-16 units would leave half a character.
    if (text.at(cut - 1).isHighSurrogate())
        --cut;
    return text.left(cut) + QStringLiteral("\r\n[The passage is cut here: %L1 more characters are not shown.]\r\n")
                                .arg(text.size() - cut);
}

} // namespace PassageFormatter
