#include "platform/clsCommonColorDialog.h"
#include "platform/TestHook.h"
#include "platform/WinQColor.h"

#include <QColorDialog>

namespace {
using Hook = platform::TestHook<clsCommonColorDialog, clsCommonColorDialog::TestAnswer>;
} // namespace

int clsCommonColorDialog::CustomColors(int index) const
{
    if (index < 0 || index >= CustomColorCount)
        return 0;
    return m_customColors[size_t(index)];
}

void clsCommonColorDialog::setCustomColors(int index, int color)
{
    if (index >= 0 && index < CustomColorCount)
        m_customColors[size_t(index)] = color;
}

clsCommonColorDialog::TestAnswer clsCommonColorDialog::setTestAnswer(TestAnswer answer)
{
    return Hook::set(std::move(answer));
}

bool clsCommonColorDialog::Show(QWidget *owner)
{
    if (const TestAnswer &answer = Hook::get()) {
        // The answer works on a copy so that a cancelled answer changes nothing, as a real
        // cancelled dialog does.
        clsCommonColorDialog copy = *this;
        if (!answer(copy))
            return false;
        *this = copy;
        return true;
    }

    // The dialog's custom colours are shared by the whole program; this object's own set is put
    // in before showing and taken back after OK.
    for (int i = 0; i < CustomColorCount; ++i)
        QColorDialog::setCustomColor(i, platform::WindowsColorToQColor(m_customColors[size_t(i)]));

    QColorDialog dialog(RGBInit() ? platform::WindowsColorToQColor(m_color) : QColor(Qt::black),
                        owner);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    m_color = platform::QColorToWindowsColor(dialog.selectedColor());
    for (int i = 0; i < CustomColorCount; ++i)
        m_customColors[size_t(i)] = platform::QColorToWindowsColor(QColorDialog::customColor(i));
    return true;
}
