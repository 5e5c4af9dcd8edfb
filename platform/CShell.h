#pragma once

#include <QString>
#include <QUrl>

#include <functional>

// Opens a document, a web address or a "mailto:" address with the desktop's handler for it.
class CShell
{
public:
    // Show states a caller may hand over; the desktop decides how the document's window opens.
    enum : int
    {
        SW_HIDE = 0,
        SW_SHOWNORMAL = 1,
        SW_SHOWMINIMIZED = 2,
        SW_SHOWMAXIMIZED = 3
    };

    // Gets the shell and the address it would open; returns whether opening succeeded.
    using TestOpener = std::function<bool(const CShell &shell, const QUrl &url)>;

    CShell() = default;

    QString filename() const { return m_filename; }
    void setFilename(const QString &name) { m_filename = name; }
    QString Parameters() const { return m_parameters; }
    void setParameters(const QString &parameters) { m_parameters = parameters; }
    QString WorkingDirectory() const { return m_workingDirectory; }
    void setWorkingDirectory(const QString &folder) { m_workingDirectory = folder; }
    int WindowState() const { return m_windowState; }
    void setWindowState(int state) { m_windowState = state; }

    // Opens filename. A failure is not reported to the user; the result says whether the
    // desktop accepted it.
    bool Execute() const;

    // What Execute hands to the desktop: an address with a scheme ("https:", "mailto:") as it
    // stands, "www." addresses as web addresses, anything else as a local file, taken relative
    // to WorkingDirectory and found regardless of case.
    QUrl Url() const;

    // Tests record instead of opening; returns the previous opener.
    static TestOpener setTestOpener(TestOpener opener);

private:
    QString m_filename;
    QString m_parameters;
    QString m_workingDirectory;
    int m_windowState = SW_SHOWNORMAL;
};
