#pragma once

#include <QString>

// A run-time failure with the number and description users know from the program's messages
// ("Err #53 ocurred(File not found)"). Thrown where a routine gives up and caught by the routine
// that reports it, as the long routines do.
struct VbError
{
    int number = 0;
    QString description;

    static VbError fileNotFound(const QString &path)
    {
        return {53, QStringLiteral("File not found: ") + path};
    }
    static VbError inputPastEnd() { return {62, QStringLiteral("Input past end of file")}; }
    static VbError overflow() { return {6, QStringLiteral("Overflow")}; }
    static VbError subscriptOutOfRange() { return {9, QStringLiteral("Subscript out of range")}; }
    static VbError typeMismatch() { return {13, QStringLiteral("Type mismatch")}; }
};
