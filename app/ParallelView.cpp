#include "app/ParallelView.h"

#include "platform/RichTextBox.h"
#include "platform/WinQColor.h"
#include "scripture/VerseMapping.h"
#include "scripture/basStrings.h"
#include "settings/WindowSettings.h"
#include "settings/basSettings.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>
#include <QVBoxLayout>

namespace {

// The link every cell's reference carries; the cell is known by where it is.
const QString kReferenceLink = QStringLiteral("parallel:reference");

// A verse's text as the passage shows it: words in square brackets in italics, text in braces
// raised (the marks of the book files).
void insertVerseText(QTextCursor &cursor, const QString &text, const QTextCharFormat &base)
{
    QTextCharFormat format = base;
    QString run;
    const auto flush = [&] {
        if (!run.isEmpty())
            cursor.insertText(run, format);
        run.clear();
    };
    for (const QChar c : text) {
        if (c == u'[' || c == u']') {
            flush();
            format.setFontItalic(c == u'[' ? true : base.fontItalic());
        } else if (c == u'{' || c == u'}') {
            flush();
            format.setVerticalAlignment(c == u'{' ? QTextCharFormat::AlignSuperScript
                                                  : QTextCharFormat::AlignNormal);
        } else {
            run += c;
        }
    }
    flush();
}

QColor mix(const QColor &a, const QColor &b, double share)
{
    return QColor::fromRgbF(float(a.redF() * (1 - share) + b.redF() * share),
                            float(a.greenF() * (1 - share) + b.greenF() * share),
                            float(a.blueF() * (1 - share) + b.blueF() * share));
}

} // namespace

ParallelView::ParallelView(const clsBible &main, const QString &programFolder, QWidget *parent)
    : QWidget(parent), m_main(main), m_programFolder(programFolder)
{
    setObjectName(QStringLiteral("parallelPage"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    auto *bar = new QHBoxLayout;
    bar->setSpacing(4);
    auto *label = new QLabel(tr("Translations:"), this);
    bar->addWidget(label);
    for (int i = 0; i < ParallelRows::MaxTranslations; ++i) {
        auto *chooser = new QComboBox(this);
        chooser->setObjectName(QStringLiteral("cboParallel%1").arg(i + 1));
        chooser->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        connect(chooser, &QComboBox::currentIndexChanged, this, &ParallelView::chooserChanged);
        bar->addWidget(chooser);
        m_choosers << chooser;
    }
    label->setBuddy(m_choosers.first());
    bar->addStretch(1);
    layout->addLayout(bar);

    m_view = new platform::RichTextBox(this);
    m_view->setObjectName(QStringLiteral("rtfParallel"));
    m_view->setLocked(true);
    m_view->viewport()->installEventFilter(this);
    m_view->viewport()->setMouseTracking(true);
    layout->addWidget(m_view, 1);

    fillChoosers();
}

ParallelView::~ParallelView() = default;

void ParallelView::fillChoosers()
{
    const QList<InstalledTranslation> installed = TranslationList::List(m_programFolder);
    QStringList wanted =
        WindowSettings::Get(WindowSettings::ParallelTranslations).split(u',', Qt::SkipEmptyParts);
    // At first: the translation open in the main window and the next installed one.
    if (wanted.size() < ParallelRows::MinTranslations) {
        wanted = {m_main.VersionInitial()};
        for (const InstalledTranslation &t : installed) {
            if (t.folder.compare(wanted.first(), Qt::CaseInsensitive) != 0) {
                wanted << t.folder;
                break;
            }
        }
    }
    m_filling = true;
    for (int i = 0; i < m_choosers.size(); ++i) {
        QComboBox *chooser = m_choosers.at(i);
        chooser->clear();
        // The first two columns are always there; the others may be left out.
        if (i >= ParallelRows::MinTranslations)
            chooser->addItem(tr("(none)"), QString());
        for (const InstalledTranslation &t : installed) {
            chooser->addItem(t.folder, t.folder);
            chooser->setItemData(chooser->count() - 1, t.displayName, Qt::ToolTipRole);
        }
        const int found = i < wanted.size() ? chooser->findData(wanted.at(i).trimmed(),
                                                                Qt::UserRole, Qt::MatchFixedString)
                                            : -1;
        chooser->setCurrentIndex(found >= 0 ? found : (i >= ParallelRows::MinTranslations ? 0 : i));
    }
    m_filling = false;
}

QStringList ParallelView::chosen() const
{
    QStringList folders;
    for (const QComboBox *chooser : m_choosers) {
        const QString folder = chooser->currentData().toString();
        if (!folder.isEmpty())
            folders << folder;
    }
    return folders;
}

void ParallelView::chooserChanged()
{
    if (m_filling)
        return;
    WindowSettings::Set(WindowSettings::ParallelTranslations, chosen().join(u','));
    m_stale = true;
    if (isVisible())
        rebuild();
}

void ParallelView::setPassage(const Passage &onDisplay)
{
    m_passage = onDisplay;
    m_passage.text.clear();
    m_stale = true;
    if (isVisible())
        rebuild();
}

void ParallelView::applyLook(const TextStyle &passageStyle)
{
    m_style = passageStyle;
    ApplyRichTextStyle(m_view, m_style);
    m_stale = true;
    if (isVisible())
        rebuild();
}

void ParallelView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_stale)
        rebuild();
}

const clsBible *ParallelView::translation(const QString &folder)
{
    if (folder.compare(m_main.VersionInitial(), Qt::CaseInsensitive) == 0 &&
        !m_main.VersionPath().isEmpty())
        return &m_main;
    auto found = m_open.find(folder);
    if (found == m_open.end()) {
        auto bible = std::make_shared<clsBible>();
        bible->setVersionPath(basStrings::JoinPath(m_programFolder, folder));
        bible->setVersionInitial(folder);
        found = m_open.insert(folder, bible);
    }
    return found->get();
}

void ParallelView::rebuild()
{
    m_stale = false;
    m_columns = chosen();
    m_rows.clear();
    QList<const clsBible *> stores;
    for (const QString &folder : std::as_const(m_columns))
        stores << translation(folder);

    // The passage on display, carried into the first column's numbering.
    QString problem;
    QString heading;
    if (!m_passage.found()) {
        problem = tr("Choose a chapter to read it side by side.");
    } else if (stores.size() < ParallelRows::MinTranslations) {
        problem = tr("Install a second translation to read translations side by side.");
    } else {
        const VerseMapping mapping = VerseMapping::Between(m_main, *stores.first());
        std::optional<VerseMapping::Numbers> numbers =
            mapping.Map({m_passage.bookNumber, m_passage.chapterFrom, m_passage.verseFrom,
                         m_passage.chapterTo, m_passage.verseTo});
        if (!numbers) {
            const ReaderPlace place = KeepReaderPlace(
                m_main, {m_passage.bookNumber, m_passage.chapterFrom, 0}, *stores.first());
            if (place.book != 0)
                numbers = VerseMapping::Numbers{place.book, place.chapter, 0, 0, 0};
        }
        if (!numbers) {
            problem = tr("%1 has no %2.").arg(m_columns.first(), m_passage.Standard());
        } else {
            heading = StandardOf(*stores.first(), *numbers);
            ParallelRows::Result result = ParallelRows::Build(stores, *numbers);
            problem = result.problem;
            m_rows = std::move(result.rows);
        }
    }

    // A new document, put into the view whole: the view then lays out only what it shows and the
    // rest a part at a time, as it does a long chapter.
    auto *document = new QTextDocument(m_view);
    document->setUndoRedoEnabled(false);
    document->setDefaultFont(m_view->font());
    const QColor back = platform::WindowsColorToQColor(m_style.BackColor);
    const QColor fore = platform::WindowsColorToQColor(m_style.ForeColor);
    QTextCursor cursor(document);
    QTextCharFormat text;
    text.setForeground(fore);
    m_tableRows.clear();
    if (!problem.isEmpty()) {
        cursor.insertText(problem, text);
        m_view->setDocument(document);
        return;
    }

    // The passage over the table, as the first column names it (a document starts with a line of
    // text before any table in it).
    QTextCharFormat title = text;
    title.setFontWeight(QFont::Bold);
    cursor.insertText(heading, title);

    // Each row is a table of its own with the same columns, so that the view can lay out the rows
    // on show first.
    QTextTableFormat tableFormat;
    tableFormat.setBorder(0);
    tableFormat.setCellPadding(4);
    tableFormat.setCellSpacing(0);
    tableFormat.setMargin(0);
    tableFormat.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    QList<QTextLength> widths;
    for (qsizetype c = 0; c < m_columns.size(); ++c)
        widths << QTextLength(QTextLength::PercentageLength, 100.0 / double(m_columns.size()));
    tableFormat.setColumnWidthConstraints(widths);
    QTextBlockFormat between;
    between.setLineHeight(0, QTextBlockFormat::FixedHeight);
    QTextCharFormat tiny;
    tiny.setFontPointSize(1);
    const QBrush rule(mix(back, fore, 0.25));
    const auto cellFormat = [&](qsizetype column, bool missing) {
        QTextTableCellFormat format;
        format.setBottomBorder(1);
        format.setBottomBorderBrush(rule);
        format.setBottomBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        if (column + 1 < m_columns.size()) {
            format.setRightBorder(1);
            format.setRightBorderBrush(rule);
            format.setRightBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        }
        if (missing)
            format.setBackground(mix(back, fore, 0.08));
        return format;
    };
    const auto addRow = [&] {
        // The line the document keeps between two tables takes no room.
        cursor.movePosition(QTextCursor::End);
        if (cursor.block().length() <= 1) {
            cursor.setBlockFormat(between);
            cursor.setBlockCharFormat(tiny);
        }
        return cursor.insertTable(1, int(m_columns.size()), tableFormat);
    };

    QTextTable *table = addRow();
    for (qsizetype c = 0; c < m_columns.size(); ++c) {
        QTextTableCell cell = table->cellAt(0, int(c));
        cell.setFormat(cellFormat(c, false));
        cell.firstCursorPosition().insertText(m_columns.at(c), title);
    }

    QTextCharFormat reference = text;
    reference.setFontWeight(QFont::Bold);
    reference.setAnchor(true);
    reference.setAnchorHref(kReferenceLink);
    QTextCharFormat missing = text;
    missing.setFontItalic(true);
    missing.setForeground(mix(back, fore, 0.55));
    for (qsizetype r = 0; r < m_rows.size(); ++r) {
        const ParallelRow &row = m_rows.at(r);
        table = addRow();
        m_tableRows.insert(table, r);
        for (qsizetype c = 0; c < row.cells.size(); ++c) {
            const ParallelCell &verse = row.cells.at(c);
            QTextTableCell cell = table->cellAt(0, int(c));
            cell.setFormat(cellFormat(c, verse.isEmpty()));
            QTextCursor at = cell.firstCursorPosition();
            if (verse.isEmpty()) {
                // Marked, so that a verse a translation lacks is not taken for a blank line.
                at.insertText(tr("(not in %1)").arg(m_columns.at(c)), missing);
                continue;
            }
            at.insertText(verse.reference, reference);
            at.insertText(QStringLiteral(" "), text);
            insertVerseText(at, verse.text, text);
        }
    }
    m_view->setDocument(document);
}

std::pair<int, qsizetype> ParallelView::cellAt(const QPoint &point) const
{
    if (m_view->anchorAt(point) != kReferenceLink)
        return {-1, -1};
    const QTextCursor cursor = m_view->cursorForPosition(point);
    const QTextTable *table = cursor.currentTable();
    const qsizetype row = table ? m_tableRows.value(table, -1) : -1;
    const int column = table ? table->cellAt(cursor).column() : -1;
    if (row < 0 || row >= m_rows.size() || column < 0 || column >= m_columns.size() ||
        m_rows.at(row).cells.at(column).isEmpty())
        return {-1, -1};
    return {column, row};
}

bool ParallelView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_view->viewport()) {
        if (event->type() == QEvent::MouseMove) {
            const auto *mouse = static_cast<QMouseEvent *>(event);
            m_view->viewport()->setCursor(cellAt(mouse->position().toPoint()).first >= 0
                                              ? Qt::PointingHandCursor
                                              : Qt::IBeamCursor);
        } else if (event->type() == QEvent::MouseButtonRelease) {
            const auto *mouse = static_cast<QMouseEvent *>(event);
            // A drag that selected text is a selection, not a click.
            if (mouse->button() == Qt::LeftButton && m_view->SelLength() == 0) {
                const auto [column, row] = cellAt(mouse->position().toPoint());
                if (column >= 0) {
                    // Copies: opening the reference may rebuild the table under us.
                    const QString folder = m_columns.at(column);
                    const QString reference = m_rows.at(row).cells.at(column).reference;
                    emit referenceChosen(folder, reference);
                    return true;
                }
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}
