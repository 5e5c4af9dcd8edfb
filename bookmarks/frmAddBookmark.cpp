#include "bookmarks/frmAddBookmark.h"

#include "bookmarks/BookmarkFile.h"
#include "settings/ProgramSettings.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

frmAddBookmark::frmAddBookmark(const QString &reference, std::function<void()> reload,
                               QWidget *parent)
    : QDialog(parent), m_reload(std::move(reload))
{
    setObjectName(QStringLiteral("frmAddBookmark"));
    setWindowTitle(tr("Add Bookmark"));
    setModal(true);

    txtName = new QLineEdit(this);
    txtName->setObjectName(QStringLiteral("txtName"));
    txtName->setToolTip(tr("Bookmark's Name to Show in bookmarks menu"));
    txtReference = new QLineEdit(reference, this);
    txtReference->setObjectName(QStringLiteral("txtReference"));
    txtReference->setToolTip(tr("Reference that the bookmark refers to"));
    auto *lblName = new QLabel(tr("&Name:"), this);
    lblName->setBuddy(txtName);
    auto *lblReference = new QLabel(tr("&Reference:"), this);
    lblReference->setBuddy(txtReference);

    auto *buttons = new QDialogButtonBox(this);
    Command1 = buttons->addButton(tr("&Add"), QDialogButtonBox::AcceptRole);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command2 = buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    Command2->setObjectName(QStringLiteral("Command2"));
    connect(Command1, &QPushButton::clicked, this, &frmAddBookmark::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &frmAddBookmark::Command2_Click);

    auto *grid = new QGridLayout(this);
    grid->addWidget(lblName, 0, 0);
    grid->addWidget(txtName, 0, 1);
    grid->addWidget(lblReference, 1, 0);
    grid->addWidget(txtReference, 1, 1);
    grid->addWidget(buttons, 2, 0, 1, 2);
    grid->setColumnMinimumWidth(1, 260);
    txtName->setFocus();
}

void frmAddBookmark::Command1_Click()
{
    // An empty name or reference (or text the file could not give back) keeps the
    // dialog open with the user told why; 3. else the line is appended.
    if (!BookmarkFile(ProgramSettings::instance().programFolder())
             .Add(txtName->text(), txtReference->text()))
        return;
    if (m_reload)
        m_reload();
    // Closed as Cancel closes it, but the caller learns that a bookmark was added.
    txtName->clear();
    txtReference->clear();
    accept();
}

void frmAddBookmark::Command2_Click()
{
    txtName->clear();
    txtReference->clear();
    QDialog::reject();
}

void frmAddBookmark::reject()
{
    // Escape and the window's close button cancel too.
    Command2_Click();
}
