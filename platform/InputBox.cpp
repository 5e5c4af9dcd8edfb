#include "platform/InputBox.h"

#include "platform/TestHook.h"

#include <QInputDialog>

namespace platform {

namespace {
struct InputBoxTag;
using Hook = TestHook<InputBoxTag, InputBoxAnswer>;
} // namespace

QString InputBox(const QString &prompt, const QString &title, const QString &defaultText,
                 QWidget *owner)
{
    if (const InputBoxAnswer &answer = Hook::get())
        return answer(prompt, defaultText);
    bool ok = false;
    const QString text =
        QInputDialog::getText(owner, title, prompt, QLineEdit::Normal, defaultText, &ok);
    return ok ? text : QString();
}

InputBoxAnswer setInputBoxAnswer(InputBoxAnswer answer)
{
    return Hook::set(std::move(answer));
}

} // namespace platform
