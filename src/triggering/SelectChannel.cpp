#include "triggering/SelectChannel.h"

#include "support/TextNumbers.h"

#include <algorithm>

namespace ko {

namespace {

namespace channelText = textNumber::channelDialog;

/// Margin in twips around and between the controls.
constexpr std::int32_t margin = 120;

} // namespace

SelectChannel::SelectChannel(Support& support)
    : DialogForm(support, "SelectChannel", channelText::block, channelText::title, 0)
{
    cmdOK.setTag(offset(channelText::ok));
    cmdCancel.setTag(offset(channelText::cancel));
    cmdHelp.setTag(offset(channelText::help));
    load(cmdOK, cmdCancel, &cmdHelp);
    for (CommandButton* button : {&cmdOK, &cmdCancel, &cmdHelp})
        button->move({0, 0, 1215, 375});
    chsNavigate.activated = [this] { accept("chsNavigate_Activate"); };
    accepting = [this](const Steps& step) { SelCount = step.value([&] { return chsNavigate.getSelections(Sel); }); };
    resized = [this] { Form_Resize(); };
    resize(5400, 5400);
}

void SelectChannel::MaxSelections(std::int32_t count)
{
    chsNavigate.setMultipleSelection(count > 1);
    if (count > 1)
        chsNavigate.setSelectionLimit(count);
}

void SelectChannel::UpdateDrivers(const DriverList& drivers, std::int32_t count)
{
    chsNavigate.failed = [this] { support().errors.reportCurrent(errorSource::page, "UpdateDrivers"); };
    chsNavigate.driverList().setNumberOfDrivers(count);
    chsNavigate.driverList().setDrivers(drivers);
}

bool SelectChannel::offersChannels() const
{
    const auto& lines = chsNavigate.entries();
    return std::any_of(lines.begin(), lines.end(), [](const auto& line) { return line.channel >= 0; });
}

bool SelectChannel::Display(std::shared_ptr<Driver>& driver, std::int32_t& slot, std::int32_t& channel)
{
    if (!select({{driver}, {slot}, {channel}}))
        return false;
    const bool any = SelCount >= 1;
    driver = any ? Sel.drivers[1] : nullptr;
    slot = any ? Sel.groups[1] : -1;
    channel = any ? Sel.channels[1] : -1;
    return true;
}

bool SelectChannel::Display(ChannelSelections& channels)
{
    if (!select(channels))
        return false;
    channels = SelCount >= 1 ? Sel : ChannelSelections{{nullptr}, {-1}, {-1}};
    return true;
}

/// Returns whether the user accepted a selection.
bool SelectChannel::select(const ChannelSelections& channels)
{
    const Steps step(support().errors, "Display");
    step([&] { chsNavigate.reset(); });
    step([&] { chsNavigate.preselect(channels); });
    return show(step, placeCentredUnderCursor, chsNavigate);
}

/// The buttons are in a row at the lower right; the selector fills the rest.
void SelectChannel::Form_Resize()
{
    const Bounds& inner = bounds();
    Bounds button = cmdHelp.bounds();
    button.left = inner.width - margin - button.width;
    button.top = inner.height - margin - button.height;
    cmdHelp.move(button);
    for (CommandButton* next : {&cmdCancel, &cmdOK}) {
        const std::int32_t right = button.left - margin;
        button.width = next->bounds().width;
        button.left = right - button.width;
        button.height = next->bounds().height;
        next->move(button);
    }
    chsNavigate.move({margin, margin, inner.width - 2 * margin, inner.height - cmdHelp.bounds().height - 3 * margin});
}

} // namespace ko
