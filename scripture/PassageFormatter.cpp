#include "scripture/PassageFormatter.h"

namespace PassageFormatter {

namespace {

// "]" ends the italics. A digit right after the control word would be read as its parameter
// ("\i05" turns italics on and loses the 5), so a blank ends the word before a digit.
QString closeItalics(const QString &rtf)
{
    QString out;
    out.reserve(rtf.size() + rtf.count(u']') * 4);
    for (qsizetype i = 0; i < rtf.size(); ++i) {
        if (rtf.at(i) != u']') {
            out += rtf.at(i);
            continue;
        }
        out += QStringLiteral(" \\i0");
        if (i + 1 < rtf.size() && rtf.at(i + 1) >= u'0' && rtf.at(i + 1) <= u'9')
            out += u' ';
    }
    return out;
}

} // namespace

QString ToRichText(const QString &text, bool wholeDocument)
{
    QString rtf = text;
    // The superscript group starts with an invisible apostrophe of size 0; the text's own "}"
    // closes the group. The blank before \i0 is part of the output on purpose.
    rtf.replace(QStringLiteral("{"), QStringLiteral("{\\super {\\fs0 '}"));
    rtf.replace(QStringLiteral("\r\n"), QStringLiteral("\\par "));
    rtf.replace(QStringLiteral("["), QStringLiteral("\\i "));
    if (rtf.contains(u']'))
        rtf = closeItalics(rtf);
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
    return text.left(cut) +
           QStringLiteral("\r\n[The passage is cut here: %L1 more characters are not shown.]\r\n")
               .arg(text.size() - cut);
}

} // namespace PassageFormatter
