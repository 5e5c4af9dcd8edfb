#pragma once

#include "library/DataFiles.h"
#include "library/ToolWindowSlot.h"

#include <QString>

#include <functional>

class MainWindowLink;
class QWidget;
class frmBibleNames;
class frmDictionary;
class frmFind;
class frmParables;
class frmProphecies;
class frmSearch;
class frmStories;
class frmStrongLexicon;
class frmTopics;
class frmVerseOfDay;
namespace platform {
class RichTextBox;
}

// The main window's tool windows: each made on its first request as a window of its own over the
// main window, brought forward on the next, and made afresh once it was closed.
class ToolWindows
{
public:
    ToolWindows(MainWindowLink &main, QWidget *window);

    // The word, when given, is looked up at once.
    void dictionary(const QString &word = QString());
    void bibleNames(const QString &word = QString());
    void strongLexicon(const QString &number = QString());
    void topics();
    void stories();
    void parables();
    void miracles();
    void prophecies();
    void search();
    // Find acts on whatever view the callback names when asked.
    void find(const std::function<platform::RichTextBox *()> &view);
    // The verse of the day, its check box set from the saved "show"; a window already open shows
    // its verse again, from the translation now open.
    void verseOfDay(int show);

private:
    // The parables or the miracles: one window of each, told apart by its tag.
    void gospelParallels(ToolWindowSlot<frmParables> &slot, DataFiles::File file,
                         const QString &tag);

    MainWindowLink &m_main;
    QWidget *m_window;
    ToolWindowSlot<frmDictionary> m_dictionary;
    ToolWindowSlot<frmBibleNames> m_bibleNames;
    ToolWindowSlot<frmStrongLexicon> m_strongLexicon;
    ToolWindowSlot<frmTopics> m_topics;
    ToolWindowSlot<frmStories> m_stories;
    ToolWindowSlot<frmParables> m_parables;
    ToolWindowSlot<frmParables> m_miracles;
    ToolWindowSlot<frmProphecies> m_prophecies;
    ToolWindowSlot<frmSearch> m_search;
    ToolWindowSlot<frmFind> m_find;
    ToolWindowSlot<frmVerseOfDay> m_verseOfDay;
};
