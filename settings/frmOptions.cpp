#include "settings/frmOptions.h"

#include "platform/MsgBox.h"
#include "platform/WinQColor.h"
#include "settings/Look.h"
#include "settings/ProgramSettings.h"
#include "settings/WindowSettings.h"
#include "settings/basSettings.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <cmath>

#include <cstdlib>
#include <optional>

namespace {

// The custom colours the colour dialog offers, slots 0 to 15.
constexpr int kCustomColors[16][3] = {
    {192, 205, 220}, {181, 196, 185}, {186, 200, 222}, {174, 183, 217},
    {197, 197, 207}, {160, 210, 248}, {194, 179, 173}, {176, 197, 171},
    {255, 255, 255}, {200, 200, 200}, {170, 170, 170}, {140, 140, 140},
    {110, 110, 110}, {80, 80, 80},    {50, 50, 50},    {0, 0, 0},
};

// The number at the start of the text, as the maximum has always been read: blanks, a sign and
// digits; text that does not start with a number is 0. Empty when it does not fit in 16 bits.
std::optional<qint16> LeadingInteger(const QString &text)
{
    const QString t = text.trimmed();
    qsizetype i = 0;
    bool negative = false;
    if (i < t.size() && (t.at(i) == u'-' || t.at(i) == u'+'))
        negative = t.at(i++) == u'-';
    qint64 value = 0;
    for (; i < t.size() && t.at(i) >= u'0' && t.at(i) <= u'9'; ++i) {
        value = value * 10 + (t.at(i).unicode() - u'0');
        if (value > 32768)
            return std::nullopt;
    }
    if (negative)
        value = -value;
    if (value < -32768 || value > 32767)
        return std::nullopt;
    return qint16(value);
}

} // namespace

frmOptions::frmOptions(const QList<InstalledTranslation> &translations,
                       const QString &currentFolder, QWidget *parent)
    : QDialog(parent), m_translations(translations)
{
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(tr("Bible Options"));
    setModal(true);

    auto *layout = new QVBoxLayout(this);
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    SSTab1->addTab(buildLookTab(), tr("&Fonts and Colors"));
    SSTab1->addTab(buildGeneralTab(), tr("&General"));
    SSTab1->addTab(buildLoadTab(), tr("L&oad"));
    layout->addWidget(SSTab1, 1);

    auto *buttons = new QHBoxLayout;
    auto *cmdHelp = new QPushButton(tr("Help"), this);
    cmdHelp->setObjectName(QStringLiteral("cmdHelp"));
    auto *cmdDiscard = new QPushButton(tr("&Discard"), this);
    cmdDiscard->setObjectName(QStringLiteral("cmdDiscard"));
    cmdDiscard->setToolTip(tr("Close without changing any setting"));
    auto *cmdSaveSettings = new QPushButton(tr("&Save Settings"), this);
    cmdSaveSettings->setObjectName(QStringLiteral("cmdSaveSettings"));
    cmdSaveSettings->setToolTip(tr("Save these settings and show them at once"));
    cmdSaveSettings->setDefault(true);
    buttons->addWidget(cmdHelp);
    buttons->addStretch(1);
    buttons->addWidget(cmdDiscard);
    buttons->addWidget(cmdSaveSettings);
    layout->addLayout(buttons);
    connect(cmdHelp, &QPushButton::clicked, this, &frmOptions::cmdHelp_Click);
    connect(cmdDiscard, &QPushButton::clicked, this, &frmOptions::cmdDiscard_Click);
    connect(cmdSaveSettings, &QPushButton::clicked, this, &frmOptions::cmdSaveSettings_Click);

    // The general values.
    ProgramSettings &settings = ProgramSettings::instance();
    chkRememberWindowSetting->setChecked(settings.rememberWindows);
    txtSearchResults->setText(QString::number(settings.general.maxSearchResults));
    chkLineBreaks->setChecked(settings.general.lineBreaks != 0);

    // The colour dialog's custom colours; the font dialog offers what the areas can show.
    for (int i = 0; i < 16; ++i)
        m_colorDialog.setCustomColors(
            i, platform::QColorToWindowsColor(
                   QColor(kCustomColors[i][0], kCustomColors[i][1], kCustomColors[i][2])));
    m_colorDialog.setRGBInit(true);
    m_colorDialog.setFullOpen(true);
    m_fontDialog.setShowScreenOnly(true);
    m_fontDialog.setForceFontExist(true);

    // The preview shows the looks in use, and the swatches their colours.
    m_navigation = settings.display.navigation;
    m_passage = settings.display.passage;
    m_title = settings.display.title;
    setSwatch(lblNavBack, m_navigation.BackColor);
    setSwatch(lblNavFont, m_navigation.ForeColor);
    setSwatch(lblPassBack, m_passage.BackColor);
    setSwatch(lblPassFont, m_passage.ForeColor);
    setSwatch(lblTitBack, m_title.BackColor);
    setSwatch(lblTitFont, m_title.ForeColor);
    setSwatch(lblRightClickColor, settings.display.RightClickColor);
    refreshPreview();

    // The installed translations, the open one selected.
    for (const InstalledTranslation &t : std::as_const(m_translations)) {
        lstVersions->addItem(t.displayName);
        if (t.folder.compare(currentFolder, Qt::CaseInsensitive) == 0)
            lstVersions->setCurrentRow(lstVersions->count() - 1);
    }
    chkAutoLoad->setChecked(WindowSettings::Get(WindowSettings::AutoLoad));

    // 5. The look.
    switch (Look::SchemeFromSetting(WindowSettings::Get(WindowSettings::LookScheme))) {
    case Look::Scheme::Light:
        optLookLight->setChecked(true);
        break;
    case Look::Scheme::Dark:
        optLookDark->setChecked(true);
        break;
    case Look::Scheme::FollowSystem:
        optLookSystem->setChecked(true);
        break;
    }
}

QLabel *frmOptions::makeSwatch(const char *name, const QString &tip)
{
    auto *swatch = new QLabel(this);
    swatch->setObjectName(QLatin1String(name));
    swatch->setToolTip(tip);
    swatch->setAutoFillBackground(true);
    swatch->setFrameShape(QFrame::Box);
    swatch->setMinimumSize(36, 20);
    swatch->setCursor(Qt::PointingHandCursor);
    swatch->installEventFilter(this);
    return swatch;
}

QLabel *frmOptions::makePreview(const char *name, const QString &caption)
{
    auto *label = new QLabel(caption, this);
    label->setObjectName(QLatin1String(name));
    label->setAutoFillBackground(true);
    label->setFrameShape(QFrame::StyledPanel);
    label->setMinimumHeight(28);
    label->setIndent(6);
    label->setCursor(Qt::PointingHandCursor);
    label->setToolTip(tr("Click here to change the background color"));
    label->installEventFilter(this);
    return label;
}

QWidget *frmOptions::buildLookTab()
{
    auto *page = new QWidget(SSTab1);
    auto *grid = new QGridLayout(page);

    struct AreaControls
    {
        const char *frame;
        const char *font;
        const char *foreSwatch;
        const char *backSwatch;
        const char *what;
        QLabel **fore;
        QLabel **back;
        Area area;
    };
    const AreaControls areas[] = {
        {"Navigation Lists", "cmdNavFont", "lblNavFont", "lblNavBack", "navigation", &lblNavFont,
         &lblNavBack, Navigation},
        {"Passage Window", "cmdPassFont", "lblPassFont", "lblPassBack", "passage", &lblPassFont,
         &lblPassBack, Passage},
        {"Title Window", "cmdTitFont", "lblTitFont", "lblTitBack", "title", &lblTitFont,
         &lblTitBack, Title},
    };
    int row = 0;
    for (const AreaControls &a : areas) {
        auto *group = new QGroupBox(QLatin1String(a.frame), page);
        auto *form = new QFormLayout(group);
        auto *font = new QPushButton(tr("Change Font"), group);
        font->setObjectName(QLatin1String(a.font));
        font->setToolTip(tr("Click here to change the font for ") + QLatin1String(a.what));
        connect(font, &QPushButton::clicked, this, [this, area = a.area] { changeFont(area); });
        *a.fore = makeSwatch(a.foreSwatch, QStringLiteral("Click here to change font color for ") +
                                               QLatin1String(a.what));
        *a.back =
            makeSwatch(a.backSwatch, QStringLiteral("Click here to change background color for ") +
                                         QLatin1String(a.what));
        form->addRow(font);
        form->addRow(tr("Font Color:"), *a.fore);
        form->addRow(tr("BackGround:"), *a.back);
        grid->addWidget(group, row++, 0);
    }

    auto *preview = new QGroupBox(tr("Preview"), page);
    auto *previewLayout = new QVBoxLayout(preview);
    lblTestament = makePreview("lblTestament", tr("Testament"));
    lblBooks = makePreview("lblBooks", tr("Books List"));
    lblChapters = makePreview("lblChapters", tr("Chapters List"));
    lblPassage = makePreview("lblPassage", tr("Passage Window"));
    lblTitle = makePreview("lblTitle", tr("Title Window"));
    for (QLabel *label : {lblTestament, lblBooks, lblChapters, lblPassage, lblTitle})
        previewLayout->addWidget(label);
    previewLayout->addStretch(1);
    grid->addWidget(preview, 0, 1, row, 1);
    grid->setColumnStretch(1, 1);
    return page;
}

QWidget *frmOptions::buildGeneralTab()
{
    auto *page = new QWidget(SSTab1);
    auto *layout = new QVBoxLayout(page);
    auto *other = new QGroupBox(tr("Other"), page);
    auto *form = new QFormLayout(other);
    lblRightClickColor = makeSwatch(
        "lblRightClickColor", tr("Click here to change the highlight color of a right click"));
    form->addRow(tr("Right Click Highlight:"), lblRightClickColor);
    txtSearchResults = new QLineEdit(other);
    txtSearchResults->setObjectName(QStringLiteral("txtSearchResults"));
    txtSearchResults->setToolTip(tr("The most results a search shows"));
    txtSearchResults->setMaximumWidth(80);
    form->addRow(tr("Maximum search results to show:"), txtSearchResults);
    layout->addWidget(other);

    chkLineBreaks = new QCheckBox(tr("Line break between verses"), page);
    chkLineBreaks->setObjectName(QStringLiteral("chkLineBreaks"));
    chkLineBreaks->setToolTip(
        tr("Allows you to suppress the line break between verses.  If unchecked, verses "
           "will simply continue and only word wrap at end of line"));
    chkRememberWindowSetting = new QCheckBox(tr("Remember Window Settings"), page);
    chkRememberWindowSetting->setObjectName(QStringLiteral("chkRememberWindowSetting"));
    chkRememberWindowSetting->setToolTip(
        tr("The program remembers window positions and sizes upon closing"));
    layout->addWidget(chkLineBreaks);
    layout->addWidget(chkRememberWindowSetting);

    // The program's light or dark look, kept apart from the colours above: under the dark look
    // the default colours show dark, and colours chosen above stay as they are.
    auto *look = new QGroupBox(tr("Look"), page);
    look->setObjectName(QStringLiteral("fraLook"));
    auto *lookLayout = new QVBoxLayout(look);
    optLookSystem = new QRadioButton(tr("Follow the s&ystem"), look);
    optLookSystem->setObjectName(QStringLiteral("optLookSystem"));
    optLookSystem->setToolTip(tr("Light or dark as the desktop is"));
    optLookLight = new QRadioButton(tr("&Light"), look);
    optLookLight->setObjectName(QStringLiteral("optLookLight"));
    optLookDark = new QRadioButton(tr("Dar&k"), look);
    optLookDark->setObjectName(QStringLiteral("optLookDark"));
    for (QRadioButton *option : {optLookSystem, optLookLight, optLookDark})
        lookLayout->addWidget(option);
    layout->addWidget(look);
    layout->addStretch(1);
    return page;
}

QWidget *frmOptions::buildLoadTab()
{
    auto *page = new QWidget(SSTab1);
    auto *layout = new QVBoxLayout(page);
    auto *group = new QGroupBox(tr("Load"), page);
    auto *inner = new QVBoxLayout(group);
    auto *listLabel = new QLabel(tr("Installed Translations:"), group);
    lstVersions = new QListWidget(group);
    lstVersions->setObjectName(QStringLiteral("lstVersions"));
    lstVersions->setToolTip(tr("Displays the currently installed translations"));
    listLabel->setBuddy(lstVersions);
    auto *loadNote =
        new QLabel(tr("If you wish to switch to another translation immediately, then click on the "
                      "\"Load Selected Version Now\" command button."),
                   group);
    loadNote->setWordWrap(true);
    auto *cmdLoadVersion = new QPushButton(tr("Load Selected Version Now"), group);
    cmdLoadVersion->setObjectName(QStringLiteral("cmdLoadVersion"));
    connect(cmdLoadVersion, &QPushButton::clicked, this, &frmOptions::cmdLoadVersion_Click);
    auto *autoNote = new QLabel(
        tr("This setting will allow you to select a version to autoload or cancel the "
           "autoload feature.  You must restart the program for the settings to take effect"),
        group);
    autoNote->setWordWrap(true);
    chkAutoLoad = new QCheckBox(tr("Autoload Selected Version"), group);
    chkAutoLoad->setObjectName(QStringLiteral("chkAutoLoad"));
    inner->addWidget(listLabel);
    inner->addWidget(lstVersions, 1);
    inner->addWidget(loadNote);
    inner->addWidget(cmdLoadVersion, 0, Qt::AlignLeft);
    inner->addWidget(autoNote);
    inner->addWidget(chkAutoLoad);
    layout->addWidget(group);
    return page;
}

TextStyle &frmOptions::style(Area area)
{
    return area == Navigation ? m_navigation : area == Passage ? m_passage : m_title;
}

void frmOptions::setSwatch(QLabel *swatch, qint32 color)
{
    m_swatchColors.insert(swatch, color);
    QPalette palette = swatch->palette();
    palette.setColor(QPalette::Window, platform::WindowsColorToQColor(color));
    swatch->setPalette(palette);
}

void frmOptions::refreshPreview()
{
    // The swatches hold the colours; the preview labels show each area's colours and font.
    m_navigation.BackColor = m_swatchColors.value(lblNavBack);
    m_navigation.ForeColor = m_swatchColors.value(lblNavFont);
    m_passage.BackColor = m_swatchColors.value(lblPassBack);
    m_passage.ForeColor = m_swatchColors.value(lblPassFont);
    m_title.BackColor = m_swatchColors.value(lblTitBack);
    m_title.ForeColor = m_swatchColors.value(lblTitFont);
    for (QLabel *label : {lblTestament, lblBooks, lblChapters})
        ApplyStyle(label, m_navigation);
    ApplyStyle(lblPassage, m_passage);
    ApplyStyle(lblTitle, m_title);
}

void frmOptions::swatchClicked(QLabel *swatch)
{
    m_colorDialog.setColor(m_swatchColors.value(swatch));
    if (!m_colorDialog.Show(this))
        return;
    setSwatch(swatch, m_colorDialog.Color());
    refreshPreview();
}

void frmOptions::changeFont(Area area)
{
    TextStyle &edited = style(area);
    m_fontDialog.setFontName(edited.trimFontName());
    m_fontDialog.setFontBold(edited.FontBold != 0);
    m_fontDialog.setFontSize(edited.FontSize);
    m_fontDialog.setFontItalic(edited.FontItalic != 0);
    if (!m_fontDialog.Show(this))
        return;
    // The colour stays the swatches' business.
    edited.FontName = TextStyle::FixedFontName(m_fontDialog.FontName());
    edited.FontBold = m_fontDialog.FontBold() ? -1 : 0;
    edited.FontItalic = m_fontDialog.FontItalic() ? -1 : 0;
    edited.FontSize = qint32(std::lround(m_fontDialog.FontSize()));
    refreshPreview();
}

bool frmOptions::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton) {
        auto *label = qobject_cast<QLabel *>(watched);
        // A preview label stands for its area's background.
        if (label == lblTestament || label == lblBooks || label == lblChapters)
            label = lblNavBack;
        else if (label == lblPassage)
            label = lblPassBack;
        else if (label == lblTitle)
            label = lblTitBack;
        if (label && m_swatchColors.contains(label)) {
            swatchClicked(label);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmOptions::cmdLoadVersion_Click()
{
    const int row = lstVersions->currentRow();
    if (row >= 0 && row < m_translations.size() && lstVersions->currentItem()->isSelected())
        emit loadTranslationRequested(m_translations.at(row).folder);
}

void frmOptions::cmdDiscard_Click()
{
    reject();
}

void frmOptions::cmdHelp_Click()
{
    platform::MsgBox(
        tr("Fonts and Colors: click a color box or a preview line to pick its color, and \"Change "
           "Font\" "
           "to pick the font of the lists, the passage or the title.\r\n"
           "General: the highlight of a right click, the most results a search shows, line breaks "
           "between verses, whether windows open where they were left, and the look: light, dark "
           "or as the desktop is (under the dark look the default colours show dark; colours you "
           "chose stay).\r\n"
           "Load: the translation to open at start, or to open now.\r\n"
           "Nothing changes until you click \"Save Settings\"; \"Discard\" leaves everything as it "
           "was."),
        vb::vbInformation, tr("Bible Options"));
}

void frmOptions::cmdSaveSettings_Click()
{
    // A maximum that does not fit stops the save before anything is written, so no file is left
    // half changed.
    const std::optional<qint16> maximum = LeadingInteger(txtSearchResults->text());
    if (!maximum) {
        platform::MsgBox(platform::ErrText(6, tr("Overflow")), vb::vbExclamation);
        return;
    }
    ProgramSettings &settings = ProgramSettings::instance();
    WindowSettings::Set(WindowSettings::RememberWindows, chkRememberWindowSetting->isChecked());
    settings.general.lineBreaks = chkLineBreaks->isChecked() ? -1 : 0;
    settings.general.maxSearchResults = *maximum;
    settings.writeGeneralSettings();
    WindowSettings::Set(WindowSettings::AutoLoad, chkAutoLoad->isChecked());
    // With no translation chosen the saved one stays.
    const int row = lstVersions->currentRow();
    if (row >= 0 && row < m_translations.size())
        WindowSettings::Set(WindowSettings::SavedTranslation, m_translations.at(row).folder);
    settings.rememberWindows = chkRememberWindowSetting->isChecked();
    settings.display.navigation = m_navigation;
    settings.display.passage = m_passage;
    settings.display.title = m_title;
    settings.display.RightClickColor = m_swatchColors.value(lblRightClickColor);
    settings.writeDisplaySettings();
    const Look::Scheme scheme = optLookDark->isChecked()    ? Look::Scheme::Dark
                                : optLookLight->isChecked() ? Look::Scheme::Light
                                                            : Look::Scheme::FollowSystem;
    // Only a changed look is written: a settings file that never had one keeps following the
    // system without a line for it.
    if (int(scheme) != WindowSettings::Get(WindowSettings::LookScheme))
        WindowSettings::Set(WindowSettings::LookScheme, int(scheme));
    emit settingsSaved();
    accept();
}
