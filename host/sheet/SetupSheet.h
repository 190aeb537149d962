#pragma once

#include "host/instruments/HostInstrument.h"
#include "page/Page.h"
#include "widgets/support/Convert.h"

namespace ko {

/// The content of a set-up sheet.
struct SheetSource {
    const Page& page;
    const HostInstruments& drivers;
    std::string title;      ///< of the set-up
    std::string file;       ///< of the set-up; empty: not saved yet
    bool isChanged = false; ///< the set-up differs from its file
    DateTime made;          ///< printed as the date of the sheet
    Texts texts;
    Locale locale;
};

/// Returns all settings as an HTML document to print: the plan, the page's values, the trigger, and the values and
/// channels of each instrument. Browsers and `QTextDocument` show it alike; all quoted text is escaped. Calls no
/// instrument.
QString setupSheet(const SheetSource& source);

/// Returns the file, marked if the set-up differs from it, and the date, in one line.
QString sheetCaption(const SheetSource& source);

} // namespace ko
