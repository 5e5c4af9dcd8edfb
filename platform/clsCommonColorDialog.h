#pragma once

#include <QColor>

#include <array>
#include <functional>

class QWidget;

// The colour chooser. Colours are Windows colour values, 0x00BBGGRR, as stored in the settings
// records. The sixteen custom colours stay with the object from one opening to the next.
class clsCommonColorDialog
{
public:
    // Option flags, with their Windows values.
    enum : int
    {
        CC_RGBINIT = 0x1,
        CC_FULLOPEN = 0x2,
        CC_PREVENTFULLOPEN = 0x4,
        CC_SHOWHELP = 0x8,
        CC_SOLIDCOLOR = 0x80,
    };
    static constexpr int CustomColorCount = 16;

    using TestAnswer = std::function<bool(clsCommonColorDialog &dialog)>;

    clsCommonColorDialog() = default;

    int Color() const { return m_color; }
    void setColor(int color) { m_color = color; }

    int CustomColors(int index) const;
    void setCustomColors(int index, int color);

    int flags() const { return m_flags; }
    void setFlags(int flags) { m_flags = flags; }
    bool FullOpen() const { return m_flags & CC_FULLOPEN; }
    void setFullOpen(bool on) { setFlag(CC_FULLOPEN, on); }
    bool PreventFullOpen() const { return m_flags & CC_PREVENTFULLOPEN; }
    void setPreventFullOpen(bool on) { setFlag(CC_PREVENTFULLOPEN, on); }
    // With RGBInit the dialog opens on Color; without it, on black.
    bool RGBInit() const { return m_flags & CC_RGBINIT; }
    void setRGBInit(bool on) { setFlag(CC_RGBINIT, on); }
    bool ShowHelp() const { return m_flags & CC_SHOWHELP; }
    void setShowHelp(bool on) { setFlag(CC_SHOWHELP, on); }
    bool SolidColor() const { return m_flags & CC_SOLIDCOLOR; }
    void setSolidColor(bool on) { setFlag(CC_SOLIDCOLOR, on); }

    // Shows the dialog owned by the given window. On OK, Color and the custom colours hold the
    // user's choice and true is returned; on Cancel nothing changes.
    bool Show(QWidget *owner = nullptr);

    // Tests answer instead of the user: the function gets the prepared dialog, may change its
    // properties, and returns what Show returns. An empty function brings the real dialog back.
    // Returns the previous answer function.
    static TestAnswer setTestAnswer(TestAnswer answer);

private:
    void setFlag(int flag, bool on) { m_flags = on ? (m_flags | flag) : (m_flags & ~flag); }

    int m_color = 0;
    int m_flags = 0;
    std::array<int, CustomColorCount> m_customColors{};
};
