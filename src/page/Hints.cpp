#include "page/Hints.h"

#include "platform/Utf8.h"
#include "support/TextNumbers.h"
#include "support/Validation.h"

namespace ko {

void setToolTip(const Page& page, const Support& support, double min, double max)
{
    std::string hint;
    if (min != max)
        hint = "  " + requiredRange(support, textNumber::page::realInRange, {min, max});
    showHint(page, hint);
}

void showHint(const Page& page, const std::string& hint)
{
    const auto site = page.statusSite;
    if (!page.readOnly && page.numDrivers > 0 && site)
        site->ShowHint(hint, site->Caption());
}

void selectAllText(TextBox& box)
{
    box.select(0, utf8Length(box.text()));
}

} // namespace ko
