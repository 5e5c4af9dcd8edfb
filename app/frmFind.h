#pragma once

#include <QDialog>
#include <functional>

class QCheckBox;
class QLineEdit;
class QPushButton;
namespace platform {
class RichTextBox;
}

// "Find within results": each press of Find selects the next occurrence of a word in the view the
// main window shows, starting from the view's own selection, so the reader can step through a
// long list of search results. The dialog keeps nothing of its own between presses.
class frmFind : public QDialog
{
    Q_OBJECT

public:
    // target gives the view to search at each press: the one on show at that moment.
    frmFind(std::function<platform::RichTextBox *()> target, QWidget *parent = nullptr);

public slots:
    void cmdFind_Click();
    void cmdCancel_Click();

private:
    std::function<platform::RichTextBox *()> m_target;
    QLineEdit *txtSearch = nullptr;
    QCheckBox *chkWordSearch = nullptr;
    QPushButton *cmdFind = nullptr;
    QPushButton *cmdCancel = nullptr;
};
