#include "library/frmParables.h"

#include "library/DataFiles.h"
#include "library/MainWindowLink.h"
#include "library/ReferenceViews.h"
#include "platform/RichTextBox.h"
#include "scripture/clsBible.h"
#include "settings/ProgramSettings.h"
#include "settings/WindowPlacement.h"
#include "settings/basSettings.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <QVBoxLayout>

frmParables::frmParables(MainWindowLink &main, QWidget *parent)
    // Its caption comes with its tag: parables or miracles.
    : ToolWindow(QStringLiteral("frmParables"), QString(), parent), m_main(main)
{

    Label1 = new QLabel;
    Label1->setObjectName(QStringLiteral("Label1"));
    lstParables = new QListWidget;
    lstParables->setObjectName(QStringLiteral("lstParables"));
    lstParables->setToolTip(tr("Select one to read it in each gospel that tells it"));
    Label1->setBuddy(lstParables);
    auto *left = new QVBoxLayout;
    left->addWidget(Label1);
    left->addWidget(lstParables, 1);

    txtTitle = new QLineEdit;
    txtTitle->setObjectName(QStringLiteral("txtTitle"));
    txtTitle->setReadOnly(true);
    SSTab1 = new QTabWidget;
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    const char *gospels[] = {"Matthew", "Mark", "Luke", "John"};
    for (int j = 0; j < GospelParallels::GospelCount; ++j) {
        rtfGospel[j] = new platform::RichTextBox;
        rtfGospel[j]->setObjectName(QStringLiteral("rtfGospel%1").arg(j));
        rtfGospel[j]->setLocked(true);
        SSTab1->addTab(rtfGospel[j], QLatin1String(gospels[j]));
    }
    auto *right = new QVBoxLayout;
    right->addWidget(txtTitle);
    right->addWidget(SSTab1, 1);

    auto *layout = new QHBoxLayout(this);
    layout->addLayout(left, 0);
    layout->addLayout(right, 1);
    resize(780, 500);

    // A row chosen by mouse or keys is the list's click; the focus is not.
    connect(lstParables, &QListWidget::itemSelectionChanged, this, &frmParables::lstParables_Click);

    Form_Load();
}

void frmParables::Form_Load()
{
    for (platform::RichTextBox *view : rtfGospel)
        ApplyRichTextStyle(view, look().passage);
    ApplyStyle(lstParables, look().navigation);
    ApplyStyle(txtTitle, look().title);
}

void frmParables::SetDataFile(const QString &path)
{
    lstParables->clear();
    if (!m_list.Load(path))
        reportMissing(path);
    Label1->setText(m_list.Heading());
    lstParables->addItems(m_list.Names());
    FitListToNames(lstParables);
    if (!m_placement) {
        m_placement = keepPlace(QStringLiteral("parables"), WindowPlacement::Position);
        m_placement->restore();
    }
}

void frmParables::SetTag(const QString &tag)
{
    m_tag = tag;
    if (tag == MiraclesTag)
        setWindowTitle(tr("Miracles of Jesus Christ"));
    else if (tag == ParablesTag)
        setWindowTitle(tr("Parables of Jesus Christ"));
}

void frmParables::lstParables_Click()
{
    const int row = ChosenRow(lstParables);
    if (row < 0)
        return;
    txtTitle->setText(lstParables->item(row)->text());
    showGospels(row + 1);
}

void frmParables::showGospels(int record)
{
    const clsBible &bible = m_main.Bible();
    bool told = false;
    for (int j = 0; j < GospelParallels::GospelCount; ++j) {
        const auto gospel = GospelParallels::Gospel(j);
        const bool tells = m_list.Tells(record, gospel);
        told |= tells;
        if (tells)
            ShowReferenceIn(rtfGospel[j], bible, m_list.Reference(record, gospel));
        else
            rtfGospel[j]->clear();
        SSTab1->setTabEnabled(j, tells);
    }
    // The tab strip keeps the tab in front looking chosen even when it is disabled; told by
    // none, the whole strip is greyed.
    SSTab1->setEnabled(told);
    // A gospel silent on this one cannot stay in front: the first that tells it comes forward.
    if (!SSTab1->isTabEnabled(SSTab1->currentIndex())) {
        for (int j = 0; j < GospelParallels::GospelCount; ++j) {
            if (SSTab1->isTabEnabled(j)) {
                SSTab1->setCurrentIndex(j);
                break;
            }
        }
    }
}
