#include "timebase/ShowOffers.h"

namespace ko {

namespace {

constexpr int textBase = 3240;

} // namespace

ShowOffers::ShowOffers(Support& support) : DialogForm(support, "ShowOffers", 3, helpTopic::page)
{
    btnClose.setTag("5");
    resize(9000, 4500);
    load(textBase, btnClose, btnClose);
}

void ShowOffers::Display(const std::string& title, const std::string& common, std::vector<std::string> columns,
                         std::vector<Table::Row> rows)
{
    const Steps step(support().errors, "Display");
    setCaption(title);
    lblCommon.setCaption(common);
    tblOffers.setContent(std::move(columns), std::move(rows));
    show(step, placeAtCursor, tblOffers);
}

} // namespace ko
