#include "app/MainMenus.h"

#include "scripture/TranslationList.h"

#include <QAction>
#include <QActionGroup>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace {

QAction *add(QMenu *menu, const char *name, const QString &caption, const QKeySequence &keys = {})
{
    QAction *action = menu->addAction(caption);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(keys);
    return action;
}

} // namespace

MainMenus::MainMenus(QMainWindow *window) : QObject(window)
{
    QMenuBar *bar = window->menuBar();
    QMenu *file = bar->addMenu(tr("&File"));
    QMenu *exportMenu = file->addMenu(tr("&Export"));
    mnuFileExportNotepad = add(exportMenu, "mnuFileExportNotepad", tr("to &Notepad"));
    mnuFileSave = add(file, "mnuFileSave", tr("&Save"), QKeySequence::Save);
    mnuFilePrint = add(file, "mnuFilePrint", tr("&Print current passage"), QKeySequence::Print);
    file->addSeparator();
    mnuFileExit = add(file, "mnuFileExit", tr("E&xit"));

    QMenu *edit = bar->addMenu(tr("&Edit"));
    mnuEditSelectAll = add(edit, "mnuEditSelectAll", tr("Select &All"), QKeySequence::SelectAll);
    mnuEditCopy = add(edit, "mnuEditCopy", tr("&Copy Selection"), QKeySequence::Copy);
    mnuEditCopyPassage = add(edit, "mnuEditCopyPassage", tr("Copy &Passage"));
    mnuEditCopyBookName = add(edit, "mnuEditCopyBookName", tr("Copy &Book Name"));
    edit->addSeparator();
    mnuEditFind = add(edit, "mnuEditFind", tr("&Find"), QKeySequence::Find);
    edit->addSeparator();
    mnuEditOptions =
        add(edit, "mnuEditOptions", tr("&Options..."), QKeySequence(QStringLiteral("Ctrl+,")));

    mnuBookmarks = bar->addMenu(tr("&Bookmarks"));
    mnuBookmarks->setObjectName(QStringLiteral("mnuBookmarks"));
    mnuBookmarksAdd = add(mnuBookmarks, "mnuBookmarksAdd", tr("Add Passage to bookmarks"),
                          QKeySequence(QStringLiteral("Ctrl+D")));
    mnuBookmarksOrganize = add(mnuBookmarks, "mnuBookmarksOrganize", tr("&Organize Bookmarks"),
                               QKeySequence(QStringLiteral("Ctrl+B")));
    mnuBookmarks->addSeparator();

    mnuTranslations = bar->addMenu(tr("&Translations"));
    mnuTranslations->setObjectName(QStringLiteral("mnuTranslations"));

    // Alt+R belongs to the reference box, which a reader reaches for far more often.
    QMenu *references = bar->addMenu(tr("Refere&nces"));
    mnuReferencesDictionary = add(references, "mnuReferencesDictionary", tr("&Dictionary"));
    mnuReferencesStrong = add(references, "mnuReferencesStrong", tr("&Strong's Lexicon"));
    mnuReferencesConcordance =
        add(references, "mnuReferencesConcordance", tr("Strong's &Concordance"));
    references->addSeparator();
    mnuReferencesNames = add(references, "mnuReferencesNames", tr("Bible &Names"));
    mnuReferencesTopics = add(references, "mnuReferencesTopics", tr("Bible &Topics"));
    mnuReferencesStories = add(references, "mnuReferencesStories", tr("Famous Bible St&ories"));
    references->addSeparator();
    mnuReferencesParables =
        add(references, "mnuReferencesParables", tr("Parables of &Jesus Christ"));
    mnuReferencesMiracles =
        add(references, "mnuReferencesMiracles", tr("&Miracles of Jesus Christ"));
    mnuReferencesProphecies =
        add(references, "mnuReferencesProphecies", tr("&Prophecies and Fulfilment"));
    references->addSeparator();
    mnuReferencesUnits = add(references, "mnuReferencesUnits", tr("&Units Table"));
    mnuReferencesVerseOfDay = add(references, "mnuReferencesVerseOfDay", tr("&Verse of the Day"));

    // "&Tools" would share its key with "&Translations".
    QMenu *tools = bar->addMenu(tr("T&ools"));
    mnuToolsSearch = add(tools, "mnuToolsSearch", tr("Bible &Search"));

    QMenu *help = bar->addMenu(tr("&Help"));
    mnuHelpContents = add(help, "mnuHelpContents", tr("&Contents"), QKeySequence::HelpContents);
    mnuHelpWebSite = add(help, "mnuHelpWebSite", tr("Quillstone on the &Web"));
    mnuHelpMailingList = add(help, "mnuHelpMailingList", tr("&Mailing List"));
    help->addSeparator();
    mnuHelpAbout = add(help, "mnuHelpAbout", tr("&About Quillstone"));

    // The passage's pop-up menu is a menu of its own, never shown in the menu bar.
    mnuRightClick = new QMenu(window);
    mnuRightClick->setObjectName(QStringLiteral("mnuRightClick"));
    mnuRightclickWord = mnuRightClick->addAction(QString());
    mnuRightclickWord->setObjectName(QStringLiteral("mnuRightclickWord"));
    mnuRightclickWord->setEnabled(false);
    mnuRightClick->addSeparator();
    mnuRightclickCopy = add(mnuRightClick, "mnuRightclickCopy", tr("&Copy"));
    mnuRightclickSearch = add(mnuRightClick, "mnuRightclickSearch", tr("&Search the Bible"));
    mnuRightclickDictionary =
        add(mnuRightClick, "mnuRightclickDictionary", tr("Look up in &Dictionary"));
    mnuRichtclickBiblenames =
        add(mnuRightClick, "mnuRichtclickBiblenames", tr("Look up in Bible &Names"));
    mnuRightclickStrongLexicon =
        add(mnuRightClick, "mnuRightclickStrongLexicon", tr("Strong's Lexicon Entry?"));
    mnuRightClickLookupReference =
        add(mnuRightClick, "mnuRightClickLookupReference", tr("&Look up Reference"));
}

void MainMenus::setBookmarks(const QStringList &names)
{
    qDeleteAll(m_bookmarkEntries);
    m_bookmarkEntries.clear();
    m_bookmarkEntries.reserve(names.size());
    for (qsizetype i = 0; i < names.size(); ++i) {
        // An "&" in a name is shown as it is, not taken for a mnemonic.
        auto *entry =
            new QAction(QString(names.at(i)).replace(u'&', QStringLiteral("&&")), mnuBookmarks);
        entry->setObjectName(QStringLiteral("mnuBookmarksBookmarks%1").arg(i + 1));
        connect(entry, &QAction::triggered, this,
                [this, index = int(i) + 1] { emit bookmarkChosen(index); });
        m_bookmarkEntries.append(entry);
    }
    // Added in one go, so that thousands of bookmarks do not lay the menu out thousands of times.
    mnuBookmarks->addActions(m_bookmarkEntries);
}

void MainMenus::setTranslations(const QList<InstalledTranslation> &translations,
                                const QString &open)
{
    mnuTranslations->clear();
    auto *group = new QActionGroup(mnuTranslations);
    for (const InstalledTranslation &t : translations) {
        QAction *entry = mnuTranslations->addAction(t.displayName);
        entry->setCheckable(true);
        entry->setChecked(t.folder.compare(open, Qt::CaseInsensitive) == 0);
        entry->setData(t.folder);
        group->addAction(entry);
        connect(entry, &QAction::triggered, this,
                [this, folder = t.folder] { emit translationChosen(folder); });
    }
}

void MainMenus::offer(bool strong, bool dictionary)
{
    mnuReferencesStrong->setEnabled(strong);
    mnuRightclickStrongLexicon->setEnabled(strong);
    mnuReferencesDictionary->setVisible(dictionary);
    mnuRightclickDictionary->setVisible(dictionary);
}

void MainMenus::popUp(const QString &word, const QPoint &global)
{
    // The caption shows a long word by its two ends.
    const QString shown =
        word.size() > 40 ? word.left(20) + QStringLiteral("...") + word.right(20) : word;
    mnuRightclickWord->setText(u'<' + QString(shown).replace(u'&', QStringLiteral("&&")) + u'>');
    mnuRightClick->popup(global);
}
