#include "host/settings/Settings.h"

#include "page/Timebases.h"
#include "platform/DateTimes.h"
#include "platform/NumberText.h"
#include "schedule/SetDateTime.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace ko {

namespace {

// Start and stop: option buttons

constexpr std::array stopTimeNeeds{Need{"start=time", &Page::optStartTime}, Need{"stop=time", &Page::optStopTime}};
constexpr Needs startAtTime(stopTimeNeeds.data(), 1);

struct Option {
    const char* word;
    OptionButton Page::*button;
    Needs needs{};
};

constexpr std::array startOptions{Option{"immediately", &Page::optImmediate}, Option{"trigger", &Page::optOnTrigger},
                                  Option{"time", &Page::optStartTime}};
constexpr std::array stopOptions{Option{"after", &Page::optAfter}, Option{"time", &Page::optStopTime, startAtTime}};
using Options = std::span<const Option>;

std::vector<std::string> wordsOf(Options options, const Page& page)
{
    std::vector<std::string> words;
    for (const Option& option : options)
        if ((page.*option.button).isUsable())
            words.emplace_back(option.word);
    return words;
}

Value selected(Options options, const Page& page)
{
    for (const Option& option : options)
        if ((page.*option.button).value())
            return std::string(option.word);
    return {};
}

Request clickOption(Options options, const Page& page, const std::string& value)
{
    const auto option = std::find_if(options.begin(), options.end(), [&](const Option& o) { return o.word == value; });
    if (option != options.end() && !(page.*option->button).isUsable())
        if (const auto needed = missing(option->needs, page); !needed.empty())
            throw Refusal(value + " " + needsAdvice(needed));
    choiceOf(wordsOf(options, page), value);
    return {[button = option->button](HeadlessPage& at) { at.give((at.page().*button).userClicked()); }, value};
}

Setting optionSetting(const char* name, Options options, Frame Page::*frame, const Page& page)
{
    Setting setting;
    setting.name = name;
    setting.label = labelText(page.*frame);
    setting.control = [frame](Page& shown) -> Control& { return shown.*frame; };
    setting.read = [options](const HeadlessPage& played) { return selected(options, played.page()); };
    setting.allowed = [options](const HeadlessPage& played) {
        return AllowedValues{wordsOf(options, played.page()), {}, {}};
    };
    setting.write = [options](const HeadlessPage& played, const std::string& value) {
        return clickOption(options, played.page(), value);
    };
    return setting;
}

// Times: chosen in the dialog that the box's button opens

struct TimeBox {
    const char* name;
    TextBox Page::*box;
    CommandButton Page::*button;
    OptionButton Page::*option;
    Needs needs;
};

constexpr std::array timeBoxes{
    TimeBox{"start-time", &Page::txtStartTime, &Page::cmdStartTime, &Page::optStartTime, startAtTime},
    TimeBox{"stop-time", &Page::txtStopTime, &Page::cmdStopTime, &Page::optStopTime, stopTimeNeeds},
};

const std::string timeForms = "2026-11-21T09:30:00 or 09:30:00";

Value timeShown(const std::string& text)
{
    const auto time = timeIn(text);
    return time ? Value(isoText(*time)) : Value();
}

void choose(HeadlessPage& at, SetDateTime& dialog, DateTime time)
{
    const DateParts parts = dateParts(time);
    if (time.hasDate()) {
        at.give(dialog.optSpecifiedDay.userClicked());
        at.give(dialog.calDate.userChose(parts.year, parts.month, parts.day));
    } else {
        at.give(dialog.optCurrentDay.userClicked());
    }
    at.give(dialog.dtpTimeSelector.userChose(parts.hour, parts.minute, parts.second));
    at.give(dialog.btnOK.userClicked());
}

Request pickTime(const TimeBox& times, const std::string& value)
{
    const auto time = timeIn(value);
    if (!time)
        throw Refusal("\"" + value + "\" is not a time; write " + timeForms);
    if (!time->hasDate() && !isTimeOfDay(value))
        throw Refusal("\"" + value + "\" is too early: the first day that can be chosen is 1899-12-31");
    return {[times, time = *time](HeadlessPage& at) {
                at.answer(at.page().*times.button,
                          [&](const DialogForms& dialogs) { choose(at, dialogs.setDateTime, time); });
            },
            isoText(*time)};
}

Setting timeSetting(const TimeBox& times, const Page& page)
{
    Setting setting;
    setting.name = times.name;
    setting.label = labelText(page.*times.option);
    setting.controls = {(page.*times.box).name()};
    setting.control = [times](Page& shown) -> Control& { return shown.*times.box; };
    setting.needs = times.needs;
    setting.read = [times](const HeadlessPage& played) { return timeShown((played.page().*times.box).text()); };
    setting.allowed = [](const HeadlessPage& /*played*/) { return AllowedValues{{}, {}, timeForms}; };
    setting.write = [times](const HeadlessPage& /*played*/, const std::string& value) {
        return pickTime(times, value);
    };
    return setting;
}

// Duration: a number, and a unit of the page's list

struct Unit {
    const char* word;
    std::int32_t seconds;
};

constexpr std::array units{Unit{"", 1},         Unit{"s", 1},        Unit{"seconds", 1},
                           Unit{"min", 60},     Unit{"minutes", 60}, Unit{"h", 3600},
                           Unit{"hours", 3600}, Unit{"d", 86400},    Unit{"days", 86400}};

struct Amount {
    std::string number;
    std::int32_t unit = 1; ///< seconds
};

Amount amountIn(const std::string& value)
{
    const std::size_t end = value.find_last_not_of("abcdefghijklmnopqrstuvwxyz");
    const std::string word = end == std::string::npos ? value : value.substr(end + 1);
    const auto unit = std::find_if(units.begin(), units.end(), [&](const Unit& u) { return u.word == word; });
    const std::string number = value.substr(0, value.find_last_not_of(' ', end) + 1);
    if (unit == units.end() || !numberIn(number))
        throw Refusal("\"" + value + "\" is not a duration; write 90 s, 5 min, 1.5 h or 2 d");
    return {number, unit->seconds};
}

std::int32_t entryOf(const ComboBox& list, std::int32_t seconds)
{
    const auto found = std::find_if(list.items().begin(), list.items().end(),
                                    [&](const ComboBox::Item& item) { return item.itemData == seconds; });
    return static_cast<std::int32_t>(found - list.items().begin());
}

/// Enters number and unit in the order in which the intermediate duration is no longer than the old and the new one, as
/// the page would refuse one beyond the limit.
Request enterDuration(const Page& page, const std::string& value)
{
    const Amount amount = amountIn(value);
    const auto chooseUnit = [entry = entryOf(page.cmbInterval, amount.unit)](HeadlessPage& at) {
        at.give(at.page().cmbInterval.userChose(entry));
    };
    const auto enterNumber = [text = amount.number](HeadlessPage& at) { at.enter(at.page().txtDuration, text); };
    const bool isUnitFirst = amount.unit < page.cmbInterval.itemData();
    const auto number = numberIn(amount.number);
    return {[=](HeadlessPage& at) {
                if (isUnitFirst)
                    chooseUnit(at);
                enterNumber(at);
                if (!isUnitFirst)
                    chooseUnit(at);
            },
            number ? Value(*number * amount.unit) : Value(value)};
}

Value durationHeld(const HeadlessPage& played)
{
    const IndexedTimebase first = firstTimebase(played.page().currentDrivers());
    return first ? Value(widen(first.timebase->Duration())) : Value();
}

Setting durationSetting(const Page& page)
{
    Setting setting;
    setting.name = "duration";
    setting.label = labelText(page.optAfter);
    setting.unit = "s";
    setting.controls = {page.txtDuration.name()};
    setting.control = [](Page& shown) -> Control& { return shown.txtDuration; };
    setting.read = durationHeld;
    setting.allowed = [](const HeadlessPage&) { return AllowedValues{{}, {}, "0 or more; s, min, h, d"}; };
    setting.write = [](const HeadlessPage& played, const std::string& value) {
        return enterDuration(played.page(), value);
    };
    return setting;
}

} // namespace

void addScheduleSettings(Settings& settings, const HeadlessPage& played)
{
    const Page& page = played.page();
    settings.push_back(optionSetting("start", startOptions, &Page::frmStart, page));
    settings.push_back(timeSetting(timeBoxes[0], page));
    settings.push_back(optionSetting("stop", stopOptions, &Page::frmStop, page));
    settings.push_back(timeSetting(timeBoxes[1], page));
    settings.push_back(durationSetting(page));
}

} // namespace ko
