#include "library/frmProphecies.h"

#include "library/DataFiles.h"
#include "library/MainWindowLink.h"
#include "library/ReferenceViews.h"
#include "platform/RichTextBox.h"
#include "settings/ProgramSettings.h"
#include "settings/WindowPlacement.h"
#include "settings/basSettings.h"

#include <QGridLayout>
#include <QLabel>
#include <QListWidget>

frmProphecies::frmProphecies(MainWindowLink &main, QWidget *parent)
    : ToolWindow(QStringLiteral("frmProphecies"), tr("Prophecies and their Fulfilment"), parent),
      m_main(main)
{

    lstProphecies = new QListWidget;
    lstProphecies->setObjectName(QStringLiteral("lstProphecies"));
    lstProphecies->setToolTip(tr("Select a prophecy to read it beside its fulfilment"));
    rtfOld = new platform::RichTextBox;
    rtfOld->setObjectName(QStringLiteral("rtfOld"));
    rtfOld->setLocked(true);
    rtfNew = new platform::RichTextBox;
    rtfNew->setObjectName(QStringLiteral("rtfNew"));
    rtfNew->setLocked(true);

    auto *layout = new QGridLayout(this);
    auto *prophecies = new QLabel(tr("&Prophecies:"));
    prophecies->setBuddy(lstProphecies);
    layout->addWidget(prophecies, 0, 0);
    layout->addWidget(new QLabel(tr("Prophecy:")), 0, 1);
    layout->addWidget(new QLabel(tr("Fulfilment:")), 0, 2);
    layout->addWidget(lstProphecies, 1, 0);
    layout->addWidget(rtfOld, 1, 1);
    layout->addWidget(rtfNew, 1, 2);
    layout->setColumnStretch(0, 0);
    layout->setColumnStretch(1, 3);
    layout->setColumnStretch(2, 3);
    layout->setRowStretch(1, 1);
    resize(1000, 480);

    // A row chosen by mouse or keys is the list's click; the focus is not.
    connect(lstProphecies, &QListWidget::itemSelectionChanged, this,
            &frmProphecies::lstProphecies_Click);

    Form_Load();
}

void frmProphecies::Form_Load()
{
    ApplyRichTextStyle(rtfOld, look().passage);
    ApplyRichTextStyle(rtfNew, look().passage);
    ApplyStyle(lstProphecies, look().navigation);
    if (m_list.Load(DataFiles::Path(DataFiles::File::Prophecy))) {
        lstProphecies->addItems(m_list.Names());
        FitListToNames(lstProphecies);
    } else {
        reportMissing(DataFiles::File::Prophecy);
    }
    keepPlace(QStringLiteral("prophecy"), WindowPlacement::Position)->restore();
}

void frmProphecies::lstProphecies_Click()
{
    const int record = ChosenRow(lstProphecies) + 1;
    if (record < 1)
        return;
    ShowReferenceIn(rtfOld, m_main.Bible(), m_list.Prophecy(record));
    ShowReferenceIn(rtfNew, m_main.Bible(), m_list.Fulfilment(record));
}
