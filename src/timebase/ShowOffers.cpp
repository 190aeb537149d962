#include "timebase/ShowOffers.h"

#include "support/TextNumbers.h"

namespace ko {

namespace offerText = textNumber::offers;

ShowOffers::ShowOffers(Support& support)
    : DialogForm(support, "ShowOffers", offerText::block, offerText::title, helpTopic::page)
{
    btnClose.setTag(offset(offerText::close));
    resize(9000, 4500);
    load(btnClose, btnClose);
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
