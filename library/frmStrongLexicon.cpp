#include "library/frmStrongLexicon.h"

#include "library/DataFiles.h"
#include "library/ListSearch.h"
#include "library/MainWindowLink.h"
#include "platform/MsgBox.h"
#include "platform/VbError.h"
#include "scripture/basStrings.h"
#include "settings/ProgramSettings.h"
#include "settings/WindowPlacement.h"
#include "settings/WindowSettings.h"
#include "settings/basSettings.h"

#include "platform/ListRows.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHideEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTextDocument>
#include <QTextOption>
#include <QVBoxLayout>

#include <functional>

namespace {

const QString kSection = QStringLiteral("strong");

// A definition box that reports the word a double-click selected.
class DefinitionBox : public QPlainTextEdit
{
public:
    using QPlainTextEdit::QPlainTextEdit;
    std::function<void(const QString &)> wordDoubleClicked;

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override
    {
        QPlainTextEdit::mouseDoubleClickEvent(event);
        if (wordDoubleClicked)
            wordDoubleClicked(textCursor().selectedText());
    }
};

} // namespace

frmStrongLexicon::frmStrongLexicon(MainWindowLink &main, QWidget *parent)
    : ToolWindow(QStringLiteral("frmStrongLexicon"), tr("Strong's Lexicon"), parent), m_main(main),
      m_lexicon(ProgramSettings::instance().programFolder())
{

    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    SSTab1->setToolTip(tr("Choose the appropriate language"));
    SSTab1->addTab(buildTab(m_hebrew, "txtHebrewWord", "cmdFind", "lstHebrewWords",
                            "txtHebrewDefinition", "cmdFindAllHeb"),
                   tr("Hebrew"));
    SSTab1->addTab(buildTab(m_greek, "txtGreekWord", "cmdFindGreek", "lstGreekWords",
                            "txtGreekDefinition", "cmdFindAllGreek"),
                   tr("Greek"));
    m_hebrew.find->setToolTip(tr("Run search"));
    chkHighlightWord = new QCheckBox(tr("Highlight word in the list as I am typing"), this);
    chkHighlightWord->setObjectName(QStringLiteral("chkHighlightWord"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(SSTab1, 1);
    layout->addWidget(chkHighlightWord);
    resize(680, 460);

    connect(SSTab1, &QTabWidget::currentChanged, this, &frmStrongLexicon::SSTab1_Click);
    connect(m_hebrew.find, &QPushButton::clicked, this, &frmStrongLexicon::cmdFind_Click);
    connect(m_greek.find, &QPushButton::clicked, this, &frmStrongLexicon::cmdFindGreek_Click);
    connect(m_hebrew.list, &QListWidget::itemDoubleClicked, this,
            &frmStrongLexicon::lstHebrewWords_DblClick);
    connect(m_greek.list, &QListWidget::itemDoubleClicked, this,
            &frmStrongLexicon::lstGreekWords_DblClick);
    // Only typing moves the selection: the words that showing an entry writes into the box
    // leave the entry shown selected.
    connect(m_hebrew.word, &QLineEdit::textEdited, this, &frmStrongLexicon::txtHebrewWord_Change);
    connect(m_greek.word, &QLineEdit::textEdited, this, &frmStrongLexicon::txtGreekWord_Change);
    connect(m_hebrew.findAll, &QPushButton::clicked, this, &frmStrongLexicon::cmdFindAllHeb_Click);
    connect(m_greek.findAll, &QPushButton::clicked, this, &frmStrongLexicon::cmdFindAllGreek_Click);
    // Enter in a word box runs that tab's Find.
    connect(m_hebrew.word, &QLineEdit::returnPressed, m_hebrew.find, &QPushButton::click);
    connect(m_greek.word, &QLineEdit::returnPressed, m_greek.find, &QPushButton::click);
    static_cast<DefinitionBox *>(m_hebrew.definition)->wordDoubleClicked =
        [this](const QString &selected) { txtHebrewDefinition_DblClick(selected); };

    // Form_Load: the user's look; the saved tab (always), place and check box; then the current
    // tab's list, so a window that opens on Greek never reads the Hebrew list.
    for (Tab *each : {&m_hebrew, &m_greek}) {
        ApplyStyle(each->list, look().navigation);
        ApplyStyle(each->definition, look().passage);
    }
    m_placement = keepPlace(kSection, WindowPlacement::Position);
    m_placement->addTab(SSTab1);
    m_placement->restore();
    chkHighlightWord->setChecked(WindowSettings::Get(WindowSettings::LexiconHighlight));
    SSTab1_Click();
}

QWidget *frmStrongLexicon::buildTab(Tab &tab, const char *word, const char *find, const char *list,
                                    const char *definition, const char *findAll)
{
    auto *page = new QWidget;
    tab.word = new QLineEdit(page);
    tab.word->setObjectName(QLatin1String(word));
    platform::UseVerdana(tab.word);
    auto *label = new QLabel(tr("Enter the word or its strong's number below:"), page);
    label->setBuddy(tab.word);
    tab.find = new QPushButton(tr("Find"), page);
    tab.find->setObjectName(QLatin1String(find));
    tab.list = new QListWidget(page);
    tab.list->setObjectName(QLatin1String(list));
    tab.list->setToolTip(tr("Double click a word from the list to see its information"));
    tab.list->setUniformItemSizes(true);
    tab.definition = new DefinitionBox(page);
    tab.definition->setObjectName(QLatin1String(definition));
    tab.definition->setToolTip(tr("Search results"));
    tab.definition->setReadOnly(true);
    platform::UseVerdana(tab.definition);
    // The line starts with a number and the Hebrew word: left to right, or the Hebrew would turn
    // the whole paragraph round.
    QTextOption direction = tab.definition->document()->defaultTextOption();
    direction.setTextDirection(Qt::LeftToRight);
    tab.definition->document()->setDefaultTextOption(direction);
    tab.findAll = new QPushButton(tr("Find All Occurrences"), page);
    tab.findAll->setObjectName(QLatin1String(findAll));

    auto *layout = new QGridLayout(page);
    layout->addWidget(label, 0, 0, 1, 2);
    layout->addWidget(tab.word, 1, 0);
    layout->addWidget(tab.find, 1, 1);
    layout->addWidget(tab.list, 2, 0, 2, 2);
    layout->addWidget(tab.definition, 1, 2, 2, 1);
    layout->addWidget(tab.findAll, 3, 2, Qt::AlignRight);
    layout->setColumnStretch(0, 2);
    layout->setColumnStretch(2, 5);
    layout->setRowStretch(2, 1);
    return page;
}

void frmStrongLexicon::ShowNumber(const QString &strongNumber)
{
    const StrongsLexicon::Typed typed = StrongsLexicon::FromNumber(strongNumber);
    SSTab1->setCurrentIndex(int(typed.language));
    tab(typed.language).word->setText(typed.text);
    find(typed.language);
}

int frmStrongLexicon::selectedRow(Language language)
{
    return platform::ChosenRow(tab(language).list);
}

void frmStrongLexicon::SSTab1_Click()
{
    fillList(SSTab1->currentIndex() == 0 ? Language::Hebrew : Language::Greek);
}

void frmStrongLexicon::fillList(Language language)
{
    // A list, once filled, stays filled while the window lives; a missing index is said once.
    if (tab(language).list->count() > 0)
        return;
    const bool firstRead = !m_lexicon.IndexRead(language);
    const QStringList &entries = m_lexicon.Index(language);
    if (firstRead && !m_lexicon.IndexReadable(language))
        reportMissing(m_lexicon.IndexPath(language));
    tab(language).list->addItems(entries);
}

void frmStrongLexicon::showEntry(Language language)
{
    Tab &shown = tab(language);
    const int number = selectedRow(language) + 1;
    if (number < 1)
        return;
    const StrongsLexicon::Entry entry = m_lexicon.Show(language, number);
    if (entry.outcome == StrongsLexicon::Outcome::Unreadable) {
        platform::MsgBox(
            platform::ErrText(53, VbError::fileNotFound(m_lexicon.DataPath(language)).description),
            vb::vbCritical);
        return;
    }
    if (entry.outcome == StrongsLexicon::Outcome::NotFound) {
        // The data file ends before the index does.
        platform::MsgBox(platform::ErrText(62, VbError::inputPastEnd().description),
                         vb::vbCritical);
        return;
    }
    shown.definition->setPlainText(entry.definition);
    shown.word->setText(shown.list->item(number - 1)->text());
}

void frmStrongLexicon::find(Language language)
{
    Tab &shown = tab(language);
    shown.definition->clear();
    const StrongsLexicon::Choice choice = m_lexicon.Choose(language, shown.word->text());
    if (choice.number < 1)
        return;
    shown.list->setCurrentRow(choice.number - 1);
    shown.list->scrollToItem(shown.list->currentItem(), QAbstractItemView::PositionAtTop);
    showEntry(language);
    // The number actually used, after holding it to the list, replaces the list text.
    if (choice.typedNumber)
        shown.word->setText(QString::number(choice.number));
}

void frmStrongLexicon::highlight(Language language)
{
    if (!chkHighlightWord->isChecked())
        return;
    Tab &shown = tab(language);
    const int row = ListSearch::FirstPrefixMatch(m_lexicon.Index(language), shown.word->text());
    if (row >= 0 && row < shown.list->count()) {
        shown.list->setCurrentRow(row);
        shown.list->scrollToItem(shown.list->currentItem(), QAbstractItemView::PositionAtTop);
    }
}

void frmStrongLexicon::findAll(Language language)
{
    if (tab(language).word->text().isEmpty())
        return;
    // The selected entry's number, not the word box's text; nothing selected sends 0.
    const QString prefix = language == Language::Hebrew ? QStringLiteral("H") : QStringLiteral("G");
    m_main.ShowConcordance(prefix + QString::number(selectedRow(language) + 1));
}

void frmStrongLexicon::txtHebrewDefinition_DblClick(const QString &selected)
{
    // Only the Hebrew definitions name other entries by number.
    const int number = basStrings::LeadingNumber(selected);
    if (number < 1 || number > m_hebrew.list->count())
        return;
    m_hebrew.list->setCurrentRow(number - 1);
    m_hebrew.list->scrollToItem(m_hebrew.list->currentItem(), QAbstractItemView::PositionAtTop);
    showEntry(Language::Hebrew);
}

void frmStrongLexicon::cmdFind_Click()
{
    find(Language::Hebrew);
}

void frmStrongLexicon::cmdFindGreek_Click()
{
    find(Language::Greek);
}

void frmStrongLexicon::lstHebrewWords_DblClick()
{
    showEntry(Language::Hebrew);
}

void frmStrongLexicon::lstGreekWords_DblClick()
{
    showEntry(Language::Greek);
}

void frmStrongLexicon::txtHebrewWord_Change()
{
    highlight(Language::Hebrew);
}

void frmStrongLexicon::txtGreekWord_Change()
{
    highlight(Language::Greek);
}

void frmStrongLexicon::cmdFindAllHeb_Click()
{
    findAll(Language::Hebrew);
}

void frmStrongLexicon::cmdFindAllGreek_Click()
{
    findAll(Language::Greek);
}

void frmStrongLexicon::hideEvent(QHideEvent *event)
{
    // Closing, or the program hiding the window; the placement helper saves the rest.
    if (!event->spontaneous())
        WindowSettings::Set(WindowSettings::LexiconHighlight, chkHighlightWord->isChecked());
    QWidget::hideEvent(event);
}
