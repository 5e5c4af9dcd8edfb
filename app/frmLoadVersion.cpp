#include "app/frmLoadVersion.h"

#include "app/frmMain.h"
#include "platform/MsgBox.h"
#include "platform/TextZoom.h"
#include "scripture/basStrings.h"
#include "settings/ProgramSettings.h"
#include "settings/WindowPlacement.h"
#include "settings/WindowSettings.h"

#include <QCheckBox>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QItemSelectionModel>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace {
QString programFolder()
{
    return ProgramSettings::instance().programFolder();
}
} // namespace

frmLoadVersion::frmLoadVersion(const QString &commandLine, QWidget *parent)
    : QDialog(parent), m_commandLine(commandLine)
{
    setObjectName(QStringLiteral("frmLoadVersion"));
    // Every text view of the program zooms and keeps its zoom from one session to the next.
    platform::TextZoom::InstallEverywhere(
        [](const QString &view) { return WindowSettings::Get(WindowSettings::ZoomPercent, view); },
        [](const QString &view, int percent) {
            WindowSettings::Set(WindowSettings::ZoomPercent, view, percent);
        });
    setWindowTitle(tr("Quillstone Bible System"));
    auto *layout = new QVBoxLayout(this);
    auto *label = new QLabel(tr("Choose a &translation to open:"), this);
    lstVersions = new QListWidget(this);
    lstVersions->setObjectName(QStringLiteral("lstVersions"));
    label->setBuddy(lstVersions);
    chkAutoLoad = new QCheckBox(tr("&Open this translation automatically next time"), this);
    chkAutoLoad->setObjectName(QStringLiteral("chkAutoLoad"));
    cmdLoad = new QPushButton(tr("&Load"), this);
    cmdLoad->setObjectName(QStringLiteral("cmdLoad"));
    cmdLoad->setDefault(true);
    layout->addWidget(label);
    layout->addWidget(lstVersions, 1);
    layout->addWidget(chkAutoLoad);
    layout->addWidget(cmdLoad, 0, Qt::AlignRight);
    resize(380, 300);
    m_placement = new WindowPlacement(this, QStringLiteral("load"));
    // The list starts with no row marked; see eventFilter.
    lstVersions->installEventFilter(this);
    connect(cmdLoad, &QPushButton::clicked, this, &frmLoadVersion::cmdLoad_Click);
    connect(lstVersions, &QListWidget::itemDoubleClicked, this, &frmLoadVersion::cmdLoad_Click);
}

frmLoadVersion::~frmLoadVersion() = default;

bool frmLoadVersion::holdsTranslation(const QString &folder) const
{
    // Only a folder of the program folder is a translation; a path that leaves it is not.
    if (folder.isEmpty() || QDir::isAbsolutePath(folder) ||
        QDir::isAbsolutePath(QDir::fromNativeSeparators(folder)))
        return false;
    const QString root = QDir::cleanPath(QFileInfo(programFolder()).absoluteFilePath());
    const QString target = QDir::cleanPath(
        root + u'/' + QDir::fromNativeSeparators(QString(folder).replace(u'\\', u'/')));
    if (!target.startsWith(root + u'/'))
        return false;
    return TranslationList::IsTranslation(target);
}

bool frmLoadVersion::Form_Load()
{
    ProgramSettings &settings = ProgramSettings::instance();
    // 1. Nothing starts without the settings file.
    if (!settings.CreateIni()) {
        platform::MsgBox(tr("Unable to launch because 'window.ini' is missing from the program's "
                            "directory!\r\n") +
                             tr("Reinstall the program to repair the problem"),
                         vb::vbCritical | vb::vbOKOnly);
        return false;
    }
    settings.rememberWindows = WindowSettings::Get(WindowSettings::RememberWindows);

    // 2. The window's own place.
    m_placement->restore();

    // 3. The installed translations.
    m_translations = TranslationList::List(programFolder());
    for (const InstalledTranslation &t : std::as_const(m_translations))
        lstVersions->addItem(t.displayName);

    // The check box shows the saved choice before anything is opened, so opening a translation
    // from the command line keeps the user's automatic-load setting as it was.
    // Any value but 0 is on; a missing key reads as -1 and so is on too.
    chkAutoLoad->setChecked(WindowSettings::Get(WindowSettings::AutoLoad));

    // 4. A translation named on the command line.
    if (!m_commandLine.isEmpty()) {
        if (holdsTranslation(m_commandLine))
            OpenTranslation(m_commandLine);
        else
            platform::MsgBox(tr("An invalid version path was supplied at the command line, "
                                "ignoring it and resuming"),
                             vb::vbCritical | vb::vbOKOnly);
    }

    // 5. The translation saved for loading automatically, unless the last start never finished
    // opening it: a translation that hangs or kills the program would do so at every start.
    if (!m_opened && chkAutoLoad->isChecked()) {
        const QString saved = WindowSettings::Get(WindowSettings::SavedTranslation);
        const QString unfinished = WindowSettings::Get(WindowSettings::Opening);
        if (!unfinished.isEmpty() && unfinished.compare(saved, Qt::CaseInsensitive) == 0)
            platform::MsgBox(tr("The translation \"") + saved +
                                 tr("\" did not finish opening the last time, so it is not opened "
                                    "automatically.\r\n") +
                                 tr("Choose the translation to open."),
                             vb::vbExclamation | vb::vbOKOnly);
        else if (holdsTranslation(saved))
            OpenTranslation(saved);
        else
            platform::MsgBox(
                tr("An invalid version path was saved in the settings, ignoring and resuming"),
                vb::vbCritical | vb::vbOKOnly);
    }
    return true;
}

void frmLoadVersion::cmdLoad_Click()
{
    if (lstVersions->count() == 0) {
        platform::MsgBox(tr("There are no available translations installed!"));
        return;
    }
    const int row = lstVersions->currentRow();
    if (row < 0 || !lstVersions->currentItem()->isSelected()) {
        platform::MsgBox(tr("Please select a translation first"));
        return;
    }
    OpenTranslation(m_translations.at(row).folder);
}

void frmLoadVersion::OpenTranslation(const QString &folder)
{
    if (!m_main) {
        m_main = new frmMain;
        m_main->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_main, &frmMain::translationChosen, this, &frmLoadVersion::OpenTranslation);
    }
    // Until the window is on screen with the translation, the next start knows it is opening.
    WindowSettings::Set(WindowSettings::Opening, folder);
    // 1. The stores point at the folder (the main window's load reads it). A user who chose to
    // stay with unsaved notes stays with the translation open.
    if (!m_main->LoadTranslation(folder)) {
        WindowSettings::Set(WindowSettings::Opening, QString());
        return;
    }
    // 2. Remember the choice.
    WindowSettings::Set(WindowSettings::SavedTranslation, folder);
    WindowSettings::Set(WindowSettings::AutoLoad, chkAutoLoad->isChecked());
    // 3. Show the main window, and the verse of the day over it when the user wants it.
    m_main->show();
    m_main->ShowVerseOfDayAfterLoad();
    // Once the window has been laid out and painted, the translation has opened.
    QTimer::singleShot(0, m_main, [] { WindowSettings::Set(WindowSettings::Opening, QString()); });
    // 4. This window's work is done; closing it keeps its place (a window never shown keeps the
    // place it was given).
    if (!m_opened) {
        m_opened = true;
        if (isVisible())
            close();
        else
            m_placement->save();
    }
}

bool frmLoadVersion::eventFilter(QObject *watched, QEvent *event)
{
    // Taking the focus marks the list's first row as current without choosing it, which looks
    // like a choice that Load then refuses. No row is marked until the user picks one.
    if (watched == lstVersions && event->type() == QEvent::FocusIn) {
        QTimer::singleShot(0, this, [this] {
            if (lstVersions->selectedItems().isEmpty())
                lstVersions->selectionModel()->clearCurrentIndex();
        });
    }
    return QDialog::eventFilter(watched, event);
}
