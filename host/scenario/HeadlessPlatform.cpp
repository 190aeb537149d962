#include "host/scenario/HeadlessPlatform.h"

#include "platform/DateTimes.h"
#include "platform/Failure.h"

#include <ctime>
#include <utility>

namespace ko {

void LoggedMessageBox::show(const std::string& text, const std::string& title, int style)
{
    log_.event("message", {{"text", text}, {"title", title}, {"style", style}});
    if (during_.empty())
        return;
    const auto act = std::move(during_.front());
    during_.pop_front();
    act();
}

std::int32_t SimulatedPrinters::count()
{
    return static_cast<std::int32_t>(printers_.size());
}

SimulatedPrinters::Printer& SimulatedPrinters::at(std::int32_t index)
{
    if (index < 0 || index >= count())
        fail(failure::subscriptOutOfRange);
    return printers_[static_cast<std::size_t>(index)];
}

std::string SimulatedPrinters::deviceName(std::int32_t index)
{
    return at(index).name;
}

void SimulatedPrinters::makeCurrent(std::int32_t index)
{
    at(index);
    current_ = static_cast<std::size_t>(index);
}

void SimulatedPrinters::printForm(const Form&)
{
    hasJob_ = true;
}

void SimulatedPrinters::endDocument()
{
    if (!std::exchange(hasJob_, false))
        return;
    const DeviceMode& mode = settings();
    log_.event("print", {{"printer", printers_[current_].name},
                         {"copies", mode.copies},
                         {"color", mode.color},
                         {"duplex", mode.duplex},
                         {"orientation", mode.orientation},
                         {"paper", mode.paperSize},
                         {"quality", mode.printQuality}});
}

DateTime StandingClock::now()
{
    if (time)
        return *time;
    const std::time_t seconds = std::time(nullptr);
    std::tm local{};
    localtime_r(&seconds, &local);
    const DateTime day = dateSerial(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
    return {day.days + timeSerial(local.tm_hour, local.tm_min, local.tm_sec).days};
}

void LoggedErrors::ReportError(std::int32_t number, const std::string& source, const std::string& description,
                               std::int32_t, const std::string&, bool)
{
    log_.event("report", {{"number", number}, {"source", source}, {"description", description}});
}

void LoggedStatusSite::ShowHint(const std::string& hint, const std::string& caption)
{
    log_.event("hint", {{"text", hint}, {"caption", caption}});
}

void LoggedHelpSite::ShowHelpTopic(std::int32_t topic)
{
    log_.event("help", {{"topic", topic}});
}

void LoggedChanges::OnChanged()
{
    log_.event("changed");
}

} // namespace ko
