#pragma once

#include "platform/clsCommonColorDialog.h"
#include "scripture/clsBible.h"
#include "settings/SettingsRecords.h"

#include <QObject>
#include <QString>

#include <memory>

class CommentaryStore;
class ParallelView;
class QFrame;
class QLabel;
class QPushButton;
class QTabWidget;
class QWidget;
struct DisplaySettings;
namespace platform {
class RichTextBox;
}

// The reading area: the passage, the reader's own notes on the chapter on display and the
// commentary on it, each on a tab of its own. It keeps the chapter on display (set only by the
// main window's own fetches) and the chapter the notes view was loaded for, so notes are always
// saved where they were written, whatever the other windows fetch meanwhile. Leaving unsaved
// notes asks first; the notes and commentary tabs put their own title over the passage's.
class StudyTabs : public QObject
{
    Q_OBJECT

public:
    StudyTabs(const clsBible &translation, QLabel *title, QWidget *parent);
    ~StudyTabs() override;

    QTabWidget *tabs() const { return SSTab1; }
    platform::RichTextBox *passageView() const { return rtfPassage; }
    // The view of the tab on show.
    platform::RichTextBox *shownView() const;

    // A passage the main window fetched itself, shown under a title on the passage tab (or
    // under the notes and commentary that follow it); one of a known book becomes the chapter on
    // display.
    void showChapter(const Passage &fetched, const QString &title);
    // Rich text handed over by another window (a topic, a story, search results): shown on the
    // passage tab, brought forward. The chapter on display stays what it was.
    void showOther(const QString &rtf, const QString &title);
    const Passage &chapterOnDisplay() const { return m_onDisplay; }
    void showPassageTab();

    // Before the chapter on display changes: unsaved notes are saved or dropped, as the user
    // says. False when they were to be saved and could not be: the change must not happen.
    bool askToKeepNotes();
    void setCommentaryAvailable(bool available);
    // The passage style of the options on the three views; a new look is no edit of the notes.
    void applyLook(DisplaySettings &display);
    // The side-by-side view, once the "Parallel" tab has been shown; nullptr before.
    ParallelView *parallelView() const { return m_parallel; }

signals:
    // A reference clicked in the side-by-side view: the translation folder and the reference.
    void parallelReferenceChosen(const QString &folder, const QString &reference);

private slots:
    void tabChanged(int index);
    void saveNotes();
    void toggleBold();
    void toggleItalic();
    void toggleUnderline();
    void toggleStrikeThrough();
    void chooseColour();

private:
    QWidget *buildNotesPage(QWidget *parent);
    QString caption(int index) const;
    void enterNotes(bool focus);
    void enterCommentary(bool focus);
    void enterParallel();
    void refresh();
    void toggle(bool (platform::RichTextBox::*get)() const,
                void (platform::RichTextBox::*set)(bool));

    const clsBible &m_translation;
    QLabel *m_title;
    Passage m_onDisplay;
    Passage m_notesChapter;
    // Opened on the first visit to the commentary, which reads its book maps.
    std::unique_ptr<CommentaryStore> m_commentary;
    bool m_notesSaved = false;
    bool m_keepUnsavedNotes = false;
    QString m_savedTitle;
    int m_shownTab = 0;
    clsCommonColorDialog m_noteColors;

    QTabWidget *SSTab1 = nullptr;
    platform::RichTextBox *rtfPassage = nullptr;
    platform::RichTextBox *rtfNotes = nullptr;
    platform::RichTextBox *rtfTVC = nullptr;
    QFrame *frmNotesCommands = nullptr;
    QPushButton *cmdSaveNotes = nullptr;
    // The "Parallel" tab's page; its view is made the first time the tab is shown.
    QWidget *m_parallelPage = nullptr;
    ParallelView *m_parallel = nullptr;
    TextStyle m_passageStyle;
};
