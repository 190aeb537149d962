#pragma once

#include "host/instruments/SimulatedDriver.h"
#include "page/Page.h"
#include "widgets/support/Convert.h"

namespace ko {

/// What a set-up sheet is made from.
struct SheetSource {
    const Page& page;
    const SimulatedDrivers& drivers;
    std::string title;      ///< the set-up's own
    std::string file;       ///< the set-up's; empty: none yet
    bool isChanged = false; ///< it holds changes that are not in the file
    DateTime made;
    Texts texts;
    Locale locale;
};

/// Everything that is set, on paper: the plan, the page's values, the trigger, and of each instrument what it holds and
/// its channels. An HTML document that browsers and the toolkit's documents show alike; whatever it quotes is escaped.
/// No instrument is called.
QString setupSheet(const SheetSource& source);

} // namespace ko
