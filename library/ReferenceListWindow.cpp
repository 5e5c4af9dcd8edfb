#include "library/ReferenceListWindow.h"

#include "library/ReferenceViews.h"
#include "scripture/basStrings.h"
#include "settings/ProgramSettings.h"
#include "settings/WindowPlacement.h"
#include "settings/basSettings.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

ReferenceListWindow::ReferenceListWindow(const ReferenceListWindowTexts &texts,
                                         MainWindowLink &main, QWidget *parent)
    : ToolWindow(texts.objectName, texts.caption, parent), m_texts(texts), m_main(main)
{

    m_names = new QListWidget;
    m_names->setObjectName(m_texts.listName);
    m_names->setToolTip(m_texts.listTip);
    // Some lists run to tens of thousands of names.
    m_names->setUniformItemSizes(true);
    auto *browse = new QWidget;
    auto *browseLayout = new QVBoxLayout(browse);
    browseLayout->addWidget(m_names);

    txtQuery = new QLineEdit;
    txtQuery->setObjectName(QStringLiteral("txtQuery"));
    txtQuery->setToolTip(m_texts.queryTip);
    cmdSearch = new QPushButton(tr("Search"));
    cmdSearch->setObjectName(QStringLiteral("cmdSearch"));
    cmdSearch->setToolTip(tr("Search"));
    lstResults = new QListWidget;
    lstResults->setObjectName(QStringLiteral("lstResults"));
    lstResults->setUniformItemSizes(true);
    auto *search = new QWidget;
    auto *searchLayout = new QGridLayout(search);
    searchLayout->addWidget(txtQuery, 0, 0);
    searchLayout->addWidget(cmdSearch, 0, 1);
    searchLayout->addWidget(lstResults, 1, 0, 1, 2);
    searchLayout->setRowStretch(1, 1);

    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    SSTab1->addTab(browse, m_texts.browseCaption);
    SSTab1->addTab(search, tr("Search"));
    // The layouts stretch the lists to the tab strip's height as the window is resized.
    m_layout = new QHBoxLayout(this);
    m_layout->addWidget(SSTab1, 1);
    resize(420, 480);

    connect(txtQuery, &QLineEdit::returnPressed, cmdSearch, &QPushButton::click);
    connect(cmdSearch, &QPushButton::clicked, this, &ReferenceListWindow::cmdSearch_Click);
    // A row chosen by mouse or keys (or by a result) is the list's click; the focus is not.
    connect(m_names, &QListWidget::itemSelectionChanged, this,
            &ReferenceListWindow::nameList_Click);
    connect(lstResults, &QListWidget::itemSelectionChanged, this,
            &ReferenceListWindow::lstResults_Click);
    // A result clicked again after browsing elsewhere goes back to its entry.
    connect(lstResults, &QListWidget::itemClicked, this, &ReferenceListWindow::lstResults_Click);

    Form_Load();
}

void ReferenceListWindow::Form_Load()
{
    ApplyStyle(m_names, look().navigation);
    ApplyStyle(lstResults, look().navigation);
    if (m_entries.Load(DataFiles::Path(m_texts.file)))
        m_names->addItems(m_entries.Names());
    else
        reportMissing(m_texts.file);
    m_placement = keepPlace(m_texts.section, m_texts.placementParts);
    m_placement->addTab(SSTab1);
    m_placement->restore();
    // Typing goes to the list of names, which jumps to the name typed.
    m_names->setFocus();
}

void ReferenceListWindow::addBesideTabs(QWidget *pane)
{
    ApplyStyle(pane, look().navigation);
    m_layout->addWidget(pane, 1);
}

int ReferenceListWindow::selectedRecord() const
{
    // The list holds the names in file order, so an entry's record is its row plus one.
    return ChosenRow(m_names) + 1;
}

void ReferenceListWindow::cmdSearch_Click()
{
    if (basStrings::TrimBlanks(txtQuery->text()).isEmpty())
        return;
    lstResults->clear();
    for (const int index : m_entries.Search(txtQuery->text())) {
        auto *item = new QListWidgetItem(m_entries.Names().at(index), lstResults);
        item->setData(Qt::UserRole, index);
    }
}

void ReferenceListWindow::lstResults_Click()
{
    const QListWidgetItem *item = lstResults->item(ChosenRow(lstResults));
    if (!item)
        return;
    const int index = item->data(Qt::UserRole).toInt();
    m_names->setCurrentRow(index);
    m_names->scrollToItem(m_names->item(index));
}

void ReferenceListWindow::nameList_Click()
{
    const int record = selectedRecord();
    if (record > 0)
        nameSelected(record);
}
