#include "platform/QtMsgBox.h"

#include "platform/MsgBox.h"

#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <utility>
#include <vector>

namespace platform {

namespace {

using Buttons = std::vector<std::pair<QMessageBox::StandardButton, int>>;

Buttons ButtonsFor(int style)
{
    switch (style & 7) {
    case vb::vbOKCancel:
        return {{QMessageBox::Ok, vb::vbOK}, {QMessageBox::Cancel, vb::vbCancel}};
    case vb::vbAbortRetryIgnore:
        return {{QMessageBox::Abort, vb::vbAbort},
                {QMessageBox::Retry, vb::vbRetry},
                {QMessageBox::Ignore, vb::vbIgnore}};
    case vb::vbYesNoCancel:
        return {{QMessageBox::Yes, vb::vbYes},
                {QMessageBox::No, vb::vbNo},
                {QMessageBox::Cancel, vb::vbCancel}};
    case vb::vbYesNo:
        return {{QMessageBox::Yes, vb::vbYes}, {QMessageBox::No, vb::vbNo}};
    case vb::vbRetryCancel:
        return {{QMessageBox::Retry, vb::vbRetry}, {QMessageBox::Cancel, vb::vbCancel}};
    default:
        return {{QMessageBox::Ok, vb::vbOK}};
    }
}

QMessageBox::Icon IconFor(int style)
{
    switch (style & 0x70) {
    case vb::vbCritical:
        return QMessageBox::Critical;
    case vb::vbQuestion:
        return QMessageBox::Question;
    case vb::vbExclamation:
        return QMessageBox::Warning;
    case vb::vbInformation:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

} // namespace

int ShowWidgetMsgBox(const QString &prompt, int buttons, const QString &title, QWidget *parent)
{
    QString text = prompt;
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(u'\r', u'\n');

    QMessageBox box(IconFor(buttons), title.isEmpty() ? AppTitle() : title, text,
                    QMessageBox::NoButton, parent ? parent : QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    const Buttons choices = ButtonsFor(buttons);
    for (const auto &choice : choices)
        box.addButton(choice.first);

    // The second or third button may be the default; the first is otherwise.
    const size_t defaultIndex = std::min<size_t>((buttons >> 8) & 3, choices.size() - 1);
    box.setDefaultButton(choices[defaultIndex].first);

    // A box that offers Cancel closes with Escape as Cancel; a lone OK closes as OK.
    if (choices.size() == 1)
        box.setEscapeButton(choices.front().first);
    for (const auto &choice : choices) {
        if (choice.second == vb::vbCancel)
            box.setEscapeButton(choice.first);
    }
    // A short message would make the box narrower than its title, which the title bar then cuts
    // short ("Quillston... System"); a spacer keeps it wide enough for the title and the title
    // bar's buttons.
    if (auto *grid = qobject_cast<QGridLayout *>(box.layout())) {
        const int titleWidth = box.fontMetrics().horizontalAdvance(box.windowTitle()) + 160;
        grid->addItem(new QSpacerItem(titleWidth, 0, QSizePolicy::Minimum, QSizePolicy::Fixed),
                      grid->rowCount(), 0, 1, grid->columnCount());
    }
    if (buttons & vb::vbMsgBoxSetForeground)
        box.setWindowFlag(Qt::WindowStaysOnTopHint);

    box.exec();
    const QAbstractButton *clicked = box.clickedButton();
    for (const auto &choice : choices) {
        if (clicked && clicked == box.button(choice.first))
            return choice.second;
    }
    // Closed without a button: Cancel, else No, else the only or first button's answer.
    for (const int answer : {int(vb::vbCancel), int(vb::vbNo)}) {
        for (const auto &choice : choices) {
            if (choice.second == answer)
                return answer;
        }
    }
    return choices.front().second;
}

void InstallWidgetMsgBox()
{
    setMsgBoxHandler([](const QString &prompt, int buttons, const QString &title) {
        return ShowWidgetMsgBox(prompt, buttons, title);
    });
}

} // namespace platform
