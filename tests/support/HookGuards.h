#pragma once

// Test answers for everything that would ask the user or the desktop. Each guard installs its
// answer for its own lifetime and puts back what was there before, so a check that fails half-way
// through a test never leaves an answer behind for the next one. Message boxes have their own
// guard, platform::MsgBoxAnswerer.
#include "platform/CShell.h"
#include "platform/InputBox.h"
#include "platform/clsCommonColorDialog.h"
#include "platform/clsCommonFontDialog.h"
#include "platform/clsCommonOpenDialog.h"

#include <QList>
#include <QStringList>
#include <QUrl>
#include <utility>

namespace support {

template <typename Dialog> class DialogAnswer
{
public:
    explicit DialogAnswer(typename Dialog::TestAnswer answer)
        : m_previous(Dialog::setTestAnswer(std::move(answer)))
    {
    }
    ~DialogAnswer() { Dialog::setTestAnswer(std::move(m_previous)); }
    DialogAnswer(const DialogAnswer &) = delete;
    DialogAnswer &operator=(const DialogAnswer &) = delete;

private:
    typename Dialog::TestAnswer m_previous;
};

using ColorAnswer = DialogAnswer<clsCommonColorDialog>;
using FontAnswer = DialogAnswer<clsCommonFontDialog>;
using FileAnswer = DialogAnswer<clsCommonOpenDialog>;

// Records what the shell was asked to open instead of opening it.
class ShellRecorder
{
public:
    explicit ShellRecorder(bool succeed = true)
        : m_previous(CShell::setTestOpener([this, succeed](const CShell &, const QUrl &url) {
              opened.append(url);
              return succeed;
          }))
    {
    }
    ~ShellRecorder() { CShell::setTestOpener(std::move(m_previous)); }
    ShellRecorder(const ShellRecorder &) = delete;
    ShellRecorder &operator=(const ShellRecorder &) = delete;

    QList<QUrl> opened;

private:
    CShell::TestOpener m_previous;
};

// Answers the input box with the given texts in turn (then with empty text, as Cancel does) and
// records the prompts it was shown.
class InputBoxAnswers
{
public:
    explicit InputBoxAnswers(QStringList answers)
        : m_answers(std::move(answers)),
          m_previous(platform::setInputBoxAnswer([this](const QString &prompt, const QString &) {
              prompts.append(prompt);
              return m_answers.isEmpty() ? QString() : m_answers.takeFirst();
          }))
    {
    }
    ~InputBoxAnswers() { platform::setInputBoxAnswer(std::move(m_previous)); }
    InputBoxAnswers(const InputBoxAnswers &) = delete;
    InputBoxAnswers &operator=(const InputBoxAnswers &) = delete;

    QStringList prompts;

private:
    QStringList m_answers;
    platform::InputBoxAnswer m_previous;
};

} // namespace support
