#pragma once

// Opens the program on a test's program folder the way main() does, and owns what it opened: the
// start-up window and the main window are closed and deleted when the harness goes out of scope,
// even when a check failed half-way, and the next test starts from nothing.
#include "Controls.h"
#include "TranslationFixture.h"
#include "app/frmLoadVersion.h"
#include "app/frmMain.h"
#include "platform/MsgBoxAnswerer.h"
#include "platform/RichTextBox.h"
#include "settings/ProgramSettings.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QString>
#include <QTest>
#include <memory>

namespace support {

class ProgramHarness
{
public:
    explicit ProgramHarness(const QString &programFolder) : m_folder(programFolder)
    {
        ProgramSettings::instance().setProgramFolder(programFolder);
    }

    ~ProgramHarness()
    {
        // Whatever the test left on screen goes without asking anyone.
        platform::MsgBoxAnswerer quiet;
        if (m_main) {
            m_main->close();
            delete m_main;
        }
        m_chooser.reset();
        ProgramSettings::instance().rememberWindows = false;
    }

    ProgramHarness(const ProgramHarness &) = delete;
    ProgramHarness &operator=(const ProgramHarness &) = delete;

    QString folder() const { return m_folder; }
    QString file(const QString &name) const { return m_folder + u'/' + name; }

    // Runs start-up with the given command line; false when the program would not start.
    bool start(const QString &commandLine = QString())
    {
        m_chooser = std::make_unique<frmLoadVersion>(commandLine);
        const bool started = m_chooser->Form_Load();
        m_main = m_chooser->MainWindow();
        return started;
    }

    frmLoadVersion *chooser() const { return m_chooser.get(); }
    frmMain *main() const { return m_main; }
    bool opened() const { return m_chooser && m_chooser->Opened(); }

    // A control of the main window (or of the start-up window) by its object name; a test that
    // asks for a control that is not there stops at once with its name.
    template <typename T> T *control(const char *name) const
    {
        T *found = m_main ? m_main->findChild<T *>(QLatin1String(name)) : nullptr;
        return found ? found : support::control<T>(m_chooser.get(), name);
    }

    // Types a reference into the reference box and presses Enter, as the reader asks for one.
    void getReference(const QString &typed) const
    {
        auto *box = control<QLineEdit>("txtReference");
        box->setText(typed);
        QTest::keyClick(box, Qt::Key_Return);
    }
    // The title above the views, and the text of the passage view.
    QString title() const { return control<QLabel>("lbltitle")->text(); }
    QString passage() const { return control<platform::RichTextBox>("rtfPassage")->Text(); }

    // Chooses a translation from the Translations menu by its caption; false when it is not
    // there. Choosing rebuilds the menu, so the entry is looked up afresh each time.
    bool chooseTranslation(const QString &caption) const
    {
        for (QAction *entry : control<QMenu>("mnuTranslations")->actions()) {
            if (entry->text() == caption) {
                entry->trigger();
                return true;
            }
        }
        return false;
    }

    // Closes the main window as the user would; the harness forgets it.
    void closeMain()
    {
        if (m_main) {
            m_main->close();
            delete m_main;
        }
    }

private:
    QString m_folder;
    std::unique_ptr<frmLoadVersion> m_chooser;
    QPointer<frmMain> m_main;
};

} // namespace support
