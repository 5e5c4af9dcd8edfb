#pragma once

#include "platform/MsgBox.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace platform {

// Answers message boxes in tests: records every box asked for and gives the queued answers in
// order, then the box's default (OK, Yes). The handler that was installed before comes back when
// the answerer goes out of scope.
class MsgBoxAnswerer
{
public:
    struct Call
    {
        QString prompt;
        int buttons = 0;
        QString title;
    };

    MsgBoxAnswerer();
    explicit MsgBoxAnswerer(const QList<int> &answers);
    ~MsgBoxAnswerer();
    MsgBoxAnswerer(const MsgBoxAnswerer &) = delete;
    MsgBoxAnswerer &operator=(const MsgBoxAnswerer &) = delete;

    // Adds an answer to the end of the queue (vb::vbYes, vb::vbNo, ...).
    void enqueue(int answer);

    const QList<Call> &calls() const { return m_calls; }
    int count() const { return int(m_calls.size()); }
    // The last box asked for; an empty call when there was none.
    Call last() const { return m_calls.isEmpty() ? Call() : m_calls.constLast(); }
    QStringList prompts() const;
    void clear() { m_calls.clear(); }

private:
    QList<Call> m_calls;
    QList<int> m_answers;
    MsgBoxHandler m_previous;
};

} // namespace platform
