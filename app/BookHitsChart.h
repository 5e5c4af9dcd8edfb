#pragma once

#include <QList>
#include <QStringList>
#include <QWidget>

// A bar chart of how many verses a search found in each book: one bar a book in book order, the
// Old Testament and the New side by side under their names, the book names along the axis. A click
// on a bar with hits says which book was clicked.
class BookHitsChart : public QWidget
{
    Q_OBJECT

public:
    explicit BookHitsChart(QWidget *parent = nullptr);

    // The books by name in book order, how many of them are in the Old Testament, and the count of
    // each (entry b - 1 for book b).
    void setCounts(const QStringList &books, int oldTestament, const QList<int> &counts);
    // The book shown as chosen (its bar stands out); 0 for none.
    void setChosenBook(int book);
    int chosenBook() const { return m_chosen; }

    // Where the bar of a book is drawn; empty when it has none.
    QRect barRect(int book) const;
    // The book under a point, 0 when there is none.
    int bookAt(const QPoint &point) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void bookClicked(int book);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    bool event(QEvent *event) override;

private:
    struct Geometry
    {
        QRect plot;  // where the bars stand
        double slot; // the width given to each book
        int gap;     // the space between the testaments
    };
    Geometry geometry() const;
    int slotLeft(const Geometry &g, int book) const;
    int labelHeight() const;

    QStringList m_books;
    int m_oldTestament = 0;
    QList<int> m_counts;
    int m_most = 0;
    int m_chosen = 0;
};
