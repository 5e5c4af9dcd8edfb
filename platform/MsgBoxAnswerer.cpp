#include "platform/MsgBoxAnswerer.h"

#include <QStringList>

namespace platform {

MsgBoxAnswerer::MsgBoxAnswerer() : MsgBoxAnswerer(QList<int>()) {}

MsgBoxAnswerer::MsgBoxAnswerer(const QList<int> &answers) : m_answers(answers)
{
    m_previous = setMsgBoxHandler([this](const QString &prompt, int buttons, const QString &title) {
        m_calls.append(Call{prompt, buttons, title});
        return m_answers.isEmpty() ? DefaultAnswer(buttons) : m_answers.takeFirst();
    });
}

MsgBoxAnswerer::~MsgBoxAnswerer()
{
    setMsgBoxHandler(std::move(m_previous));
}

void MsgBoxAnswerer::enqueue(int answer)
{
    m_answers.append(answer);
}

QStringList MsgBoxAnswerer::prompts() const
{
    QStringList out;
    for (const Call &call : m_calls)
        out.append(call.prompt);
    return out;
}

} // namespace platform
