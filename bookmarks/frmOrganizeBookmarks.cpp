#include "bookmarks/frmOrganizeBookmarks.h"

#include "bookmarks/BookmarkFile.h"
#include "platform/ListRows.h"
#include "platform/MsgBox.h"
#include "settings/ProgramSettings.h"
#include "settings/WindowPlacement.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

frmOrganizeBookmarks::frmOrganizeBookmarks(const QStringList &captions, QStringList &references,
                                           const clsBible &bible, std::function<void()> reload,
                                           QWidget *parent)
    : QDialog(parent), m_references(references), m_bible(bible), m_reload(std::move(reload))
{
    setObjectName(QStringLiteral("frmOrganizeBookmarks"));
    setWindowTitle(tr("Organize Bookmarks"));
    setModal(true);

    lstBookmarks = new QListWidget(this);
    lstBookmarks->setObjectName(QStringLiteral("lstBookmarks"));
    txtName = new QLineEdit(this);
    txtName->setObjectName(QStringLiteral("txtName"));
    txtName->setToolTip(tr("Edit bookmark name here"));
    txtReference = new QLineEdit(this);
    txtReference->setObjectName(QStringLiteral("txtReference"));
    txtReference->setToolTip(tr("Edit bookmark reference here"));
    txtPassage = new QPlainTextEdit(this);
    txtPassage->setObjectName(QStringLiteral("txtPassage"));
    txtPassage->setToolTip(tr("Bookmark passage"));
    txtPassage->setReadOnly(true);
    cmdUpdate = new QPushButton(tr("Update"), this);
    cmdUpdate->setObjectName(QStringLiteral("cmdUpdate"));
    cmdUpdate->setToolTip(tr("Click here to update your changes to the selected bookmark"));
    cmdRemove = new QPushButton(tr("Remove"), this);
    cmdRemove->setObjectName(QStringLiteral("cmdRemove"));
    cmdRemove->setToolTip(tr("Click here to remove the selected bookmark"));
    cmdSave = new QPushButton(tr("&Save"), this);
    cmdSave->setObjectName(QStringLiteral("cmdSave"));
    cmdSave->setToolTip(tr("Click here to save your changes to the bookmarks"));
    cmdCancel = new QPushButton(tr("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdCancel->setToolTip(tr("Click here to cancel your changes"));
    // Enter in a box must not save the whole list by surprise.
    for (QPushButton *button : {cmdUpdate, cmdRemove, cmdSave, cmdCancel})
        button->setAutoDefault(false);

    auto *lblName = new QLabel(tr("Name:"), this);
    lblName->setBuddy(txtName);
    auto *lblReference = new QLabel(tr("Reference:"), this);
    lblReference->setBuddy(txtReference);
    auto *edit = new QGridLayout;
    edit->addWidget(lblName, 0, 0);
    edit->addWidget(txtName, 0, 1);
    edit->addWidget(lblReference, 1, 0);
    edit->addWidget(txtReference, 1, 1);
    edit->addWidget(txtPassage, 2, 0, 1, 2);
    auto *change = new QHBoxLayout;
    change->addWidget(cmdUpdate);
    change->addWidget(cmdRemove);
    change->addStretch(1);
    edit->addLayout(change, 3, 0, 1, 2);
    auto *columns = new QHBoxLayout;
    columns->addWidget(lstBookmarks, 2);
    columns->addLayout(edit, 3);
    auto *close = new QHBoxLayout;
    close->addStretch(1);
    close->addWidget(cmdSave);
    close->addWidget(cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(columns, 1);
    layout->addLayout(close);
    resize(560, 360);

    connect(lstBookmarks, &QListWidget::itemSelectionChanged, this,
            &frmOrganizeBookmarks::lstBookmarks_Click);
    connect(cmdUpdate, &QPushButton::clicked, this, &frmOrganizeBookmarks::cmdUpdate_Click);
    connect(cmdRemove, &QPushButton::clicked, this, &frmOrganizeBookmarks::cmdRemove_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmOrganizeBookmarks::cmdSave_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmOrganizeBookmarks::cmdCancel_Click);

    // The name and reference can be edited once a bookmark is chosen.
    txtName->setEnabled(false);
    txtReference->setEnabled(false);

    // Opening: the menu's captions, in order.
    lstBookmarks->addItems(captions);

    // Closing writes the placement back (the helper does it as the dialog hides).
    m_placement = new WindowPlacement(this, QStringLiteral("organizebookmarks"));
    m_placement->restore();
}

int frmOrganizeBookmarks::selectedRow() const
{
    return platform::ChosenRow(lstBookmarks);
}

QString frmOrganizeBookmarks::referenceItem(int k) const
{
    return k >= 1 && k <= m_references.size() ? m_references.at(k - 1) : QString();
}

void frmOrganizeBookmarks::lstBookmarks_Click()
{
    const int row = selectedRow();
    if (row < 0)
        return;
    // The chosen bookmark's name, reference and passage.
    txtName->setEnabled(true);
    txtReference->setEnabled(true);
    txtName->setText(lstBookmarks->item(row)->text());
    txtReference->setText(referenceItem(row + 1));
    QString passage = m_bible.Fetch(txtReference->text()).text;
    passage.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    txtPassage->setPlainText(passage);
}

void frmOrganizeBookmarks::cmdUpdate_Click()
{
    // Without a chosen entry that has a name there is nothing to update.
    const int row = selectedRow();
    if (row < 0 || lstBookmarks->item(row)->text().trimmed().isEmpty())
        return;
    // Saved as it stands, a quote would cut the name short the next time the file is read.
    const QString refusal = BookmarkFile::UnwritableText(txtName->text(), txtReference->text());
    if (!refusal.isEmpty()) {
        platform::MsgBox(refusal);
        return;
    }
    lstBookmarks->item(row)->setText(txtName->text());
    // The new reference goes in at the bookmark's place and the old one, now one further on,
    // comes out, so the k-th reference still belongs to the k-th entry.
    const int k = row + 1;
    m_references.insert(std::min<qsizetype>(k - 1, m_references.size()), txtReference->text());
    if (k < m_references.size())
        m_references.removeAt(k);
    lstBookmarks_Click();
}

void frmOrganizeBookmarks::cmdRemove_Click()
{
    const int row = selectedRow();
    if (row < 0)
        return;
    // 4.
    if (platform::MsgBox(tr("Are you sure?"), vb::vbYesNo + vb::vbCritical) != vb::vbYes)
        return;
    if (row < m_references.size())
        m_references.removeAt(row);
    {
        // As the list box always has, it is left with no entry chosen; the boxes keep what they
        // showed until another entry is chosen.
        const QSignalBlocker quiet(lstBookmarks);
        delete lstBookmarks->takeItem(row);
        lstBookmarks->clearSelection();
        lstBookmarks->setCurrentItem(nullptr);
    }
    if (lstBookmarks->count() == 0) {
        txtName->clear();
        txtReference->clear();
        txtPassage->clear();
    }
    if (ProgramSettings::instance().rememberWindows)
        m_placement->restore();
}

void frmOrganizeBookmarks::cmdSave_Click()
{
    // Entry i with reference item i + 1, for every entry in order; then the menu is rebuilt.
    QList<Bookmark> bookmarks;
    for (int i = 0; i < lstBookmarks->count(); ++i)
        bookmarks.append({lstBookmarks->item(i)->text(), referenceItem(i + 1)});
    if (!BookmarkFile(ProgramSettings::instance().programFolder()).Save(bookmarks))
        return;
    if (m_reload)
        m_reload();
    accept();
}

void frmOrganizeBookmarks::cmdCancel_Click()
{
    // What Update and Remove did to the shared reference list stays.
    reject();
}
