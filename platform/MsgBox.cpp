#include "platform/MsgBox.h"

#include "platform/TestHook.h"

#include <cstdio>

namespace platform {

namespace {
using Hook = TestHook<struct MsgBoxTag, MsgBoxHandler>;
} // namespace

QString AppTitle()
{
    return QStringLiteral("Quillstone Bible System");
}

int DefaultAnswer(int buttons)
{
    switch (buttons & 7) {
    case vb::vbOKCancel:
        return vb::vbOK;
    case vb::vbAbortRetryIgnore:
        return vb::vbAbort;
    case vb::vbYesNoCancel:
    case vb::vbYesNo:
        return vb::vbYes;
    case vb::vbRetryCancel:
        return vb::vbRetry;
    default:
        return vb::vbOK;
    }
}

int MsgBox(const QString &prompt, int buttons, const QString &title)
{
    const QString shownTitle = title.isEmpty() ? AppTitle() : title;
    if (const MsgBoxHandler &handler = Hook::get())
        return handler(prompt, buttons, shownTitle);
    QString text = prompt;
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
    std::fflush(stderr);
    return DefaultAnswer(buttons);
}

MsgBoxHandler setMsgBoxHandler(MsgBoxHandler handler)
{
    return Hook::set(std::move(handler));
}

QString ErrText(int number, const QString &description)
{
    return QStringLiteral("Err #") + QString::number(number) + QStringLiteral(" ocurred(") +
           description + QLatin1Char(')');
}

} // namespace platform
