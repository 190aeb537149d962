#include "host/instruments/GatedViews.h"

#include <utility>

namespace ko {

void GatedTimebase::setSamplePeriod(double seconds)
{
    set(Operation::SamplePeriodSet, seconds, &Timebase::setSamplePeriod, &Timebase::SamplePeriod);
}

double GatedTimebase::SamplePeriod()
{
    return get(Operation::SamplePeriodGet, &Timebase::SamplePeriod);
}

void GatedTimebase::setBlockSize(double samples)
{
    set(Operation::BlockSizeSet, samples, &Timebase::setBlockSize, &Timebase::BlockSize);
}

double GatedTimebase::BlockSize()
{
    return get(Operation::BlockSizeGet, &Timebase::BlockSize);
}

void GatedTimebase::setScanPeriod(double seconds)
{
    set(Operation::ScanPeriodSet, seconds, &Timebase::setScanPeriod, &Timebase::ScanPeriod);
}

double GatedTimebase::ScanPeriod()
{
    return get(Operation::ScanPeriodGet, &Timebase::ScanPeriod);
}

/// A call that fails counts as asked, too.
std::vector<double> GatedTimebase::rangedList(Operation operation, List list)
{
    missed_ = list;
    return calls_.read(operation, {}, [&] { return (required(view_).*std::exchange(missed_, nullptr))(); });
}

std::vector<double> GatedTimebase::SampleChoiceList()
{
    return rangedList(Operation::SampleChoiceList, &Timebase::SampleChoiceList);
}

std::vector<double> GatedTimebase::BlockSizeChoiceList()
{
    return get(Operation::BlockSizeChoiceList, &Timebase::BlockSizeChoiceList);
}

Range GatedTimebase::BlockSizeRange()
{
    return get(Operation::BlockSizeRange, &Timebase::BlockSizeRange);
}

std::vector<double> GatedTimebase::ScanChoiceList()
{
    return rangedList(Operation::ScanChoiceList, &Timebase::ScanChoiceList);
}

Range GatedTimebase::ChoiceRange()
{
    return calls_.read(Operation::ChoiceRange, {}, [&] {
        if (missed_)
            static_cast<void>((required(view_).*std::exchange(missed_, nullptr))());
        return required(view_).ChoiceRange();
    });
}

DateTime GatedTimebase::StartTime()
{
    return get(Operation::StartTimeGet, &Timebase::StartTime);
}

void GatedTimebase::setStartTime(DateTime time)
{
    set(Operation::StartTimeSet, time, &Timebase::setStartTime, &Timebase::StartTime);
}

float GatedTimebase::Duration()
{
    return get(Operation::DurationGet, &Timebase::Duration);
}

void GatedTimebase::setDuration(float seconds)
{
    set(Operation::DurationSet, seconds, &Timebase::setDuration, &Timebase::Duration);
}

std::int32_t GatedTimebase::StopMode()
{
    return get(Operation::StopModeGet, &Timebase::StopMode);
}

void GatedTimebase::setStopMode(std::int32_t mode)
{
    set(Operation::StopModeSet, mode, &Timebase::setStopMode, &Timebase::StopMode);
}

std::int32_t GatedTimebase::StartMode()
{
    return get(Operation::StartModeGet, &Timebase::StartMode);
}

void GatedTimebase::setStartMode(std::int32_t mode)
{
    set(Operation::StartModeSet, mode, &Timebase::setStartMode, &Timebase::StartMode);
}

} // namespace ko
