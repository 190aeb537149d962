#include "host/settings/SettingsList.h"

#include "host/instruments/ParameterTypes.h"
#include "host/settings/OffersList.h"
#include "host/setup/SetupWriter.h"
#include "host/support/InputError.h"
#include "platform/Utf8.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <nlohmann/json.hpp>

namespace ko {

namespace {

using Json = nlohmann::ordered_json;

/// Returns none if the page does not show the setting or its value.
Value presentValue(const Setting& setting, const HeadlessPage& played)
{
    try {
        return valueOf(setting, played);
    } catch (const Refusal&) {
        return {};
    }
}

/// Returns none if an instrument fails.
AllowedValues allowedNow(const Setting& setting, const HeadlessPage& played)
{
    try {
        return setting.allowedOn(played);
    } catch (const std::exception&) {
        return {};
    }
}

bool canBeSet(const Setting& setting, const HeadlessPage& played)
{
    return setting.write && setting.control(played.page()).isUsable();
}

/// A missing bound is reported as the limit of its type.
bool isBound(double value)
{
    constexpr double endless = 1e30;
    return std::abs(value) < endless;
}

Json boundJson(double value)
{
    return isBound(value) ? Json(value) : Json();
}

std::string rangeText(const Range& range)
{
    if (isBound(range.minimum) && isBound(range.maximum))
        return exactText(range.minimum) + " to " + exactText(range.maximum);
    if (isBound(range.minimum))
        return "at least " + exactText(range.minimum);
    return isBound(range.maximum) ? "at most " + exactText(range.maximum) : "";
}

std::string choicesText(const std::vector<std::string>& choices, const std::string& name)
{
    constexpr std::size_t most = 12;
    std::string text;
    for (std::size_t i = 0; i < std::min(choices.size(), most); ++i)
        text += (i == 0 ? "" : ", ") + choices[i];
    if (choices.size() > most)
        text += ", ... (" + std::to_string(choices.size()) + " in all: --choices " + name + ")";
    return text;
}

/// Describes the values of a setting without choices.
std::string formText(const AllowedValues& allowed)
{
    return allowed.range ? rangeText(*allowed.range) : allowed.form;
}

std::string unavailableText(const Setting& setting, const Page& page)
{
    const auto needed = missing(setting.needs, page);
    return "(" + (needed.empty() ? "not available now" : needsText(needed)) + ")";
}

std::string offerText(const Setting& setting, const HeadlessPage& played)
{
    if (!setting.write)
        return "(read-only)";
    if (!canBeSet(setting, played))
        return unavailableText(setting, played.page());
    const AllowedValues allowed = allowedNow(setting, played);
    return allowed.choices.empty() ? formText(allowed) : choicesText(allowed.choices, setting.name);
}

constexpr std::size_t columns = 4;
using Row = std::array<std::string, columns>;

std::string line(const Row& row, const std::array<std::size_t, columns>& widths)
{
    std::string text;
    for (std::size_t i = 0; i < row.size(); ++i)
        text += row.at(i) + std::string(widths.at(i) - utf8Length(row.at(i)) + 2, ' ');
    return text.substr(0, text.find_last_not_of(' ') + 1) + '\n';
}

std::string table(const std::vector<Row>& rows)
{
    std::array<std::size_t, columns> widths{};
    for (const Row& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            widths.at(i) = std::max(widths.at(i), utf8Length(row.at(i)));
    std::string text;
    for (const Row& row : rows)
        text += line(row, widths);
    return text;
}

Json choicesJson(const std::vector<std::string>& choices, bool asNumbers)
{
    Json result = Json::array();
    for (const std::string& choice : choices) {
        const auto number = asNumbers ? numberIn(choice) : std::nullopt;
        result.push_back(number ? Json(*number) : Json(choice));
    }
    return result;
}

Json settingJson(const Setting& setting, const HeadlessPage& played)
{
    const Value value = presentValue(setting, played);
    const AllowedValues allowed = allowedNow(setting, played);
    Json json{{"name", setting.name},
              {"label", setting.label},
              {"value", toJson(callValue(value))},
              {"readOnly", !setting.write},
              {"canBeSet", canBeSet(setting, played)}};
    if (!setting.unit.empty())
        json["unit"] = setting.unit;
    if (!allowed.choices.empty())
        json["choices"] = choicesJson(allowed.choices, numberOf(value).has_value());
    if (allowed.range)
        json["range"] = {{"minimum", boundJson(allowed.range->minimum)},
                         {"maximum", boundJson(allowed.range->maximum)}};
    if (Json offers = offersOf(played, setting.name); !offers.is_null())
        json["offers"] = std::move(offers);
    if (Json differences = differencesOf(played, setting.name); !differences.empty())
        json["differs"] = std::move(differences);
    return json;
}

} // namespace

Settings settableOnes(const HeadlessPage& played)
{
    Settings settings = settingsOf(played);
    std::erase_if(settings, [&](const Setting& setting) { return !canBeSet(setting, played); });
    return settings;
}

std::string settingsTable(const Settings& settings, const HeadlessPage& played)
{
    std::vector<Row> rows{{"NAME", "VALUE", "UNIT", "CAN BE SET TO"}};
    for (const Setting& setting : settings) {
        const Value value = presentValue(setting, played);
        rows.push_back({shortLine(setting.name), isEmpty(value) ? "-" : shortLine(settingText(value)),
                        shortLine(setting.unit), shortLine(offerText(setting, played))});
    }
    return table(rows);
}

Json settingsJson(const Settings& settings, const HeadlessPage& played)
{
    Json list = Json::array();
    for (const Setting& setting : settings)
        list.push_back(settingJson(setting, played));
    return list;
}

std::string settingNames(const Settings& settings)
{
    std::string names;
    for (const Setting& setting : settings)
        names += setting.name + '\n';
    return names;
}

Choices settingChoices(const HeadlessPage& played, const std::string& name)
{
    const Setting setting = settingNamed(played, name);
    if (!setting.write)
        throw Refusal(setting.name + ": can only be read");
    const AllowedValues allowed = allowedNow(setting, played);
    Choices choices;
    for (const std::string& choice : allowed.choices)
        choices.lines += oneLine(choice) + '\n';
    if (const std::string form = formText(allowed); allowed.choices.empty() && !form.empty())
        choices.note = setting.name + ": " + form;
    return choices;
}

} // namespace ko
