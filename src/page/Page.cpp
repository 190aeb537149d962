#include "page/Page.h"

#include "page/Quantities.h"
#include "support/ResourceUtils.h"
#include "support/TextNumbers.h"

#include <algorithm>

namespace ko {

namespace {

namespace pageText = textNumber::page;

/// Sets a design-time caption: the offset of a text in the page's block of the string table.
void caption(CaptionControl& control, int text)
{
    control.setTag(offsetOf(text, pageText::block));
}

void toolTip(Control& control, int text)
{
    control.setToolTipText(offsetOf(text, pageText::block));
}

void numberQuantities(Page& page)
{
    for (const Quantity& quantity : quantities) {
        caption(page.*quantity.label, quantity.captionText);
        toolTip(page.*quantity.list, quantity.toolTipText);
        toolTip(page.*quantity.box, quantity.toolTipText);
        // The hint is not in the page's block, but its offset from the block's start finds it, too.
        CommandButton& button = page.*quantity.button;
        button.setCaption("?");
        toolTip(button, textNumber::offers::explainHint);
    }
}

void numberTakingButtons(Page& page)
{
    caption(page.cmdTakeDuration, textNumber::offers::setLongestDuration);
    caption(page.cmdTakeRate, textNumber::offers::setHighestRate);
}

void numberCaptions(Page& page)
{
    caption(page.mnuTimebase, pageText::timebaseMenu);
    caption(page.mnuTimebaseTriggerLines, pageText::triggerLinesEntry);
    caption(page.frmDynamic, pageText::dynamicMeasurements);
    caption(page.lblSpan, pageText::span);
    caption(page.lblNumSamples, pageText::numSamples);
    caption(page.lblNumDynamicBytes, pageText::diskSpace);
    caption(page.frmStatic, pageText::staticMeasurements);
    caption(page.lblNumScans, pageText::numScans);
    caption(page.lblNumStaticBytes, pageText::diskSpace);
    caption(page.frmStart, pageText::start);
    caption(page.optImmediate, pageText::startImmediately);
    caption(page.optOnTrigger, pageText::startOnTrigger);
    caption(page.lblChannel, pageText::triggerChannel);
    caption(page.optStartTime, pageText::atTime);
    caption(page.lblStartPast, textNumber::times::past);
    caption(page.frmStop, pageText::stop);
    caption(page.optAfter, pageText::stopAfter);
    caption(page.optStopTime, pageText::atTime);
    caption(page.lblDuration, pageText::actualDuration);
    caption(page.lblStopTime, pageText::actualStopTime);
}

void numberToolTips(Page& page)
{
    toolTip(page.optImmediate, pageText::startImmediatelyHint);
    toolTip(page.optOnTrigger, pageText::startOnTriggerHint);
    toolTip(page.txtChannel, pageText::triggerChannelHint);
    toolTip(page.cmdChannel, pageText::triggerGroupHint);
    toolTip(page.grdParam, pageText::parametersHint);
    toolTip(page.optStartTime, pageText::startTimeHint);
    toolTip(page.txtStartTime, pageText::startTimeHint);
    toolTip(page.cmdStartTime, pageText::startTimeHint);
    toolTip(page.optAfter, pageText::stopAfterHint);
    toolTip(page.txtDuration, pageText::durationHint);
    toolTip(page.cmbInterval, pageText::intervalHint);
    toolTip(page.optStopTime, pageText::stopTimeHint);
    toolTip(page.txtStopTime, pageText::stopTimeHint);
    toolTip(page.cmdStopTime, pageText::stopTimeHint);
}

} // namespace

Page::Page() : Form("TimebaseEditor")
{
    numberCaptions(*this);
    numberToolTips(*this);
    numberQuantities(*this);
    numberTakingButtons(*this);
    for (Label* label : {&lblNoTriggerLine, &lblStartPast, &lblStartDay, &lblStopDay})
        label->setVisible(false);
    std::vector<ComboBox::Item> units;
    for (const int unit : {pageText::seconds, pageText::minutes, pageText::hours, pageText::days})
        units.push_back({"", unit - pageText::block});
    cmbInterval.setItems(std::move(units));
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
