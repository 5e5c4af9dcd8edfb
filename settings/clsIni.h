#pragma once

#include <QList>
#include <QString>

#include <utility>

// The settings store over "window.ini". It behaves as the Windows private-profile functions do,
// because users carry their settings file over from Windows: section and key names match without
// regard to case, the first matching section and the first matching key win, "[]" opens the
// section whose name is empty, and blanks around names and values do not count. Nothing is
// cached: every call reads the file, so changes made by hand between calls are seen.
class clsIni
{
public:
    // Remembers the file to work on; true when it exists. The file is not created here.
    bool Create(const QString &sFile_);

    // The value as a 16-bit integer (returned widened to int): an optional sign and the digits
    // that follow; text that does not start with a number reads as 0. A missing file, section or
    // key, or an empty value, reads as -1.
    int Data(const QString &sSection_, const QString &sKey_) const;
    // Writes the integer as decimal text, creating file, section and key as needed.
    void setData(const QString &sSection_, const QString &sKey_, int iData_);

    // The value with one pair of surrounding quotes removed, cut at the first NUL and at 254
    // characters; "" when missing.
    QString Text(const QString &sSection_, const QString &sKey_) const;
    // Replaces the value in place, or adds the key after the last key of its section, or adds the
    // section at the end of the file. Every other line stays as it was, byte for byte. A failed
    // write leaves the old file whole and tells the user once.
    void setText(const QString &sSection_, const QString &sKey_, const QString &sText_);

    // Every key of the section with its value (as Text gives it), in the file's order, in one
    // read; empty when the file or the section is missing.
    QList<std::pair<QString, QString>> Section(const QString &sSection_) const;
    // Puts these keys and values in place of all the keys of the section (adding the section at
    // the end of the file when there is none), in one write; every other line stays as it was.
    // For lists that would otherwise take one write a value.
    void setSection(const QString &sSection_, const QList<std::pair<QString, QString>> &values);

    QString FileName() const { return sFile; }

private:
    bool writeValue(const QString &sSection_, const QString &sKey_, const QString &value);
    bool reportFailure(const QString &failure);

    QString sFile;
    bool m_writeFailureShown = false;
};
