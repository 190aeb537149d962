#include "host/instruments/HostInstrument.h"

#include "host/instruments/ForeignCall.h"

#include <functional>
#include <numeric>

namespace ko {

namespace {

/// Returns a view of the driver; null if the query fails.
template <class View> View* viewOf(Instrument& instrument, View* (Driver::*query)())
{
    try {
        return (instrument.driver().*query)();
    } catch (...) {
        return nullptr;
    }
}

} // namespace

HostInstrument::HostInstrument(std::unique_ptr<Instrument> instrument)
    : instrument_(std::move(instrument)), device_(dynamic_cast<DeviceInstrument*>(instrument_.get()))
{
    for (const SimulatedFailure& failure : held().failing)
        calls_.fail(failure);
    if (!device_)
        return;
    calls_.failWith(device_->trouble());
    device_->exchanged = [this] { findViews(); };
}

InstrumentSettings HostInstrument::settings() const
{
    InstrumentSettings present = held();
    present.failing = calls_.failing();
    return present;
}

void HostInstrument::enableChannel(std::int32_t group, std::int32_t channel, bool enabled)
{
    InstrumentSettings changed = held();
    elementAt(elementAt(changed.groups, group).channels, channel).enabled = std::int32_t{enabled};
    take(changed);
}

void HostInstrument::take(const InstrumentSettings& settings)
{
    try {
        foreignCall([&] { instrument_->restore(settings); });
    } catch (const Failure&) {
        findViews();
        throw;
    }
    findViews();
}

void HostInstrument::openDevice()
{
    if (device_)
        device_->open();
}

bool HostInstrument::reopenDevice()
{
    if (!device_)
        return false;
    device_->reopen();
    return trouble().empty();
}

void HostInstrument::closeDevice()
{
    if (device_)
        device_->close();
}

/// A call in progress goes on with the views of the device that is open now.
void HostInstrument::findViews()
{
    if (!device_)
        return;
    queryTimebase();
    queryTriggerParameters();
    queryTriggerLines();
}

std::int32_t HostInstrument::GroupCount()
{
    return calls_.read(Operation::GroupCount, {}, [&] { return instrument_->driver().GroupCount(); });
}

std::int32_t HostInstrument::ChannelCount(std::int32_t group)
{
    return calls_.read(Operation::ChannelCount, {group}, [&] { return instrument_->driver().ChannelCount(group); });
}

Value HostInstrument::ChannelAttribute(std::int32_t group, std::int32_t channel, std::int32_t attribute)
{
    return calls_.read(Operation::ChannelAttribute, {group, channel, attribute},
                       [&] { return instrument_->driver().ChannelAttribute(group, channel, attribute); });
}

std::int32_t HostInstrument::MeasurementMode()
{
    return calls_.read(Operation::MeasurementMode, {}, [&] { return instrument_->driver().MeasurementMode(); });
}

std::int32_t HostInstrument::SamplingMode()
{
    return calls_.read(Operation::SamplingMode, {}, [&] { return instrument_->driver().SamplingMode(); });
}

/// The set-up names its instruments, whatever a device is called.
std::string HostInstrument::DriverName(std::int32_t form)
{
    return calls_.read(Operation::DriverName, {form}, [&] { return name(); });
}

std::string HostInstrument::GroupName(std::int32_t group)
{
    return calls_.read(Operation::GroupName, {group}, [&] { return instrument_->driver().GroupName(group); });
}

Timebase* HostInstrument::queryTimebase()
{
    return timebase_.over(viewOf(*instrument_, &Driver::queryTimebase));
}

TriggerParameters* HostInstrument::queryTriggerParameters()
{
    return parameters_.over(viewOf(*instrument_, &Driver::queryTriggerParameters));
}

TriggerLines* HostInstrument::queryTriggerLines()
{
    return lines_.over(viewOf(*instrument_, &Driver::queryTriggerLines));
}

StaticMeasurement* HostInstrument::queryStaticMeasurement()
{
    return viewOf(*instrument_, &Driver::queryStaticMeasurement) ? this : nullptr;
}

DynamicMeasurement* HostInstrument::queryDynamicMeasurement()
{
    return viewOf(*instrument_, &Driver::queryDynamicMeasurement) ? this : nullptr;
}

std::int32_t HostInstrument::NumberOfScans()
{
    return calls_.read(Operation::NumberOfScans, {},
                       [&] { return required(instrument_->driver().queryStaticMeasurement()).NumberOfScans(); });
}

double HostInstrument::DynamicBytes()
{
    return calls_.read(Operation::DynamicBytes, {},
                       [&] { return required(instrument_->driver().queryDynamicMeasurement()).DynamicBytes(); });
}

int timesOpened(const HostInstruments& instruments)
{
    return std::transform_reduce(instruments.begin(), instruments.end(), 0, std::plus<>(),
                                 [](const auto& instrument) { return instrument->timesOpened(); });
}

} // namespace ko
