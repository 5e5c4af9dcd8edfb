#pragma once

#include "library/WordListWindow.h"

class MainWindowLink;

// "Dictionary": every headword of "Dictionary.dat" in a list that follows what is typed, the
// definition of the word looked up and the passages it is found in; a double-clicked passage is
// shown in the main window, and this window stays open. The arrows in the word box move the
// list's selection. It keeps its place in the section "dictionary" of "window.ini".
class frmDictionary : public WordListWindow
{
    Q_OBJECT

public:
    frmDictionary(MainWindowLink &main, QWidget *parent = nullptr);

private slots:
    void lstWords_DblClick();
    void lstReferences_DblClick();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showReferences(const QStringList &references) override;

private:
    void txtWord_KeyDown(int key);

    MainWindowLink &m_main;
    QListWidget *lstReferences = nullptr;
};
