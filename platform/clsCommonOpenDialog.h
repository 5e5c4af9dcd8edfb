#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

// The open and save file chooser. Filter lists the file types as "|"-separated pairs of display
// text and pattern, e.g. "Text Files (*.txt)|*.txt|All Files (*.*)|*.*"; FilterIndex counts them
// from 1 and after OK says which one the user chose.
class clsCommonOpenDialog
{
public:
    // Option flags, with their Windows values.
    enum : int
    {
        OFN_READONLY = 0x1,
        OFN_OVERWRITEPROMPT = 0x2,
        OFN_HIDEREADONLY = 0x4,
        OFN_ALLOWMULTISELECT = 0x200,
        OFN_EXTENSIONDIFFERENT = 0x400,
        OFN_PATHMUSTEXIST = 0x800,
        OFN_FILEMUSTEXIST = 0x1000,
        OFN_CREATEPROMPT = 0x2000,
        OFN_EXPLORER = 0x80000,
        OFN_NODEREFERENCELINKS = 0x100000,
        OFN_ENABLESIZING = 0x800000,
    };

    // The function gets the prepared dialog and whether it is the save dialog, may set filename,
    // filetitle and FilterIndex, and returns what ShowOpen or ShowSave returns.
    using TestAnswer = std::function<bool(clsCommonOpenDialog &dialog, bool save)>;

    clsCommonOpenDialog() = default;

    QString filename() const { return m_filename; }
    void setFilename(const QString &name) { m_filename = name; }
    QString filetitle() const { return m_filetitle; }
    void setFiletitle(const QString &title) { m_filetitle = title; }
    QString Filter() const { return m_filter; }
    void setFilter(const QString &filter) { m_filter = filter; }
    int FilterIndex() const { return m_filterIndex; }
    void setFilterIndex(int index) { m_filterIndex = index; }
    QString InitDir() const { return m_initDir; }
    void setInitDir(const QString &folder) { m_initDir = folder; }
    QString Dialogtitle() const { return m_dialogTitle; }
    void setDialogtitle(const QString &title) { m_dialogTitle = title; }

    int flags() const { return m_flags; }
    void setFlags(int flags) { m_flags = flags; }
    bool AllowMultiSelect() const { return has(OFN_ALLOWMULTISELECT); }
    void setAllowMultiSelect(bool on) { setFlag(OFN_ALLOWMULTISELECT, on); }
    bool PathMustExist() const { return has(OFN_PATHMUSTEXIST); }
    void setPathMustExist(bool on) { setFlag(OFN_PATHMUSTEXIST, on); }
    bool FileMustExist() const { return has(OFN_FILEMUSTEXIST); }
    void setFileMustExist(bool on) { setFlag(OFN_FILEMUSTEXIST, on); }
    bool CreatePrompt() const { return has(OFN_CREATEPROMPT); }
    void setCreatePrompt(bool on) { setFlag(OFN_CREATEPROMPT, on); }
    bool Explorer() const { return has(OFN_EXPLORER); }
    void setExplorer(bool on) { setFlag(OFN_EXPLORER, on); }
    // Short-cuts are not followed; the odd spelling is the property's name.
    bool NoDeferenceLinks() const { return has(OFN_NODEREFERENCELINKS); }
    void setNoDeferenceLinks(bool on) { setFlag(OFN_NODEREFERENCELINKS, on); }
    bool HideReadOnly() const { return has(OFN_HIDEREADONLY); }
    void setHideReadOnly(bool on) { setFlag(OFN_HIDEREADONLY, on); }
    bool OverWritePrompt() const { return has(OFN_OVERWRITEPROMPT); }
    void setOverWritePrompt(bool on) { setFlag(OFN_OVERWRITEPROMPT, on); }
    bool ReadOnly() const { return has(OFN_READONLY); }
    void setReadOnly(bool on) { setFlag(OFN_READONLY, on); }
    bool ExtensionDifferent() const { return has(OFN_EXTENSIONDIFFERENT); }
    void setExtensionDifferent(bool on) { setFlag(OFN_EXTENSIONDIFFERENT, on); }
    bool EnableSizing() const { return has(OFN_ENABLESIZING); }
    void setEnableSizing(bool on) { setFlag(OFN_ENABLESIZING, on); }

    // Show the dialog owned by the given window. On OK filename holds the full path, filetitle
    // the bare name and FilterIndex the chosen type, and true is returned; on Cancel nothing
    // changes. No ending is added to the name the user typed.
    bool ShowOpen(QWidget *owner = nullptr);
    bool ShowSave(QWidget *owner = nullptr);

    // Tests answer instead of the user; returns the previous answer function.
    static TestAnswer setTestAnswer(TestAnswer answer);

    // The Filter as the toolkit's name filters: "Text Files (*.txt)", "All Files (*)".
    static QStringList NameFilters(const QString &filter);

private:
    bool show(QWidget *owner, bool save);
    bool has(int flag) const { return (m_flags & flag) == flag; }
    void setFlag(int flag, bool on) { m_flags = on ? (m_flags | flag) : (m_flags & ~flag); }

    QString m_filename;
    QString m_filetitle;
    QString m_filter;
    int m_filterIndex = 1;
    QString m_initDir;
    QString m_dialogTitle;
    int m_flags = 0;
};
