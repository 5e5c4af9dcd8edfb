#pragma once

#include "platform/clsCommonColorDialog.h"
#include "platform/clsCommonFontDialog.h"
#include "scripture/TranslationList.h"
#include "settings/SettingsRecords.h"

#include <QDialog>
#include <QHash>
#include <QList>

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QTabWidget;

// "Bible Options": the look of the main window (fonts and colours of the lists, the passage
// views and the title, the right-click highlight), the search limit, line breaks, remembering
// windows and the translation to load at start. It edits a preview; nothing reaches the settings
// files until "Save Settings", which writes them and asks the main window to show the new look.
class frmOptions : public QDialog
{
    Q_OBJECT

public:
    // translations: the installed translations in the order of the main window's menu;
    // currentFolder: the one open now.
    frmOptions(const QList<InstalledTranslation> &translations, const QString &currentFolder,
               QWidget *parent = nullptr);

signals:
    // "Load Selected Version Now": open this translation folder as the Translations menu does.
    void loadTranslationRequested(const QString &folder);
    // The settings files were written; the main window applies them at once.
    void settingsSaved();

public slots:
    void cmdSaveSettings_Click();
    void cmdDiscard_Click();
    void cmdLoadVersion_Click();
    void cmdHelp_Click();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum Area
    {
        Navigation,
        Passage,
        Title
    };

    QWidget *buildLookTab();
    QWidget *buildGeneralTab();
    QWidget *buildLoadTab();
    QLabel *makeSwatch(const char *name, const QString &tip);
    QLabel *makePreview(const char *name, const QString &caption);

    void swatchClicked(QLabel *swatch);
    void changeFont(Area area);
    void setSwatch(QLabel *swatch, qint32 color);
    void refreshPreview();
    TextStyle &style(Area area);

    // The edited looks; the preview labels show them, and Save writes them.
    TextStyle m_navigation;
    TextStyle m_passage;
    TextStyle m_title;
    QHash<QLabel *, qint32> m_swatchColors; // Windows colour values, system colours kept as such
    QList<InstalledTranslation> m_translations;
    clsCommonColorDialog m_colorDialog;
    clsCommonFontDialog m_fontDialog;

    QTabWidget *SSTab1 = nullptr;
    QLabel *lblNavFont = nullptr;
    QLabel *lblNavBack = nullptr;
    QLabel *lblPassFont = nullptr;
    QLabel *lblPassBack = nullptr;
    QLabel *lblTitFont = nullptr;
    QLabel *lblTitBack = nullptr;
    QLabel *lblRightClickColor = nullptr;
    QLabel *lblTestament = nullptr;
    QLabel *lblBooks = nullptr;
    QLabel *lblChapters = nullptr;
    QLabel *lblPassage = nullptr;
    QLabel *lblTitle = nullptr;
    QLineEdit *txtSearchResults = nullptr;
    QCheckBox *chkLineBreaks = nullptr;
    QCheckBox *chkRememberWindowSetting = nullptr;
    QListWidget *lstVersions = nullptr;
    QCheckBox *chkAutoLoad = nullptr;
    QRadioButton *optLookSystem = nullptr;
    QRadioButton *optLookLight = nullptr;
    QRadioButton *optLookDark = nullptr;
};
