#include "host/setup/SetupFile.h"

#include "host/instruments/SimulatedInstrument.h"
#include "host/setup/SetupReader.h"
#include "host/support/InputError.h"
#include "platform/DateTimes.h"
#include "platform/Failure.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>
#include <unordered_set>

namespace ko {

std::string clockText(DateTime time)
{
    const DateParts parts = dateParts(time);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", parts.year, parts.month, parts.day, parts.hour,
                  parts.minute, parts.second);
    return text;
}

std::optional<DateTime> readClockTime(const std::string& text)
{
    try {
        const DateTime time = toDateTime(text, Locale{});
        return time.hasDate() ? std::optional(time) : std::nullopt;
    } catch (const Failure&) {
        return std::nullopt;
    }
}

Setup parseSetup(const std::string& text, const std::string& file)
{
    const JsonValue json = parseJson(text, file);
    try {
        return readSetup(json);
    } catch (const JsonRefusal& refusal) {
        const JsonPlace place = placeOf(refusal.value(), json);
        throw InputError(file, lineAt(text, place.begin), place.path + refusal.what());
    }
}

Setup loadSetup(const std::string& file)
{
    return parseSetup(readFile(file), file);
}

void refuseDevice(const std::string& file, Pipes pipes)
{
    using std::filesystem::file_type;
    std::error_code unknown;
    const file_type type = std::filesystem::status(file, unknown).type();
    if (type == file_type::directory)
        throw InputError(file + ": is a folder");
    const bool isPipe = type == file_type::fifo && pipes == Pipes::Refused;
    if (isPipe || type == file_type::block || type == file_type::character || type == file_type::socket)
        throw InputError(file + ": is no file");
}

std::ifstream openFile(const std::string& file)
{
    refuseDevice(file);
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw InputError(file + ": cannot be opened: " + std::generic_category().message(errno));
    return stream;
}

std::string readFile(const std::string& file)
{
    std::ifstream stream = openFile(file);
    std::ostringstream content;
    if (stream.peek() != std::ifstream::traits_type::eof())
        content << stream.rdbuf();
    if (stream.bad() || !content)
        throw InputError(file + ": cannot be read");
    return content.str();
}

std::shared_ptr<HostInstrument> makeInstrument(const InstrumentSettings& settings,
                                               const std::shared_ptr<DeviceSource>& devices)
{
    if (settings.module.empty())
        return std::make_shared<HostInstrument>(std::make_unique<SimulatedInstrument>(settings));
    return std::make_shared<HostInstrument>(std::make_unique<DeviceInstrument>(settings, devices));
}

HostInstruments makeDrivers(const Setup& setup, const std::shared_ptr<DeviceSource>& devices)
{
    HostInstruments drivers;
    for (const InstrumentSettings& settings : setup.instruments)
        drivers.push_back(makeInstrument(settings, devices));
    for (const auto& driver : drivers)
        driver->openDevice();
    return drivers;
}

void exchange(HostInstruments& list, HostInstruments instead)
{
    using Set = std::unordered_set<std::shared_ptr<HostInstrument>>;
    const Set before(list.begin(), list.end()), kept(instead.begin(), instead.end());
    for (const auto& instrument : list)
        if (!kept.contains(instrument))
            instrument->closeDevice();
    list = std::move(instead);
    for (const auto& instrument : list)
        if (!before.contains(instrument))
            instrument->openDevice();
}

} // namespace ko
