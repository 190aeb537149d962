#include "host/settings/Settings.h"

#include "host/instruments/ParameterTypes.h"
#include "host/support/InputError.h"
#include "interfaces/TriggerParameters.h"
#include "platform/Failure.h"
#include "platform/NumberText.h"
#include "support/TextNumbers.h"
#include "triggering/AdvancedTrig.h"
#include "triggering/SelectChannel.h"

namespace ko {

namespace {

// The channel: chosen in the dialog that the button opens, by its name, its address, or slot:channel

struct Channel {
    std::int32_t slot = -1, channel = -1;
    std::string name, address;

    [[nodiscard]] std::string text() const { return name.empty() ? address : name; }
    [[nodiscard]] std::string spelledAddress() const { return address; }
    [[nodiscard]] std::string indices() const { return std::to_string(slot) + ":" + std::to_string(channel); }
};

std::string attributeText(Driver& driver, std::int32_t slot, std::int32_t channel, std::int32_t number)
{
    const Value value = driver.ChannelAttribute(slot, channel, number);
    const auto* const text = std::get_if<std::string>(&value);
    return text ? *text : std::string();
}

/// Returns the channels that the dialog offers.
std::vector<Channel> channelsOf(const HeadlessPage& played)
{
    std::vector<Channel> channels;
    Driver* const driver = played.dynamicDriver();
    TriggerParameters* const trigger = driver ? driver->queryTriggerParameters() : nullptr;
    for (std::int32_t slot = 0; driver && slot < driver->GroupCount(); ++slot)
        for (std::int32_t channel = 0; channel < driver->ChannelCount(slot); ++channel)
            if (!trigger || trigger->CanTrigger(slot, channel))
                channels.push_back({slot, channel, attributeText(*driver, slot, channel, attribute::name),
                                    attributeText(*driver, slot, channel, attribute::address)});
    return channels;
}

Value channelChosen(const HeadlessPage& played)
{
    const Page& page = played.page();
    for (const Channel& channel : channelsOf(played))
        if (channel.slot == page.TriggerSlot && channel.channel == page.TriggerChannel)
            return channel.text();
    return {};
}

AllowedValues allowedChannels(const HeadlessPage& played)
{
    AllowedValues allowed;
    for (const Channel& channel : channelsOf(played))
        allowed.choices.push_back(channel.text());
    return allowed;
}

/// A name takes precedence over an equal address of another channel.
Channel channelNamed(const HeadlessPage& played, const std::string& value)
{
    const std::vector<Channel> channels = channelsOf(played);
    for (const auto spelling : {&Channel::text, &Channel::spelledAddress, &Channel::indices})
        for (const Channel& channel : channels)
            if ((channel.*spelling)() == value)
                return channel;
    return channels.at(choiceOf(allowedChannels(played).choices, value));
}

Request pickChannel(const HeadlessPage& played, const std::string& value)
{
    const Channel channel = channelNamed(played, value);
    const auto pick = [channel](HeadlessPage& at, SelectChannel& dialog) {
        ChannelSelector& selector = dialog.chsNavigate;
        const auto line = selector.lineOf(nullptr, channel.slot, channel.channel);
        at.give(line ? selector.userPicked({*line}) : Outcome::Inert);
        at.give(dialog.cmdOK.userClicked());
    };
    return {[pick](HeadlessPage& at) {
                at.answer(at.page().cmdChannel, [&](const DialogForms& dialogs) { pick(at, dialogs.selectChannel); });
            },
            channel.text()};
}

constexpr Need startOnTrigger{"start=trigger", &Page::optOnTrigger};

Setting channelSetting(const Page& page)
{
    Setting setting;
    setting.name = "trigger-channel";
    setting.label = labelText(page.lblChannel);
    setting.controls = {page.txtChannel.name()};
    setting.control = [](Page& shown) -> Control& { return shown.txtChannel; };
    setting.needs = Needs(&startOnTrigger, 1);
    setting.read = channelChosen;
    setting.allowed = allowedChannels;
    setting.write = pickChannel;
    return setting;
}

// Trigger parameters: rows of the grid

TriggerParameters& parametersOf(const HeadlessPage& played)
{
    return required(required(played.dynamicDriver()).queryTriggerParameters());
}

std::int32_t idOf(const Page& page, std::int32_t row)
{
    return toLong(page.grdParam.cell(row, Grid::idColumn).value, Locale{});
}

Value parameterHeld(const HeadlessPage& played, std::int32_t row)
{
    const Page& page = played.page();
    const Grid::Cell& cell = page.grdParam.cell(row, Grid::valueColumn);
    if (cell.style.control != CellStyle::Control::edit)
        return cell.value;
    const Value value =
        parametersOf(played).GetTriggerParamValue(page.TriggerSlot, page.TriggerChannel, idOf(page, row));
    return numberOf(value) ? value : Value(cell.value);
}

AllowedValues allowedForParameter(const HeadlessPage& played, std::int32_t row)
{
    const Page& page = played.page();
    const CellStyle& style = page.grdParam.cell(row, Grid::valueColumn).style;
    if (style.control == CellStyle::Control::list)
        return {style.choices, {}, {}};
    if (style.control == CellStyle::Control::check)
        return {{"False", "True"}, {}, {}};
    TriggerParameters& parameters = parametersOf(played);
    const std::int32_t slot = page.TriggerSlot, channel = page.TriggerChannel, id = idOf(page, row);
    const std::string type = parameters.GetTriggerParamType(slot, channel, id);
    if (type != "Float" && type != "Integer")
        return {};
    return {{},
            Range{parameters.GetTriggerParamMin(slot, channel, id), parameters.GetTriggerParamMax(slot, channel, id)},
            {}};
}

Request editCell(const HeadlessPage& played, std::int32_t row, const std::string& value)
{
    const AllowedValues allowed = allowedForParameter(played, row);
    const bool isCheck = played.page().grdParam.cell(row, Grid::valueColumn).style.control == CellStyle::Control::check;
    const auto checked = isCheck ? checkState(value) : std::nullopt;
    std::string text = checked ? allowed.choices.at(*checked ? 1 : 0) : value;
    if (!allowed.choices.empty())
        text = allowed.choices.at(choiceOf(allowed.choices, text));
    const auto number = allowed.range ? numberIn(text) : std::nullopt;
    return {[row, text](HeadlessPage& at) { at.give(at.page().grdParam.userEditedCell(row, text)); },
            number ? Value(*number) : Value(text)};
}

Setting parameterSetting(const Grid& grid, std::int32_t row)
{
    Setting setting;
    setting.label = grid.cell(row, Grid::nameColumn).value;
    setting.name = parameterPrefix + oneLine(setting.label);
    setting.control = [](Page& shown) -> Control& { return shown.grdParam; };
    setting.read = [row](const HeadlessPage& played) { return parameterHeld(played, row); };
    setting.allowed = [row](const HeadlessPage& played) { return allowedForParameter(played, row); };
    if (grid.isEditable(row))
        setting.write = [row](const HeadlessPage& played, const std::string& value) {
            return editCell(played, row, value);
        };
    return setting;
}

// Trigger lines: chosen in the dialog that the menu opens

struct Line {
    const char* name;
    int label; ///< in the string table
    AdvancedTrig::Options AdvancedTrig::*options;
    LineTrigger trigger;
};

constexpr Line lines[]{
    {"start-line", textNumber::lines::startTab, &AdvancedTrig::optStartTrig, LineTrigger::start},
    {"sync-line", textNumber::lines::syncTab, &AdvancedTrig::optScanTrig, LineTrigger::scan},
};

AllowedValues allowedLines(const Page& page, const Line& line)
{
    AllowedValues allowed;
    const LineMask& available = page.lines.available(line.trigger);
    for (std::size_t i = 0; i < available.size(); ++i)
        if (available[i])
            allowed.choices.push_back(std::to_string(i));
    return allowed;
}

Request chooseLine(const Page& page, const Line& line, const std::string& value)
{
    const std::string number = allowedLines(page, line).choices.at(choiceOf(allowedLines(page, line).choices, value));
    const std::int32_t chosen = toLong(number, Locale{});
    const auto choose = [line, chosen](HeadlessPage& at, AdvancedTrig& dialog) {
        at.give(dialog.tabTrigger.userChoseTab(static_cast<std::int32_t>(line.trigger)));
        at.give((dialog.*line.options).at(static_cast<std::size_t>(chosen))->userClicked());
        at.give(dialog.btnOK.userClicked());
    };
    return {[choose](HeadlessPage& at) {
                at.answer(at.page().mnuTimebaseTriggerLines,
                          [&](const DialogForms& dialogs) { choose(at, dialogs.advancedTrig); });
            },
            chosen};
}

Setting lineSetting(const Line& line, const HeadlessPage& shownOn)
{
    Setting setting;
    setting.name = line.name;
    setting.label = shownOn.text(line.label);
    setting.control = [](Page& shown) -> Control& { return shown.mnuTimebaseTriggerLines; };
    setting.read = [line](const HeadlessPage& played) {
        const std::int32_t chosen = played.page().lines.line(line.trigger);
        return chosen < 0 ? Value() : Value(chosen);
    };
    setting.allowed = [line](const HeadlessPage& played) { return allowedLines(played.page(), line); };
    setting.write = [line](const HeadlessPage& played, const std::string& value) {
        return chooseLine(played.page(), line, value);
    };
    return setting;
}

} // namespace

void addTriggerSettings(Settings& settings, const HeadlessPage& played)
{
    const Page& page = played.page();
    settings.push_back(channelSetting(page));
    if (page.grdParam.isShown())
        for (std::int32_t row = 1; row <= page.grdParam.rowCount(); ++row)
            settings.push_back(parameterSetting(page.grdParam, row));
    for (const Line& line : lines)
        settings.push_back(lineSetting(line, played));
}

} // namespace ko
