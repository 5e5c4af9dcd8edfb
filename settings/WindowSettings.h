#pragma once

#include <QString>
#include <QStringList>

class clsIni;

// Every value of "window.ini" the program keeps apart from window placement, declared once with
// its section, key, type and what a missing value means. Windows and the command line read and
// write them through these accessors, never by section and key.
namespace WindowSettings {

// A 1/0 value; a missing or empty one (read as -1) means `missing`.
struct Flag
{
    const char16_t *section;
    const char16_t *key;
    bool missing;
};

// A number; a missing, empty or negative one means `missing`.
struct Number
{
    const char16_t *section;
    const char16_t *key;
    int missing;
};

struct Text
{
    const char16_t *section;
    const char16_t *key;
};

// Texts kept in a section of their own under numbered keys: "place1", "place2", ...
struct TextList
{
    const char16_t *section;
    const char16_t *keyPrefix;
};

// Numbers kept in a section of their own under names the program gives at run time (a view's
// name); a missing, empty or negative one means `missing`.
struct NamedNumbers
{
    const char16_t *section;
    int missing;
};

// Old settings files keep this under the section with no name.
inline constexpr Flag RememberWindows{u"", u"rememberwindowsetting", true};
inline constexpr Flag AutoLoad{u"load", u"autoload", true};
inline constexpr Text SavedTranslation{u"load", u"version"};
// The translation being opened; empty once its window is on screen.
inline constexpr Text Opening{u"load", u"opening"};
// -1 when missing, which shows the verse of the day as any value but 0 does.
inline constexpr Number VerseOfDay{u"verseofday", u"show", -1};
// One "1" or "0" a book, in book order.
inline constexpr Text SearchBooks{u"search", u"books"};
// The translations ticked to be searched beside the open one: folder names, separated by commas.
inline constexpr Text SearchTranslations{u"search", u"translations"};
inline constexpr Flag LexiconHighlight{u"strong", u"highlightword", false};
// Print margins in millimetres, and the last PDF file written.
inline constexpr Number PrintTop{u"print", u"top", 20};
inline constexpr Number PrintBottom{u"print", u"bottom", 20};
inline constexpr Number PrintLeft{u"print", u"left", 20};
inline constexpr Number PrintRight{u"print", u"right", 20};
inline constexpr Text PrintPdfFile{u"print", u"pdffile"};
// The translations read side by side: two to four folder names, separated by commas.
inline constexpr Text ParallelTranslations{u"parallel", u"translations"};
// The places of the last session's Back and Forward, oldest first, and the one that was on show.
inline constexpr TextList HistoryPlaces{u"historyplaces", u"place"};
inline constexpr Number HistoryCurrent{u"history", u"current", -1};
// Each text view's zoom in per cent of the options' font size, by the view's name.
inline constexpr NamedNumbers ZoomPercent{u"zoom", 100};
// The look: 0 follows the desktop's light or dark palette, 1 light, 2 dark.
inline constexpr Number LookScheme{u"look", u"scheme", 0};

// Through the program's own store.
bool Get(const Flag &flag);
int Get(const Number &number);
QString Get(const Text &text);
void Set(const Flag &flag, bool on);
void Set(const Number &number, int value);
void Set(const Text &text, const QString &value);
QStringList Get(const TextList &list);
// Replaces the whole list in one write.
void Set(const TextList &list, const QStringList &values);
int Get(const NamedNumbers &numbers, const QString &name);
void Set(const NamedNumbers &numbers, const QString &name, int value);

// Through another store (the command line's).
bool Get(const clsIni &ini, const Flag &flag);
QString Get(const clsIni &ini, const Text &text);

} // namespace WindowSettings
