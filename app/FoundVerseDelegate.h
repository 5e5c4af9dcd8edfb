#pragma once

#include "scripture/FoundVerses.h"

#include <QColor>
#include <QStyledItemDelegate>

// Draws a row of the Search window's results as its reference over the verse's text, with what
// the search found marked. Row i shows verse i of the list it is given.
class FoundVerseDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    // The colour behind what was found.
    static QColor MarkColor() { return QColor(255, 214, 64); }

    explicit FoundVerseDelegate(QObject *parent = nullptr);

    // The verses the rows point into, how to find what to mark in a verse's text, and whether the
    // rows name their translation. The list must outlive the delegate's use of it.
    void setVerses(const QList<FoundVerse> *verses, SpanFinder finder, bool showTranslation);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    const QList<FoundVerse> *m_verses = nullptr;
    SpanFinder m_finder;
    bool m_showTranslation = false;
};
