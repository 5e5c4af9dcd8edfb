#pragma once

#include "scripture/ParallelRows.h"
#include "scripture/TranslationList.h"
#include "scripture/clsBible.h"
#include "settings/SettingsRecords.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <memory>

class QComboBox;
class QTextTable;
namespace platform {
class RichTextBox;
}

// The "Parallel" tab: the passage on display in two to four translations side by side, one row
// a verse, as one table in one rich-text view (so the columns scroll together, and copy, print
// and find act on all of them). The translations are chosen in drop-down lists above it and kept
// in "window.ini". A click on a cell's reference asks the main window to open that reference in
// that cell's translation.
class ParallelView : public QWidget
{
    Q_OBJECT

public:
    // `main` is the store of the main window's translation, whose numbering the passages given
    // are in; `programFolder` is where the translations are installed.
    ParallelView(const clsBible &main, const QString &programFolder, QWidget *parent);
    ~ParallelView() override;

    platform::RichTextBox *view() const { return m_view; }
    // The folder names of the translations in the columns, in order.
    QStringList chosen() const;

    // The passage shown: the main window's chapter on display, in its own numbering. The table
    // is built at once when the view is on show, else the next time it is shown.
    void setPassage(const Passage &onDisplay);
    void applyLook(const TextStyle &passageStyle);

signals:
    // A click on a cell's reference: its translation's folder and its reference there.
    void referenceChosen(const QString &folder, const QString &reference);

protected:
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fillChoosers();
    void chooserChanged();
    void rebuild();
    // The cell's reference under a point of the view's viewport; -1 as translation when none.
    std::pair<int, qsizetype> cellAt(const QPoint &point) const;
    const clsBible *translation(const QString &folder);

    const clsBible &m_main;
    QString m_programFolder;
    QList<QComboBox *> m_choosers;
    platform::RichTextBox *m_view = nullptr;
    TextStyle m_style;
    Passage m_passage;
    bool m_stale = true;
    bool m_filling = false;
    QStringList m_columns; // the folders of the table on show
    QList<ParallelRow> m_rows;
    // The table of each row in the view (one table a row), to know a clicked cell's row.
    QHash<const QTextTable *, qsizetype> m_tableRows;
    QHash<QString, std::shared_ptr<clsBible>> m_open;
};
