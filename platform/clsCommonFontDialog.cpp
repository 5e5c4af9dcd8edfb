#include "platform/clsCommonFontDialog.h"
#include "platform/TestHook.h"

#include <QFont>
#include <QFontDialog>

#include <algorithm>

namespace {
using Hook = platform::TestHook<clsCommonFontDialog, clsCommonFontDialog::TestAnswer>;
} // namespace

clsCommonFontDialog::TestAnswer clsCommonFontDialog::setTestAnswer(TestAnswer answer)
{
    return Hook::set(std::move(answer));
}

bool clsCommonFontDialog::Show(QWidget *owner)
{
    if (const TestAnswer &answer = Hook::get()) {
        clsCommonFontDialog copy = *this;
        if (!answer(copy))
            return false;
        *this = copy;
        return true;
    }

    QFont initial;
    if (!m_fontName.isEmpty())
        initial.setFamily(m_fontName);
    if (m_fontSize > 0)
        initial.setPointSizeF(m_fontSize);
    initial.setBold(m_bold);
    initial.setItalic(m_italic);
    initial.setUnderline(m_underline);
    initial.setStrikeOut(m_strikethru);

    QFontDialog::FontDialogOptions options;
    if (FixedPitchOnly())
        options |= QFontDialog::MonospacedFonts;
    if (ShowScalableOnly() || ShowTrueTypeOnly() || NoVectorFonts())
        options |= QFontDialog::ScalableFonts;

    QFontDialog dialog(initial, owner);
    dialog.setOptions(options);
    if (dialog.exec() != QDialog::Accepted)
        return false;

    const QFont chosen = dialog.selectedFont();
    m_fontName = chosen.family();
    double size = chosen.pointSizeF();
    if (LimitSize() && m_maxSize > 0)
        size = std::clamp(size, double(std::max(m_minSize, 1)), double(m_maxSize));
    if (size > 0)
        m_fontSize = size;
    m_bold = chosen.bold();
    m_italic = chosen.italic();
    m_underline = chosen.underline();
    m_strikethru = chosen.strikeOut();
    return true;
}
