#pragma once

#include <QString>
#include <functional>

class QWidget;

// Asks the user for one line of text. Returns the text, or an empty string when the user cancels
// (as the classic input box does); tests answer instead through setInputBoxAnswer.
namespace platform {

QString InputBox(const QString &prompt, const QString &title,
                 const QString &defaultText = QString(), QWidget *owner = nullptr);

using InputBoxAnswer = std::function<QString(const QString &prompt, const QString &defaultText)>;
// Installs an answer for tests and returns the previous one; an empty one brings the real box back.
InputBoxAnswer setInputBoxAnswer(InputBoxAnswer answer);

} // namespace platform
