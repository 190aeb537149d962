#include "page/Page.h"

#include "page/Quantities.h"

#include <algorithm>

namespace ko {

namespace {

/// A design-time number: the offset of a text in the page's block of the string table.
void caption(CaptionControl& control, int offset)
{
    control.setTag(std::to_string(offset));
}

void toolTip(Control& control, int offset)
{
    control.setToolTipText(std::to_string(offset));
}

void numberQuantities(Page& page)
{
    constexpr int explainHint = 3242 - pageTextBase;
    for (const Quantity& quantity : quantities) {
        caption(page.*quantity.label, quantity.captionText - pageTextBase);
        toolTip(page.*quantity.list, quantity.toolTipText - pageTextBase);
        toolTip(page.*quantity.box, quantity.toolTipText - pageTextBase);
        // Its text is outside the page's block.
        CommandButton& button = page.*quantity.button;
        button.setCaption("?");
        toolTip(button, explainHint);
    }
}

void numberTakingButtons(Page& page)
{
    caption(page.cmdTakeDuration, 3279 - pageTextBase);
    caption(page.cmdTakeRate, 3241 - pageTextBase);
}

void numberCaptions(Page& page)
{
    caption(page.mnuTimebase, 26);
    caption(page.mnuTimebaseTriggerLines, 27);
    caption(page.frmDynamic, 3);
    caption(page.lblSpan, 21);
    caption(page.lblNumSamples, 22);
    caption(page.lblNumDynamicBytes, 63);
    caption(page.frmStatic, 4);
    caption(page.lblNumScans, 25);
    caption(page.lblNumStaticBytes, 63);
    caption(page.frmStart, 55);
    caption(page.optImmediate, 5);
    caption(page.optOnTrigger, 6);
    caption(page.lblChannel, 13);
    caption(page.optStartTime, 7);
    caption(page.frmStop, 2);
    caption(page.optAfter, 8);
    caption(page.optStopTime, 7);
    caption(page.lblDuration, 68);
    caption(page.lblStopTime, 69);
}

void numberToolTips(Page& page)
{
    toolTip(page.optImmediate, 28);
    toolTip(page.optOnTrigger, 30);
    toolTip(page.txtChannel, 34);
    toolTip(page.cmdChannel, 33);
    toolTip(page.grdParam, 35);
    toolTip(page.optStartTime, 29);
    toolTip(page.txtStartTime, 29);
    toolTip(page.cmdStartTime, 29);
    toolTip(page.optAfter, 31);
    toolTip(page.txtDuration, 36);
    toolTip(page.cmbInterval, 37);
    toolTip(page.optStopTime, 32);
    toolTip(page.txtStopTime, 32);
    toolTip(page.cmdStopTime, 32);
}

} // namespace

Page::Page() : Form("TimebaseEditor")
{
    numberCaptions(*this);
    numberToolTips(*this);
    numberQuantities(*this);
    numberTakingButtons(*this);
    lblNoTriggerLine.setVisible(false);
    cmbInterval.setItems({{"", 9}, {"", 10}, {"", 11}, {"", 12}});
    for (CommandButton* button : {&cmdChannel, &cmdStartTime, &cmdStopTime})
        button->setCaption("...");
    for (TextBox* box : {&txtChannel, &txtStartTime, &txtStopTime})
        box->setLocked(true);
}

Drivers Page::currentDrivers() const
{
    const auto announced = static_cast<std::size_t>(std::max(numDrivers, 0));
    return Drivers(drivers).first(std::min(announced, drivers.size()));
}

OptionButton* Page::startOption()
{
    for (OptionButton* option : {&optImmediate, &optOnTrigger, &optStartTime})
        if (option->value())
            return option;
    return nullptr;
}

Driver* Page::driverAt(std::int32_t index) const
{
    const Drivers current = currentDrivers();
    if (index < 0 || static_cast<std::size_t>(index) >= current.size())
        return nullptr;
    return current[static_cast<std::size_t>(index)].get();
}

Timebase* Page::timebaseAt(std::int32_t index) const
{
    Driver* driver = driverAt(index);
    return driver ? driver->queryTimebase() : nullptr;
}

} // namespace ko
