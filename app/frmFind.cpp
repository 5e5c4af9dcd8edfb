#include "app/frmFind.h"

#include "platform/MsgBox.h"
#include "platform/RichTextBox.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

frmFind::frmFind(std::function<platform::RichTextBox *()> target, QWidget *parent)
    : QDialog(parent), m_target(std::move(target))
{
    setObjectName(QStringLiteral("frmFind"));
    setWindowTitle(tr("Find within results"));

    auto *label = new QLabel(tr("&Search for:"));
    txtSearch = new QLineEdit;
    txtSearch->setObjectName(QStringLiteral("txtSearch"));
    txtSearch->setToolTip(tr("Enter word to search for"));
    label->setBuddy(txtSearch);
    chkWordSearch = new QCheckBox(tr("&Word Search"));
    chkWordSearch->setObjectName(QStringLiteral("chkWordSearch"));
    cmdFind = new QPushButton(tr("&Find"));
    cmdFind->setObjectName(QStringLiteral("cmdFind"));
    cmdFind->setToolTip(tr("Click here to start search"));
    cmdFind->setDefault(true);
    cmdCancel = new QPushButton(tr("Cancel"));
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));

    auto *layout = new QGridLayout(this);
    layout->addWidget(label, 0, 0);
    layout->addWidget(txtSearch, 0, 1);
    layout->addWidget(cmdFind, 0, 2);
    layout->addWidget(chkWordSearch, 1, 1);
    layout->addWidget(cmdCancel, 1, 2);
    layout->setColumnStretch(1, 1);
    resize(420, sizeHint().height());

    connect(cmdFind, &QPushButton::clicked, this, &frmFind::cmdFind_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmFind::cmdCancel_Click);
}

void frmFind::cmdFind_Click()
{
    // 1. The view on show.
    platform::RichTextBox *target = m_target();
    if (!target)
        return;
    // 2. Whole words only demand a blank before the word; nothing is asked of what follows.
    const QString term =
        (chkWordSearch->isChecked() ? QStringLiteral(" ") : QString()) + txtSearch->text();
    // 3. The search goes on from the end of the selection.
    target->setSelStart(target->SelStart() + target->SelLength());
    // 4. Counted from 1, so the search takes in the character before the caret.
    const int start = target->SelStart() == 0 ? 1 : target->SelStart();
    // 5. Capitals and small letters alike.
    const qsizetype found = target->Text().indexOf(term, start - 1, Qt::CaseInsensitive);
    if (found < 0) {
        // 6. From the top at the next press.
        platform::MsgBox(tr("No (more) results were found"));
        target->setSelStart(1);
        return;
    }
    // 7. The occurrence, its leading blank included.
    target->setSelStart(int(found));
    target->setSelLength(int(term.size()));
    target->ensureCursorVisible();
}

void frmFind::cmdCancel_Click()
{
    close();
}
