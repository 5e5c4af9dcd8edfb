#pragma once

#include <QList>
#include <QString>

#include <functional>
#include <utility>

class clsBible;

// What a reference window may ask of the main window. The reference windows live beside the main
// window, not inside it, so they talk to it through this and never through its form.
class MainWindowLink
{
public:
    virtual ~MainWindowLink() = default;

    // Puts the reference (or list of references) into the reference box and fetches it, as
    // "Get it" does.
    virtual void GoToReference(const QString &reference) = 0;
    // Shows a passage that the caller has already formatted, under a title.
    virtual void ShowPassage(const QString &rtf, const QString &title) = 0;
    // The store of the open translation, to fetch from: only the main window moves it to what
    // it shows, so a reference window's look-up never changes the chapter its notes belong to.
    virtual const clsBible &Bible() const = 0;
    // Lists every verse that carries a Strong's number ("H430", "G26"), as the Strong's
    // concordance of the main window does.
    virtual void ShowConcordance(const QString &number) = 0;
    // Marks in the passage on show what a search found: the function gets the passage's text and
    // gives the start and length of each piece to mark. The marks go when the passage changes.
    // A window without a passage view marks nothing.
    using PassageMarks = std::function<QList<std::pair<int, int>>(const QString &text)>;
    virtual void MarkInPassage(const PassageMarks &find) { (void)find; }
};
