#include "timebase/ShowOffers.h"

#include "page/Hints.h"
#include "support/TextNumbers.h"

#include <algorithm>

namespace ko {

namespace offerText = textNumber::offers;

ShowOffers::ShowOffers(Support& support)
    : DialogForm(support, "ShowOffers", offerText::block, offerText::title, helpTopic::page)
{
    btnClose.setTag(offset(offerText::close));
    cmdSetAll.setTag(offset(textNumber::compare::setAll));
    resize(9000, 4500);
    load(btnClose, btnClose);
    txtValue.gotFocus = [this] { selectAllText(txtValue); };
    cmbQuantity.click = [this] { showValue(); };
    cmdSetAll.click = [this] { setAll(); };
}

void ShowOffers::Display(const std::string& title, Source source, std::size_t first)
{
    const Steps step(support().errors, "Display");
    source_ = std::move(source);
    setCaption(title);
    step([&] {
        const Content shown = fill();
        tblOffers.show(shown.row, shown.column);
    });
    for (Control* control :
         {static_cast<Control*>(&cmbQuantity), static_cast<Control*>(&txtValue), static_cast<Control*>(&cmdSetAll)})
        control->setEnabled(!settable_.empty());
    if (!settable_.empty())
        cmbQuantity.select(first < settable_.size() ? static_cast<std::int32_t>(first) : 0);
    showValue();
    show(step, placeAtCursor, tblOffers);
    source_ = {};
}

ShowOffers::Content ShowOffers::fill()
{
    const Content content = source_.content();
    lblCommon.setCaption(content.common);
    tblOffers.setContent(content.columns, content.rows);
    settable_ = source_.settable();
    std::vector<ComboBox::Item> items;
    for (const Settable& it : settable_)
        items.push_back({it.caption});
    const std::int32_t chosen = cmbQuantity.index();
    if (items != cmbQuantity.items())
        cmbQuantity.setItems(std::move(items));
    cmbQuantity.select(std::min(chosen, static_cast<std::int32_t>(settable_.size()) - 1));
    return content;
}

void ShowOffers::showValue()
{
    const auto chosen = static_cast<std::size_t>(cmbQuantity.index());
    txtValue.setText(chosen < settable_.size() ? settable_[chosen].value : "");
}

void ShowOffers::setAll()
{
    const Steps step(support().errors, "cmdSetAll_Click");
    const auto chosen = static_cast<std::size_t>(cmbQuantity.index());
    if (chosen >= settable_.size() || !source_.setAll)
        return;
    step([&] { source_.setAll(chosen, txtValue.text()); });
    step([&] { fill(); });
    step([&] { showValue(); });
}

} // namespace ko
