#include "host/settings/Settings.h"

#include "host/settings/OffersList.h"
#include "host/support/InputError.h"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>

namespace ko {

namespace {

std::vector<std::string> namesOf(const Settings& settings)
{
    std::vector<std::string> names;
    for (const Setting& setting : settings)
        names.push_back(setting.name);
    return names;
}

bool isNamed(const Setting& setting, const std::string& name)
{
    const auto& controls = setting.controls;
    return setting.name == name || std::find(controls.begin(), controls.end(), name) != controls.end();
}

Request requestOf(const Setting& setting, const HeadlessPage& played, const std::string& value)
{
    try {
        return setting.write(played, value);
    } catch (const std::exception& refusal) {
        throw Refusal(setting.name + ": " + refusal.what());
    }
}

/// Appends a number to each of several equal names, such as those of parameters that differ only in a line break, so
/// that every setting can be addressed.
void numberAlike(Settings& settings)
{
    std::map<std::string, int> uses;
    for (const Setting& setting : settings)
        ++uses[setting.name];
    for (Setting& setting : settings) {
        const std::string name = setting.name;
        if (uses[name] == 1)
            continue;
        for (int number = 1; uses[setting.name] > 0; ++number)
            setting.name = name + " (" + std::to_string(number) + ")";
        uses[setting.name] = 1;
    }
}

/// Appends a message that names the instruments that hold another value: some settings reach only the first one.
std::vector<std::string> withOthers(std::vector<std::string> messages, const Setting& setting,
                                    const HeadlessPage& played)
{
    constexpr std::size_t namedAtMost = 5;
    const auto others = differencesOf(played, setting.name);
    std::vector<std::string> named;
    for (const auto& other : others)
        if (named.size() < namedAtMost)
            named.push_back(shortLine(other.at("name")) + " (" + exactText(other.at("value")) + ")");
    if (others.size() > named.size())
        named.push_back("and " + std::to_string(others.size() - named.size()) + " more");
    if (!named.empty())
        messages.push_back(setting.name + ": differs in " + joined(named, ", "));
    return messages;
}

} // namespace

Settings settingsOf(const HeadlessPage& played)
{
    Settings settings;
    for (const auto add : {addSamplingSettings, addScheduleSettings, addTriggerSettings, addReadouts})
        add(settings, played);
    numberAlike(settings);
    return settings;
}

Setting settingNamed(const HeadlessPage& played, const std::string& name)
{
    const Settings settings = settingsOf(played);
    const auto found =
        std::find_if(settings.begin(), settings.end(), [&](const Setting& s) { return isNamed(s, name); });
    if (found != settings.end())
        return *found;
    const auto isParameter = [](const Setting& setting) { return setting.name.rfind(parameterPrefix, 0) == 0; };
    if (name.rfind(parameterPrefix, 0) == 0 && std::none_of(settings.begin(), settings.end(), isParameter))
        throw Refusal(name + ": not available: the page shows trigger parameters once start is trigger and a "
                             "trigger-channel with parameters is chosen");
    throw InputError(name + ": no such setting; " + suggestion(namesOf(settings), name));
}

Assignment assignmentIn(const HeadlessPage& played, const std::string& text)
{
    const std::size_t first = text.find('=');
    if (first == std::string::npos)
        throw InputError(text + ": --set needs NAME=VALUE");
    const Settings settings = settingsOf(played);
    for (std::size_t sign = text.rfind('='); sign > first; sign = text.rfind('=', sign - 1))
        for (const Setting& setting : settings)
            if (isNamed(setting, text.substr(0, sign)))
                return {setting, text.substr(sign + 1)};
    return {settingNamed(played, text.substr(0, first)), text.substr(first + 1)};
}

Value valueOf(const Setting& setting, const HeadlessPage& played)
{
    if (!setting.control(played.page()).isShown())
        throw Refusal(setting.name + ": not available: the page does not show it now");
    Value value;
    try {
        value = setting.read(played);
    } catch (const Failure& failure) {
        throw Refusal(setting.name + ": not available: " + failure.what());
    }
    if (isEmpty(value)) {
        const auto needed = missing(setting.needs, played.page());
        throw Refusal(setting.name +
                      ": not available: " + (needed.empty() ? "it has no value now" : needsText(needed)));
    }
    return value;
}

std::vector<std::string> set(const Setting& setting, HeadlessPage& played, const std::string& value)
{
    const auto refuse = [&](const std::string& why) { throw Refusal(setting.name + ": " + why); };
    if (!setting.write)
        refuse("can only be read");
    if (!setting.control(played.page()).isUsable()) {
        const auto needed = missing(setting.needs, played.page());
        refuse(needed.empty() ? "not available: the page does not let it be changed now" : needsAdvice(needed));
    }
    const Request request = requestOf(setting, played, value);
    const HeadlessPage::Reaction reaction = played.use(request.act);
    if (reaction.inert)
        refuse("not available: the page does not take \"" + value + "\" now");
    const Value kept = valueOf(setting, played);
    if (readsSame(kept, request.value))
        return withOthers(reaction.messages, setting, played);
    if (!reaction.messages.empty())
        refuse(joined(reaction.messages, "; "));
    return withOthers(
        {setting.name + ": asked " + settingText(request.value) + ", the instruments keep " + settingText(kept)},
        setting, played);
}

std::vector<std::string> missing(Needs needs, const Page& page)
{
    std::vector<std::string> assignments;
    for (const Need& need : needs) {
        if ((page.*need.option).value())
            continue;
        if (assignments.empty() && !(page.*need.option).isUsable())
            return {};
        assignments.emplace_back(need.assignment);
    }
    return assignments;
}

std::string needsText(const std::vector<std::string>& assignments)
{
    return "needs " + joined(assignments, " and ");
}

std::string needsAdvice(const std::vector<std::string>& assignments)
{
    return needsText(assignments) + " (add --set " + joined(assignments, " --set ") + " before it)";
}

std::string labelText(const CaptionControl& control)
{
    std::string text = control.caption();
    text.erase(std::remove(text.begin(), text.end(), '&'), text.end());
    return text.empty() || text.back() != ':' ? text : text.substr(0, text.size() - 1);
}

std::size_t choiceOf(const std::vector<std::string>& choices, const std::string& value)
{
    const auto number = numberIn(value);
    const auto found = std::find_if(choices.begin(), choices.end(), [&](const std::string& choice) {
        return choice == value || oneLine(choice) == value ||
               (number && numberIn(choice) && readsSame(*number, *numberIn(choice)));
    });
    if (found == choices.end())
        throw Refusal("\"" + value + "\" is not offered; " +
                      (choices.empty() ? "there is nothing to choose now" : "choose one of " + joined(choices, ", ")));
    return static_cast<std::size_t>(found - choices.begin());
}

} // namespace ko
