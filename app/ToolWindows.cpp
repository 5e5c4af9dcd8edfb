#include "app/ToolWindows.h"

#include "app/frmFind.h"
#include "app/frmSearch.h"
#include "library/DataFiles.h"
#include "library/frmBibleNames.h"
#include "library/frmDictionary.h"
#include "library/frmParables.h"
#include "library/frmProphecies.h"
#include "library/frmStories.h"
#include "library/frmStrongLexicon.h"
#include "library/frmTopics.h"
#include "library/frmVerseOfDay.h"

ToolWindows::ToolWindows(MainWindowLink &main, QWidget *window) : m_main(main), m_window(window) {}

void ToolWindows::dictionary(const QString &word)
{
    frmDictionary *window =
        m_dictionary.open([this] { return new frmDictionary(m_main, m_window); });
    if (window && !word.isEmpty())
        window->FindWord(word);
}

void ToolWindows::bibleNames(const QString &word)
{
    frmBibleNames *window =
        m_bibleNames.open([this] { return new frmBibleNames(m_main, m_window); });
    if (window && !word.isEmpty())
        window->FindWord(word);
}

void ToolWindows::strongLexicon(const QString &number)
{
    frmStrongLexicon *window =
        m_strongLexicon.open([this] { return new frmStrongLexicon(m_main, m_window); });
    if (window && !number.isEmpty())
        window->ShowNumber(number);
}

void ToolWindows::topics()
{
    m_topics.open([this] { return new frmTopics(m_main, m_window); });
}

void ToolWindows::stories()
{
    m_stories.open([this] { return new frmStories(m_main, m_window); });
}

void ToolWindows::parables()
{
    gospelParallels(m_parables, DataFiles::File::Parables, frmParables::ParablesTag);
}

void ToolWindows::miracles()
{
    gospelParallels(m_miracles, DataFiles::File::Miracles, frmParables::MiraclesTag);
}

void ToolWindows::gospelParallels(ToolWindowSlot<frmParables> &slot, DataFiles::File file,
                                  const QString &tag)
{
    slot.open([this, file, &tag] {
        auto *window = new frmParables(m_main, m_window);
        window->SetDataFile(DataFiles::Path(file));
        window->SetTag(tag);
        return window;
    });
}

void ToolWindows::prophecies()
{
    m_prophecies.open([this] { return new frmProphecies(m_main, m_window); });
}

void ToolWindows::search()
{
    m_search.open([this] { return new frmSearch(m_main, m_window); });
}

void ToolWindows::find(const std::function<platform::RichTextBox *()> &view)
{
    // One dialog, beside the window, for as many presses of Find as the reader wants.
    m_find.open([this, view] {
        auto *find = new frmFind(view, m_window);
        find->setAttribute(Qt::WA_DeleteOnClose);
        return find;
    });
}

void ToolWindows::verseOfDay(int show)
{
    const bool open = m_verseOfDay.window();
    frmVerseOfDay *window =
        m_verseOfDay.open([this, show] { return new frmVerseOfDay(m_main, show, m_window); });
    if (open && window)
        window->ShowVerse();
}
