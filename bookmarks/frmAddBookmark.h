#pragma once

#include <QDialog>
#include <QString>
#include <functional>

class QLineEdit;
class QPushButton;

// "Add Bookmark": a name for the Bookmarks menu and the reference it shows. Accepting appends the
// bookmark to "bookmarks.dat", runs the main window's reload and closes; Cancel (and Escape, and
// closing the window) empties both boxes and closes. The dialog is modal.
class frmAddBookmark : public QDialog
{
    Q_OBJECT

public:
    // reference: the first text of the reference box (the main window's title label);
    // reload: the main window's LoadBookmarks, run after the bookmark has been added.
    frmAddBookmark(const QString &reference, std::function<void()> reload,
                   QWidget *parent = nullptr);

public slots:
    void reject() override;

private slots:
    void Command1_Click();
    void Command2_Click();

private:
    std::function<void()> m_reload;

    QLineEdit *txtName = nullptr;
    QLineEdit *txtReference = nullptr;
    QPushButton *Command1 = nullptr;
    QPushButton *Command2 = nullptr;
};
