#include "page/Drivers.h"

#include "interfaces/TriggerParameters.h"
#include "platform/Failure.h"
#include "platform/NumberText.h"
#include "support/TextNumbers.h"

#include <limits>

namespace ko {

namespace {

std::int32_t narrowed(std::int64_t value)
{
    if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max())
        fail(failure::overflow);
    return static_cast<std::int32_t>(value);
}

std::string groupName(Driver& driver, std::int32_t group)
{
    try {
        return driver.GroupName(group);
    } catch (...) {
        return required(driver.queryTriggerParameters()).GetTriggerGroupName(group);
    }
}

std::vector<std::string> split(const std::string& text, char separator)
{
    std::vector<std::string> fields(1);
    for (const char c : text) {
        if (c == separator)
            fields.emplace_back();
        else
            fields.back() += c;
    }
    return fields;
}

std::string describeAddress(const std::string& address, const StringTable& strings)
{
    const std::vector<std::string> fields = split(address, ':');
    if (fields.size() < 2)
        return address;
    const std::size_t slot = fields.size() == 2 ? 0 : 1;
    std::string text;
    if (slot == 1)
        text = strings.text(textNumber::page::mainframe) + fields[0] + " ";
    return text + strings.text(textNumber::page::slot) + fields[slot] + " " + strings.text(textNumber::page::channel) +
           fields[slot + 1];
}

std::int32_t numberOfScans(Driver& driver)
{
    return required(driver.queryStaticMeasurement()).NumberOfScans();
}

} // namespace

bool isDynamicDriver(Driver& driver)
{
    return driver.MeasurementMode() == 1 && driver.SamplingMode() == 1;
}

bool countsAsDynamic(Driver& driver)
{
    try {
        return isDynamicDriver(driver);
    } catch (...) {
        return false;
    }
}

bool isEnabledValue(const Value& value)
{
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag;
    const auto* number = std::get_if<std::int32_t>(&value);
    return !number || *number != 0;
}

std::int32_t countEnabledChannels(Driver& driver)
{
    std::int32_t count = 0;
    const std::int32_t groups = driver.GroupCount();
    for (std::int32_t group = 0; group < groups; ++group) {
        const std::int32_t channels = driver.ChannelCount(group);
        for (std::int32_t channel = 0; channel < channels; ++channel)
            if (isEnabledValue(driver.ChannelAttribute(group, channel, attribute::enabled)))
                ++count;
    }
    return count;
}

double staticBytes(std::int32_t scans, std::int32_t channels)
{
    const std::int32_t bytesPerChannel = narrowed(std::int64_t{narrowed(4 * std::int64_t{scans})} + 230);
    const std::int32_t channelBytes = narrowed(std::int64_t{bytesPerChannel} * channels);
    return narrowed(std::int64_t{channelBytes} + 416);
}

double staticDriverBytes(Driver& driver)
{
    const std::int32_t scans = numberOfScans(driver);
    return staticBytes(scans, countEnabledChannels(driver));
}

double dynamicDriverBytes(Driver& driver)
{
    return required(driver.queryDynamicMeasurement()).DynamicBytes();
}

ByteTotals sumDriverBytes(Drivers drivers, const Driver* scanned)
{
    ByteTotals totals;
    totals.each.reserve(drivers.size());
    for (const auto& driver : drivers) {
        DriverFigures& found = totals.each.emplace_back();
        if (!driver)
            continue;
        try {
            found.isDynamic = countsAsDynamic(*driver);
            if (found.isDynamic) {
                found.bytes = dynamicDriverBytes(*driver);
                totals.dynamicBytes += *found.bytes;
                continue;
            }
            const std::int32_t scans = numberOfScans(*driver);
            if (driver.get() == scanned)
                totals.scans = scans;
            found.bytes = staticBytes(scans, countEnabledChannels(*driver));
            totals.staticBytes += *found.bytes;
        } catch (...) {
            continue;
        }
    }
    return totals;
}

std::string valueText(const Value& value, const Locale& locale)
{
    struct Text {
        const Locale& locale;
        std::string operator()(std::monostate) const { return {}; }
        std::string operator()(bool flag) const { return flag ? "True" : "False"; }
        std::string operator()(std::int32_t number) const { return std::to_string(number); }
        std::string operator()(double number) const { return numberText(number, locale); }
        std::string operator()(const std::string& text) const { return text; }
    };
    return std::visit(Text{locale}, value);
}

std::string describeChannel(Driver* driver, std::int32_t group, std::int32_t channel, bool raw,
                            const StringTable& strings, const Locale& locale)
{
    if (!driver)
        return {};
    if (group < 0)
        return driver->DriverName(0);
    if (channel < 0)
        return driver->DriverName(0) + " - " + groupName(*driver, group);
    const std::string name = valueText(driver->ChannelAttribute(group, channel, attribute::name), locale);
    if (!name.empty())
        return name;
    const std::string address = valueText(driver->ChannelAttribute(group, channel, attribute::address), locale);
    return raw ? address : describeAddress(address, strings);
}

} // namespace ko
