#include "host/settings/Settings.h"

#include "page/Timebases.h"
#include "platform/DateTimes.h"
#include "platform/NumberText.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace ko {

namespace {

// Start and stop: a choice of options

struct Option {
    const char* word;
    OptionButton Page::*button;
};

constexpr std::array startOptions{Option{"immediately", &Page::optImmediate}, Option{"trigger", &Page::optOnTrigger},
                                  Option{"time", &Page::optStartTime}};
constexpr std::array stopOptions{Option{"after", &Page::optAfter}, Option{"time", &Page::optStopTime}};
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
            return option.word;
    return {};
}

Request clickOption(Options options, const Page& page, const std::string& value)
{
    choiceOf(wordsOf(options, page), value);
    const auto option = std::find_if(options.begin(), options.end(), [&](const Option& o) { return o.word == value; });
    return {{"click " + (page.*option->button).name()}, value};
}

Setting optionSetting(const char* name, Options options, Frame Page::*frame, const Page& page)
{
    Setting setting;
    setting.name = name;
    setting.label = labelText(page.*frame);
    setting.control = [frame](Page& shown) -> Control& { return shown.*frame; };
    setting.read = [options](const PlayedPage& played) { return selected(options, played.page()); };
    setting.offer = [options](const PlayedPage& played) { return Offer{wordsOf(options, played.page()), {}}; };
    setting.write = [options](const PlayedPage& played, const std::string& value) {
        return clickOption(options, played.page(), value);
    };
    return setting;
}

// Times: picked in the dialog behind the box

struct TimeBox {
    const char* name;
    TextBox Page::*box;
    CommandButton Page::*button;
    OptionButton Page::*option;
};

constexpr std::array timeBoxes{
    TimeBox{"start-time", &Page::txtStartTime, &Page::cmdStartTime, &Page::optStartTime},
    TimeBox{"stop-time", &Page::txtStopTime, &Page::cmdStopTime, &Page::optStopTime},
};

Value timeShown(const std::string& text)
{
    const auto time = timeIn(text);
    return time ? Value(isoText(*time)) : Value();
}

Request pickTime(const Page& page, const TimeBox& times, const std::string& value)
{
    const auto time = timeIn(value);
    if (!time)
        throw Refusal("\"" + value + "\" is no time such as 2026-11-21T09:30:00 or 09:30:00");
    if (!time->hasDate() && !isTimeOfDay(value))
        throw Refusal("\"" + value + "\" is too early: the first day that can be chosen is 1899-12-31");
    const std::string iso = isoText(*time);
    std::vector<std::string> script{"dialog SetDateTime"};
    if (time->hasDate()) {
        script.insert(script.end(), {"click optSpecifiedDay", "text calDate " + iso.substr(0, iso.find('T'))});
    } else {
        script.emplace_back("click optCurrentDay");
    }
    const std::string clock = iso.substr(time->hasDate() ? iso.find('T') + 1 : 0);
    script.insert(script.end(),
                  {"text dtpTimeSelector " + clock, "click btnOK", "end", "click " + (page.*times.button).name()});
    return {script, iso};
}

Setting timeSetting(const TimeBox& times, const Page& page)
{
    Setting setting;
    setting.name = times.name;
    setting.label = labelText(page.*times.option);
    setting.controls = {(page.*times.box).name()};
    setting.control = [times](Page& shown) -> Control& { return shown.*times.box; };
    setting.read = [times](const PlayedPage& played) { return timeShown((played.page().*times.box).text()); };
    setting.write = [times](const PlayedPage& played, const std::string& value) {
        return pickTime(played.page(), times, value);
    };
    return setting;
}

// The duration, in a unit of the page's list

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
    if (unit == units.end() || end == std::string::npos)
        throw Refusal("\"" + value + "\" is no duration such as 90 s, 5 min, 1.5 h or 2 d");
    const std::size_t last = value.find_last_not_of(' ', end);
    return {value.substr(0, last == std::string::npos ? 0 : last + 1), unit->seconds};
}

std::size_t entryOf(const ComboBox& list, std::int32_t seconds)
{
    const auto found = std::find_if(list.items().begin(), list.items().end(),
                                    [&](const ComboBox::Item& item) { return item.itemData == seconds; });
    return static_cast<std::size_t>(found - list.items().begin());
}

/// Number and unit in the order in which the duration between them is not longer than both: the page refuses what
/// becomes too large at once.
Request enterDuration(const Page& page, const std::string& value)
{
    const Amount amount = amountIn(value);
    const std::string choose = "choose cmbInterval #" + std::to_string(entryOf(page.cmbInterval, amount.unit));
    std::vector<std::string> script{"focus txtDuration", "text txtDuration " + quotedWord(amount.number), "leave"};
    script.insert(amount.unit < page.cmbInterval.itemData() ? script.begin() : script.end(), choose);
    const auto number = numberIn(amount.number);
    return {script, number ? Value(*number * amount.unit) : Value(value)};
}

Value durationHeld(const PlayedPage& played)
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
    setting.write = [](const PlayedPage& played, const std::string& value) {
        return enterDuration(played.page(), value);
    };
    return setting;
}

} // namespace

void addScheduleSettings(Settings& settings, const PlayedPage& played)
{
    const Page& page = played.page();
    settings.push_back(optionSetting("start", startOptions, &Page::frmStart, page));
    settings.push_back(timeSetting(timeBoxes[0], page));
    settings.push_back(optionSetting("stop", stopOptions, &Page::frmStop, page));
    settings.push_back(timeSetting(timeBoxes[1], page));
    settings.push_back(durationSetting(page));
}

} // namespace ko
