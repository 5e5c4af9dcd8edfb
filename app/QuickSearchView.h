#pragma once

#include "scripture/QuickSearch.h"

#include <QString>

#include <functional>

class NavigatorPane;
class StudyTabs;
class clsBible;

// Runs a search of the quick search's kind where the reader sees it: the navigator's title counts
// the matches and its progress bar moves book by book (the window repaints meanwhile), and the
// results are listed on the passage tab. Gives back what to tell the user when a book could not be
// read, so it is told once the search is over.
QString ShowQuickSearch(NavigatorPane &navigator, StudyTabs &study, const clsBible &store,
                        const std::function<QuickSearch::Result(QuickSearch &)> &scan);
