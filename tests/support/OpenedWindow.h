#pragma once

// A window opened as the program opens it, closed and gone when the test ends even when a check
// failed, with what tests do with its controls: type, click, read.
#include "Controls.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QStringList>
#include <QTest>

namespace support {

template <typename Window> class OpenedWindow
{
public:
    // A window made on the main window as the program makes it.
    template <typename Main>
    explicit OpenedWindow(Main &main) : OpenedWindow(new Window(main, nullptr))
    {
    }
    // A window the test made and prepared itself.
    explicit OpenedWindow(Window *window) : m_window(window)
    {
        m_window->show();
        (void)QTest::qWaitForWindowExposed(m_window);
    }
    ~OpenedWindow() { close(); }
    OpenedWindow(const OpenedWindow &) = delete;
    OpenedWindow &operator=(const OpenedWindow &) = delete;

    void close()
    {
        if (m_window) {
            m_window->close();
            delete m_window;
        }
    }
    Window *get() const { return m_window; }
    Window *operator->() const { return m_window; }

    // A control by its object name; a test that asks for one that is not there stops at once.
    template <typename T> T *control(const char *name) const
    {
        return support::control<T>(m_window.data(), name);
    }
    QStringList entries(const char *name) const
    {
        QStringList list;
        auto *box = control<QListWidget>(name);
        for (int i = 0; i < box->count(); ++i)
            list << box->item(i)->text();
        return list;
    }
    // The row chosen (selected) in a list, or -1.
    int row(const char *name) const
    {
        auto *list = control<QListWidget>(name);
        const QList<QListWidgetItem *> chosen = list->selectedItems();
        return chosen.isEmpty() ? -1 : list->row(chosen.first());
    }
    // The text of a box or a label.
    QString text(const char *name) const
    {
        if (auto *box = m_window->template findChild<QLineEdit *>(QLatin1String(name)))
            return box->text();
        if (auto *label = m_window->template findChild<QLabel *>(QLatin1String(name)))
            return label->text();
        return control<QPlainTextEdit>(name)->toPlainText();
    }

    // Types into a box in place of what it held, and Enter when asked.
    void type(const char *box, const QString &text, bool enter = false) const
    {
        auto *edit = control<QLineEdit>(box);
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, text);
        if (enter)
            QTest::keyClick(edit, Qt::Key_Return);
    }
    void click(const char *button) const
    {
        QTest::mouseClick(control<QPushButton>(button), Qt::LeftButton);
    }
    void clickRow(const char *list, int row) const
    {
        auto *box = control<QListWidget>(list);
        box->scrollToItem(box->item(row));
        QTest::mouseClick(box->viewport(), Qt::LeftButton, {},
                          box->visualItemRect(box->item(row)).center());
    }
    // A real double-click: a click, then the second press that the system reports as double.
    void doubleClickRow(const char *list, int row) const
    {
        clickRow(list, row);
        auto *box = control<QListWidget>(list);
        QTest::mouseDClick(box->viewport(), Qt::LeftButton, {},
                           box->visualItemRect(box->item(row)).center());
    }

private:
    QPointer<Window> m_window;
};

} // namespace support
