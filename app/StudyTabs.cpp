#include "app/StudyTabs.h"

#include "app/FoundVerseDelegate.h"
#include "app/ParallelView.h"
#include "platform/BusyCursor.h"
#include "platform/MsgBox.h"
#include "platform/RichTextBox.h"
#include "platform/Twips.h"
#include "platform/WinQColor.h"
#include "scripture/CommentaryStore.h"
#include "scripture/NotesStore.h"
#include "scripture/PassageFormatter.h"
#include "settings/ProgramSettings.h"
#include "settings/basSettings.h"

#include <QDir>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <functional>

namespace {

const QString kNotesCaption = QStringLiteral("Notes");
const QString kCommentaryCaption = QStringLiteral("TVC");
// The wording users know, comma splice and all.
const QString kUnsavedNotesPrompt =
    QStringLiteral("You have not saved your notes changes, If you switch tabs now, you will lose "
                   "any changes you have saved\r\n"
                   "Would you like to save your changes so far?");

QString programFolder()
{
    return ProgramSettings::instance().programFolder();
}

} // namespace

StudyTabs::StudyTabs(const clsBible &translation, QLabel *title, QWidget *parent)
    : QObject(parent), m_translation(translation), m_title(title)
{
    SSTab1 = new QTabWidget(parent);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    rtfPassage = new platform::RichTextBox(SSTab1);
    rtfPassage->setObjectName(QStringLiteral("rtfPassage"));
    rtfPassage->setLocked(true);
    SSTab1->addTab(rtfPassage, tr("Passage"));
    SSTab1->addTab(buildNotesPage(SSTab1), kNotesCaption);
    rtfTVC = new platform::RichTextBox(SSTab1);
    rtfTVC->setObjectName(QStringLiteral("rtfTVC"));
    rtfTVC->setLocked(true);
    SSTab1->addTab(rtfTVC, kCommentaryCaption);
    m_parallelPage = new QWidget(SSTab1);
    m_parallelPage->setObjectName(QStringLiteral("parallelTab"));
    (new QVBoxLayout(m_parallelPage))->setContentsMargins(0, 0, 0, 0);
    SSTab1->addTab(m_parallelPage, tr("Parallel"));
    SSTab1->setTabToolTip(1, tr("Your own notes on the chapter"));
    SSTab1->setTabToolTip(2, tr("Commentary on the chapter"));
    SSTab1->setTabToolTip(3, tr("The chapter in several translations side by side"));
    connect(SSTab1, &QTabWidget::currentChanged, this, &StudyTabs::tabChanged);
}

StudyTabs::~StudyTabs() = default;

QWidget *StudyTabs::buildNotesPage(QWidget *parent)
{
    auto *page = new QWidget(parent);
    auto *layout = new QVBoxLayout(page);
    // The views sit 30 twips inside the tab on every side.
    const int inset =
        (30 + platform::TwipsPerPixelX(parent) - 1) / platform::TwipsPerPixelX(parent);
    layout->setContentsMargins(inset, inset, inset, inset);
    layout->setSpacing(2);

    frmNotesCommands = new QFrame(page);
    frmNotesCommands->setObjectName(QStringLiteral("frmNotesCommands"));
    auto *commands = new QHBoxLayout(frmNotesCommands);
    commands->setContentsMargins(0, 0, 0, 0);
    commands->setSpacing(2);
    const auto addButton = [&](const char *name, const QString &caption, const QString &tip,
                               void (StudyTabs::*handler)(),
                               const std::function<void(QFont &)> &look) {
        auto *button = new QToolButton(frmNotesCommands);
        button->setObjectName(QLatin1String(name));
        button->setText(caption);
        button->setToolTip(tip);
        QFont font = button->font();
        look(font);
        button->setFont(font);
        button->setMinimumWidth(28);
        // The button acts on the notes' selection, so it must not take the focus from them.
        button->setFocusPolicy(Qt::NoFocus);
        connect(button, &QToolButton::clicked, this, handler);
        commands->addWidget(button);
    };
    addButton("cmdBold", tr("B"), tr("Bold"), &StudyTabs::toggleBold,
              [](QFont &f) { f.setBold(true); });
    addButton("cmdItalic", tr("I"), tr("Italic"), &StudyTabs::toggleItalic,
              [](QFont &f) { f.setItalic(true); });
    addButton("cmdUnderline", tr("U"), tr("Underline"), &StudyTabs::toggleUnderline,
              [](QFont &f) { f.setUnderline(true); });
    addButton("cmdStrikeThru", tr("S"), tr("Strike Through"), &StudyTabs::toggleStrikeThrough,
              [](QFont &f) { f.setStrikeOut(true); });
    addButton("cmdColor", tr("A"), tr("Change Color"), &StudyTabs::chooseColour, [](QFont &) {});
    commands->addStretch(1);
    cmdSaveNotes = new QPushButton(tr("&Save Notes"), frmNotesCommands);
    cmdSaveNotes->setObjectName(QStringLiteral("cmdSaveNotes"));
    cmdSaveNotes->setToolTip(tr("Save the notes of this chapter"));
    connect(cmdSaveNotes, &QPushButton::clicked, this, &StudyTabs::saveNotes);
    commands->addWidget(cmdSaveNotes);

    rtfNotes = new platform::RichTextBox(page);
    rtfNotes->setObjectName(QStringLiteral("rtfNotes"));
    rtfNotes->setAcceptRichText(true);
    connect(rtfNotes, &QTextEdit::textChanged, this, [this] { m_notesSaved = false; });

    layout->addWidget(frmNotesCommands);
    layout->addWidget(rtfNotes, 1);
    return page;
}

platform::RichTextBox *StudyTabs::shownView() const
{
    // The view of the tab on show, by its caption.
    if (m_parallel && SSTab1->currentWidget() == m_parallelPage)
        return m_parallel->view();
    const QString shown = caption(SSTab1->currentIndex());
    if (shown == kCommentaryCaption)
        return rtfTVC;
    if (shown == kNotesCaption)
        return rtfNotes;
    return rtfPassage;
}

void StudyTabs::showChapter(const Passage &fetched, const QString &title)
{
    rtfPassage->setTextRTF(PassageFormatter::ForView(fetched.text));
    rtfPassage->setSelStart(0);
    m_title->setText(title);
    if (fetched.found()) {
        m_onDisplay = fetched;
        m_onDisplay.text.clear();
        if (m_parallel)
            m_parallel->setPassage(m_onDisplay);
    }
    refresh();
}

void StudyTabs::showOther(const QString &rtf, const QString &title)
{
    // What another window hands over is there to be read.
    showPassageTab();
    rtfPassage->setTextRTF(rtf);
    rtfPassage->setSelStart(0);
    m_title->setText(title);
}

void StudyTabs::showPassageTab()
{
    SSTab1->setCurrentIndex(0);
}

void StudyTabs::setCommentaryAvailable(bool available)
{
    SSTab1->setTabVisible(2, available);
}

void StudyTabs::applyLook(DisplaySettings &display)
{
    ApplyRichTextStyle(rtfPassage, display.passage);
    ApplyRichTextStyle(rtfTVC, display.passage);
    m_passageStyle = display.passage;
    if (m_parallel)
        m_parallel->applyLook(m_passageStyle);
    const bool saved = m_notesSaved;
    ApplyRichTextStyle(rtfNotes, display.passage);
    m_notesSaved = saved;
}

QString StudyTabs::caption(int index) const
{
    return index >= 0 && index < SSTab1->count() ? SSTab1->tabText(index) : QString();
}

void StudyTabs::tabChanged(int index)
{
    const int previousTab = m_shownTab;
    m_shownTab = index;
    // Leaving a tab: its title goes back, and unsaved notes are saved if the user wants them.
    const QString left = caption(previousTab);
    if (left == kNotesCaption) {
        m_title->setText(m_savedTitle);
        if (!m_notesSaved &&
            platform::MsgBox(kUnsavedNotesPrompt, vb::vbYesNo | vb::vbExclamation) == vb::vbYes) {
            saveNotes();
            if (!m_notesSaved) {
                // The notes could not be written: back to them, as they are, so nothing is lost.
                m_keepUnsavedNotes = true;
                QTimer::singleShot(0, this,
                                   [this, previousTab] { SSTab1->setCurrentIndex(previousTab); });
            }
        }
    } else if (left == kCommentaryCaption) {
        m_title->setText(m_savedTitle);
    }

    // Entering a tab.
    const QString entered = caption(index);
    if (entered == kCommentaryCaption)
        enterCommentary(true);
    else if (entered == kNotesCaption)
        enterNotes(true);
    else if (SSTab1->widget(index) == m_parallelPage)
        enterParallel();
    else
        rtfPassage->setFocus();
}

void StudyTabs::enterParallel()
{
    if (!m_parallel) {
        // Given its look and passage before it shows, so that showing it builds the rows once.
        m_parallel = new ParallelView(m_translation, programFolder(), m_parallelPage);
        m_parallel->applyLook(m_passageStyle);
        m_parallel->setPassage(m_onDisplay);
        m_parallelPage->layout()->addWidget(m_parallel);
        m_parallel->show();
        connect(m_parallel, &ParallelView::referenceChosen, this,
                &StudyTabs::parallelReferenceChosen);
    }
    // Once made, it is given every chapter shown (see showChapter) and builds on showing.
    m_parallel->view()->setFocus();
}

void StudyTabs::enterCommentary(bool focus)
{
    // The tab strip repaints before the commentary's book file is read.
    if (!m_commentary)
        m_commentary = std::make_unique<CommentaryStore>(programFolder());
    platform::YieldToEvents();
    if (m_commentary->Changed(m_onDisplay))
        rtfTVC->setText(m_commentary->ViewText(m_translation, m_onDisplay));
    m_savedTitle = m_title->text();
    m_title->setText(QStringLiteral("Commentary For: ") + m_commentary->Standard());
    if (focus)
        rtfTVC->setFocus();
}

void StudyTabs::enterNotes(bool focus)
{
    platform::YieldToEvents();
    if (m_keepUnsavedNotes) {
        m_keepUnsavedNotes = false;
    } else {
        // The notes view now belongs to the chapter on display, whatever is fetched meanwhile.
        m_notesChapter = m_onDisplay;
        const NotesStore notes(programFolder());
        rtfNotes->setTextRTF(m_notesChapter.found()
                                 ? notes.Read(m_notesChapter.testament, m_notesChapter.book,
                                              m_notesChapter.chapterFrom)
                                 : QString());
        m_notesSaved = true;
    }
    m_savedTitle = m_title->text();
    m_title->setText(QStringLiteral("Notes For: ") + m_notesChapter.book + u' ' +
                     QString::number(m_notesChapter.chapterFrom));
    if (focus)
        rtfNotes->setFocus();
    frmNotesCommands->raise();
}

void StudyTabs::saveNotes()
{
    const Passage &chapter = m_notesChapter;
    if (!chapter.found() || chapter.chapterFrom < 1) {
        platform::MsgBox(tr("There is no chapter on display to keep notes for."),
                         vb::vbExclamation);
        return;
    }
    const NotesStore notes(programFolder());
    const QString failure =
        notes.Write(chapter.testament, chapter.book, chapter.chapterFrom, rtfNotes->TextRTF());
    if (!failure.isEmpty()) {
        platform::MsgBox(
            tr("Your notes could not be saved to '%1.dat'.\r\n%2\r\nThe file was left as it was, "
               "and "
               "your notes are still on screen.")
                .arg(QDir::toNativeSeparators(notes.BookPath(chapter.testament, chapter.book)),
                     failure),
            vb::vbExclamation);
        return;
    }
    m_notesSaved = true;
}

bool StudyTabs::askToKeepNotes()
{
    if (caption(SSTab1->currentIndex()) != kNotesCaption || m_notesSaved)
        return true;
    if (platform::MsgBox(kUnsavedNotesPrompt, vb::vbYesNo | vb::vbExclamation) != vb::vbYes) {
        // Dropped: the notes are read again for the chapter that comes next.
        m_notesSaved = true;
        return true;
    }
    saveNotes();
    return m_notesSaved;
}

void StudyTabs::refresh()
{
    // A notes or commentary tab on show follows the new chapter.
    const QString shown = caption(SSTab1->currentIndex());
    if (shown == kNotesCaption)
        enterNotes(false);
    else if (shown == kCommentaryCaption)
        enterCommentary(false);
}

void StudyTabs::toggle(bool (platform::RichTextBox::*get)() const,
                       void (platform::RichTextBox::*set)(bool))
{
    // A selection that is only partly formatted reads as not formatted, and becomes formatted.
    (rtfNotes->*set)(!(rtfNotes->*get)());
    rtfNotes->setFocus();
}

void StudyTabs::toggleBold()
{
    toggle(&platform::RichTextBox::SelBold, &platform::RichTextBox::setSelBold);
}

void StudyTabs::toggleItalic()
{
    toggle(&platform::RichTextBox::SelItalic, &platform::RichTextBox::setSelItalic);
}

void StudyTabs::toggleUnderline()
{
    toggle(&platform::RichTextBox::SelUnderline, &platform::RichTextBox::setSelUnderline);
}

void StudyTabs::toggleStrikeThrough()
{
    toggle(&platform::RichTextBox::SelStrikeThru, &platform::RichTextBox::setSelStrikeThru);
}

void StudyTabs::chooseColour()
{
    // The dialog opens on the selection's colour, or on the notes' own colour when it mixes.
    const QColor current = rtfNotes->SelColor();
    m_noteColors.setColor(platform::QColorToWindowsColor(
        current.isValid() ? current : rtfNotes->palette().text().color()));
    m_noteColors.setRGBInit(true);
    if (m_noteColors.Show(SSTab1->window()))
        rtfNotes->setSelColor(platform::WindowsColorToQColor(m_noteColors.Color()));
    rtfNotes->setFocus();
}

void StudyTabs::markPassage(const MainWindowLink::PassageMarks &find)
{
    // The document's own plain text has one character for each position of the document, so the
    // spans found in it are document positions as they are.
    platform::RichTextBox *view = rtfPassage;
    QTextDocument *document = view->document();
    // Finding and marking cost time for every verse, and each mark costs the view work at every
    // repaint: a list of thousands of verses has its first ones marked, as far as a reader scrolls
    // at first.
    constexpr qsizetype mostMarked = 200000;
    constexpr qsizetype mostMarks = 2000;
    QList<std::pair<int, int>> spans = find(document->toPlainText().left(mostMarked));
    if (spans.size() > mostMarks)
        spans.resize(mostMarks);
    QTextCharFormat look;
    look.setBackground(FoundVerseDelegate::MarkColor());
    look.setForeground(QColor(Qt::black));
    QList<QTextEdit::ExtraSelection> marks;
    marks.reserve(spans.size());
    for (const auto &[start, length] : std::as_const(spans)) {
        QTextEdit::ExtraSelection mark{QTextCursor(document), look};
        mark.cursor.setPosition(start);
        mark.cursor.setPosition(start + length, QTextCursor::KeepAnchor);
        marks.append(mark);
    }
    // The marks lie over the text, not in it: saving, copying and printing never see them, and
    // they go as soon as the view is given other text.
    view->setExtraSelections(marks);
    if (!marks.isEmpty())
        connect(
            view, &QTextEdit::textChanged, view, [view] { view->setExtraSelections({}); },
            Qt::SingleShotConnection);
}
