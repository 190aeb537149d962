#include "timebase/ShowOffers.h"

#include "support/Geometry.h"
#include "support/Steps.h"

namespace ko {

namespace {

constexpr int textBase = 3240;

} // namespace

ShowOffers::ShowOffers(Support& support) : DialogForm(support, "ShowOffers", 3, helpTopic::page)
{
    btnClose.setTag("5");
    resize(9000, 4500);
    load(textBase);
    btnClose.click = [this] { btnClose_Click(); };
}

void ShowOffers::Display(const std::string& title, const std::string& common, std::vector<std::string> columns,
                         std::vector<Table::Row> rows)
{
    const Steps step(support().errors, "Display");
    setCaption(title);
    lblCommon.setCaption(common);
    tblOffers.setContent(std::move(columns), std::move(rows));
    step([&] { placeAtCursor(*this, support().platform.screen); });
    moveFocus(&tblOffers);
    step([&] { support().platform.modalForms.showModal(*this); });
    dropFocus();
}

void ShowOffers::btnClose_Click()
{
    const Steps step(support().errors, "btnClose_Click");
    step([&] { support().platform.modalForms.hide(*this); });
}

} // namespace ko
