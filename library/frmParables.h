#pragma once

#include "library/ReferenceLists.h"
#include "library/ToolWindow.h"

#include <QString>

#include <array>

class MainWindowLink;
class QLabel;
class QLineEdit;
class QListWidget;
class QTabWidget;
class WindowPlacement;
namespace platform {
class RichTextBox;
}

// The parables of Jesus or His miracles, each told side by side by the gospels that tell it: the
// names on the left, and on the right the chosen one's title over four tabs "Matthew", "Mark",
// "Luke", "John", only those of the gospels that tell it enabled. One class serves both lists; the
// main window tells an open one by its tag ("PARABLES", "MIRACLES"). Both lists keep their place
// in the one section "parables" of "window.ini". Closing the window deletes it.
class frmParables : public ToolWindow
{
    Q_OBJECT

public:
    static inline const QString ParablesTag = QStringLiteral("PARABLES");
    static inline const QString MiraclesTag = QStringLiteral("MIRACLES");

    frmParables(MainWindowLink &main, QWidget *parent = nullptr);

    // Reads the list from the data file (a missing file is reported and leaves the list empty),
    // then puts the window where it was left. Called once, before the window is shown.
    void SetDataFile(const QString &path);

    // What the main window looks for among the open windows.
    QString Tag() const { return m_tag; }
    void SetTag(const QString &tag);

private slots:
    void lstParables_Click();

private:
    void Form_Load();
    void showGospels(int record);

    MainWindowLink &m_main;
    GospelParallels m_list;
    QString m_tag;

    QLabel *Label1 = nullptr;
    QListWidget *lstParables = nullptr;
    QLineEdit *txtTitle = nullptr;
    QTabWidget *SSTab1 = nullptr;
    std::array<platform::RichTextBox *, GospelParallels::GospelCount> rtfGospel{};
    WindowPlacement *m_placement = nullptr;
};
