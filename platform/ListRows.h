#pragma once

#include <QFont>
#include <QListWidget>

namespace platform {

// The row the reader chose in a list, or -1. A list that takes the focus marks its first row as
// current without choosing it, so the windows act on the list's selection, which only the
// reader's click or keys change, and read the chosen row here: while the selection changes, the
// current row is still the old one.
inline int ChosenRow(const QListWidget *list)
{
    const QList<QListWidgetItem *> chosen = list->selectedItems();
    return chosen.isEmpty() ? -1 : list->row(chosen.first());
}

// The word boxes and definitions of the word windows are set in Verdana, whatever the look.
inline void UseVerdana(QWidget *control)
{
    QFont font = control->font();
    font.setFamily(QStringLiteral("Verdana"));
    control->setFont(font);
}

} // namespace platform
