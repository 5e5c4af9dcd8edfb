#pragma once

#include <QString>

#include <functional>

class QWidget;

// The font chooser. The font properties are the initial font on entry and the chosen font after
// OK; Color is a Windows colour value (0x00BBGGRR) that the dialog carries through unchanged.
class clsCommonFontDialog
{
public:
    // Option flags, with their Windows values.
    enum : int
    {
        CF_SCREENFONTS = 0x1,
        CF_PRINTERFONTS = 0x2,
        CF_BOTH = 0x3,
        CF_EFFECTS = 0x100,
        CF_APPLY = 0x200,
        CF_NOVECTORFONTS = 0x800,
        CF_NOSIMULATIONS = 0x1000,
        CF_LIMITSIZE = 0x2000,
        CF_FIXEDPITCHONLY = 0x4000,
        CF_WYSIWYG = 0x8000,
        CF_FORCEFONTEXIST = 0x10000,
        CF_SCALABLEONLY = 0x20000,
        CF_TTONLY = 0x40000,
        CF_NOFACESEL = 0x80000,
        CF_NOSTYLESEL = 0x100000,
        CF_NOSIZESEL = 0x200000,
    };

    using TestAnswer = std::function<bool(clsCommonFontDialog &dialog)>;

    clsCommonFontDialog() = default;

    QString FontName() const { return m_fontName; }
    void setFontName(const QString &name) { m_fontName = name; }
    double FontSize() const { return m_fontSize; }
    void setFontSize(double points) { m_fontSize = points; }
    bool FontBold() const { return m_bold; }
    void setFontBold(bool on) { m_bold = on; }
    bool FontItalic() const { return m_italic; }
    void setFontItalic(bool on) { m_italic = on; }
    bool FontUnderline() const { return m_underline; }
    void setFontUnderline(bool on) { m_underline = on; }
    bool FontStrikethru() const { return m_strikethru; }
    void setFontStrikethru(bool on) { m_strikethru = on; }
    int Color() const { return m_color; }
    void setColor(int color) { m_color = color; }

    int flags() const { return m_flags; }
    void setFlags(int flags) { m_flags = flags; }
    bool ShowApply() const { return has(CF_APPLY); }
    void setShowApply(bool on) { setFlag(CF_APPLY, on); }
    bool ShowBoth() const { return (m_flags & CF_BOTH) == CF_BOTH; }
    void setShowBoth(bool on) { setFlag(CF_BOTH, on); }
    bool EnableEffects() const { return has(CF_EFFECTS); }
    void setEnableEffects(bool on) { setFlag(CF_EFFECTS, on); }
    bool FixedPitchOnly() const { return has(CF_FIXEDPITCHONLY); }
    void setFixedPitchOnly(bool on) { setFlag(CF_FIXEDPITCHONLY, on); }
    bool ForceFontExist() const { return has(CF_FORCEFONTEXIST); }
    void setForceFontExist(bool on) { setFlag(CF_FORCEFONTEXIST, on); }
    bool LimitSize() const { return has(CF_LIMITSIZE); }
    void setLimitSize(bool on) { setFlag(CF_LIMITSIZE, on); }
    bool NoFontSelected() const { return has(CF_NOFACESEL); }
    void setNoFontSelected(bool on) { setFlag(CF_NOFACESEL, on); }
    bool NoSimulations() const { return has(CF_NOSIMULATIONS); }
    void setNoSimulations(bool on) { setFlag(CF_NOSIMULATIONS, on); }
    bool NoSizeSelected() const { return has(CF_NOSIZESEL); }
    void setNoSizeSelected(bool on) { setFlag(CF_NOSIZESEL, on); }
    bool NoStyleSelected() const { return has(CF_NOSTYLESEL); }
    void setNoStyleSelected(bool on) { setFlag(CF_NOSTYLESEL, on); }
    bool NoVectorFonts() const { return has(CF_NOVECTORFONTS); }
    void setNoVectorFonts(bool on) { setFlag(CF_NOVECTORFONTS, on); }
    bool ShowPrinterOnly() const { return (m_flags & CF_BOTH) == CF_PRINTERFONTS; }
    void setShowPrinterOnly(bool on) { setFlag(CF_PRINTERFONTS, on); }
    bool ShowScalableOnly() const { return has(CF_SCALABLEONLY); }
    void setShowScalableOnly(bool on) { setFlag(CF_SCALABLEONLY, on); }
    bool ShowScreenOnly() const { return (m_flags & CF_BOTH) == CF_SCREENFONTS; }
    void setShowScreenOnly(bool on) { setFlag(CF_SCREENFONTS, on); }
    bool ShowTrueTypeOnly() const { return has(CF_TTONLY); }
    void setShowTrueTypeOnly(bool on) { setFlag(CF_TTONLY, on); }
    bool WYSIWYG() const { return has(CF_WYSIWYG); }
    void setWYSIWYG(bool on) { setFlag(CF_WYSIWYG, on); }

    // With LimitSize, the sizes offered lie between these (points).
    int MinSize() const { return m_minSize; }
    void setMinSize(int points) { m_minSize = points; }
    int MaxSize() const { return m_maxSize; }
    void setMaxSize(int points) { m_maxSize = points; }

    // Shows the dialog owned by the given window. On OK the font properties hold the choice and
    // true is returned; on Cancel nothing changes.
    bool Show(QWidget *owner = nullptr);

    // Tests answer instead of the user (see clsCommonColorDialog::setTestAnswer).
    static TestAnswer setTestAnswer(TestAnswer answer);

private:
    bool has(int flag) const { return (m_flags & flag) == flag; }
    void setFlag(int flag, bool on) { m_flags = on ? (m_flags | flag) : (m_flags & ~flag); }

    QString m_fontName;
    double m_fontSize = 10;
    bool m_bold = false;
    bool m_italic = false;
    bool m_underline = false;
    bool m_strikethru = false;
    int m_color = 0;
    int m_flags = CF_SCREENFONTS;
    int m_minSize = 0;
    int m_maxSize = 0;
};
