#include "library/frmVerseOfDay.h"

#include "library/DataFiles.h"
#include "library/MainWindowLink.h"
#include "library/ReferencePassages.h"
#include "scripture/basStrings.h"
#include "settings/ProgramSettings.h"
#include "settings/WindowPlacement.h"
#include "settings/WindowSettings.h"
#include "settings/basSettings.h"

#include <QCheckBox>
#include <QDateTime>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

frmVerseOfDay::frmVerseOfDay(MainWindowLink &main, int showAtStartup, QWidget *parent)
    // A small box that stays over the main window until it is closed, as it opens at start-up.
    : QWidget(parent, Qt::Dialog), m_main(main)
{
    setObjectName(QStringLiteral("frmVerseOfDay"));
    setWindowTitle(tr("Verse of the Day"));
    setAttribute(Qt::WA_DeleteOnClose);

    txtVerse = new QPlainTextEdit;
    txtVerse->setObjectName(QStringLiteral("txtVerse"));
    txtVerse->setReadOnly(true);
    auto *label = new QLabel(tr("Verse of the day:"));
    label->setBuddy(txtVerse);
    chkLoadVerseAtStartup = new QCheckBox(tr("&Show verse of the day at startup"));
    chkLoadVerseAtStartup->setObjectName(QStringLiteral("chkLoadVerseAtStartup"));
    chkLoadVerseAtStartup->setChecked(showAtStartup != 0);
    cmdNextverse = new QPushButton(tr("&Next Verse"));
    cmdNextverse->setObjectName(QStringLiteral("cmdNextverse"));
    cmdOK = new QPushButton(tr("OK"));
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);

    auto *layout = new QGridLayout(this);
    layout->addWidget(label, 0, 0, 1, 3);
    layout->addWidget(txtVerse, 1, 0, 1, 3);
    layout->addWidget(chkLoadVerseAtStartup, 2, 0);
    layout->addWidget(cmdNextverse, 2, 1);
    layout->addWidget(cmdOK, 2, 2);
    layout->setColumnStretch(0, 1);
    layout->setRowStretch(1, 1);
    resize(460, 260);
    // It opens over the main window, where the reader is looking.
    WindowPlacement::CentreOver(this, parent);

    // Only the user's click is saved, not the state the window opened with.
    connect(chkLoadVerseAtStartup, &QCheckBox::clicked, this,
            &frmVerseOfDay::chkLoadVerseAtStartup_Click);
    connect(cmdNextverse, &QPushButton::clicked, this, &frmVerseOfDay::NextVerse);
    connect(cmdOK, &QPushButton::clicked, this, &QWidget::close);

    Form_Load();
}

void frmVerseOfDay::Form_Load()
{
    ApplyStyle(txtVerse, ProgramSettings::instance().display.passage);
    m_index = 1;
    m_random.seed(quint32(QDateTime::currentMSecsSinceEpoch()));
    if (!LoadVerses(DataFiles::Path(DataFiles::File::Verses)))
        txtVerse->setPlainText(ReferencePassages::VersesMissingText());
    cmdOK->setFocus();
}

bool frmVerseOfDay::LoadVerses(const QString &path)
{
    if (path.isEmpty() || !basStrings::FileExists(path) || !m_verses.Load(path))
        return false;
    NextVerse();
    return true;
}

void frmVerseOfDay::NextVerse()
{
    m_index = ReferencePassages::PickVerse(m_verses, m_random.generateDouble());
    ShowVerse();
}

void frmVerseOfDay::ShowVerse()
{
    if (m_verses.Count() == 0)
        return;
    // The text box takes plain line breaks.
    QString text = ReferencePassages::VerseText(m_main.Bible(), m_verses, m_index);
    txtVerse->setPlainText(text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
}

void frmVerseOfDay::chkLoadVerseAtStartup_Click()
{
    WindowSettings::Set(WindowSettings::VerseOfDay, chkLoadVerseAtStartup->isChecked() ? 1 : 0);
}
