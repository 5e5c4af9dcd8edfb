#pragma once

#include <QDialog>
#include <QList>
#include <QPointer>
#include <QString>

#include "app/frmMain.h"
#include "scripture/TranslationList.h"

class QCheckBox;
class QListWidget;
class QPushButton;
class WindowPlacement;

// The start-up window: lists the installed translations and opens one, or skips itself when a
// translation comes from the command line or was saved for loading automatically.
class frmLoadVersion : public QDialog
{
    Q_OBJECT

public:
    // commandLine: the translation folder named on the command line, empty when none.
    explicit frmLoadVersion(const QString &commandLine = QString(), QWidget *parent = nullptr);
    ~frmLoadVersion() override;

    // Runs the start-up steps. False when the program cannot start ("window.ini" is missing).
    bool Form_Load();

    // The main window, once a translation is open.
    frmMain *MainWindow() const { return m_main; }
    bool Opened() const { return !m_main.isNull() && m_opened; }

public slots:
    void cmdLoad_Click();
    // Opens a translation folder of the program folder and shows the main window.
    void OpenTranslation(const QString &folder);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool holdsTranslation(const QString &folder) const;

    QString m_commandLine;
    QList<InstalledTranslation> m_translations;
    QPointer<frmMain> m_main;
    bool m_opened = false;
    WindowPlacement *m_placement = nullptr;
    QListWidget *lstVersions = nullptr;
    QPushButton *cmdLoad = nullptr;
    QCheckBox *chkAutoLoad = nullptr;
};
