#include "host/instruments/SimulatedViews.h"

#include <cmath>

namespace ko {

void SimulatedTimebase::setSamplePeriod(double seconds)
{
    calls_.write(Operation::SamplePeriodSet, {}, seconds, [&] { return settings_.samplePeriod.request(seconds); });
}

double SimulatedTimebase::SamplePeriod()
{
    return calls_.read(Operation::SamplePeriodGet, {}, [&] { return settings_.samplePeriod.value; });
}

void SimulatedTimebase::setBlockSize(double samples)
{
    calls_.write(Operation::BlockSizeSet, {}, samples, [&] { return settings_.blockSize.request(samples); });
}

double SimulatedTimebase::BlockSize()
{
    return calls_.read(Operation::BlockSizeGet, {}, [&] { return settings_.blockSize.value; });
}

void SimulatedTimebase::setScanPeriod(double seconds)
{
    calls_.write(Operation::ScanPeriodSet, {}, seconds, [&] { return settings_.scanPeriod.request(seconds); });
}

double SimulatedTimebase::ScanPeriod()
{
    return calls_.read(Operation::ScanPeriodGet, {}, [&] { return settings_.scanPeriod.value; });
}

std::vector<double> SimulatedTimebase::SampleChoiceList()
{
    listAskedLast_ = &settings_.samplePeriod;
    return calls_.read(Operation::SampleChoiceList, {}, [&] { return settings_.samplePeriod.choices; });
}

std::vector<double> SimulatedTimebase::BlockSizeChoiceList()
{
    return calls_.read(Operation::BlockSizeChoiceList, {}, [&] { return settings_.blockSize.choices; });
}

Range SimulatedTimebase::BlockSizeRange()
{
    return calls_.read(Operation::BlockSizeRange, {}, [&] { return settings_.blockSize.range; });
}

std::vector<double> SimulatedTimebase::ScanChoiceList()
{
    listAskedLast_ = &settings_.scanPeriod;
    return calls_.read(Operation::ScanChoiceList, {}, [&] { return settings_.scanPeriod.choices; });
}

Range SimulatedTimebase::ChoiceRange()
{
    return calls_.read(Operation::ChoiceRange, {}, [&] { return listAskedLast_ ? listAskedLast_->range : Range{}; });
}

DateTime SimulatedTimebase::StartTime()
{
    return calls_.read(Operation::StartTimeGet, {}, [&] { return settings_.startTime; });
}

void SimulatedTimebase::setStartTime(DateTime time)
{
    calls_.write(Operation::StartTimeSet, {}, time, [&] {
        if (std::isfinite(time.days))
            settings_.startTime = time;
        return settings_.startTime;
    });
}

float SimulatedTimebase::Duration()
{
    return calls_.read(Operation::DurationGet, {}, [&] { return settings_.duration; });
}

void SimulatedTimebase::setDuration(float seconds)
{
    calls_.write(Operation::DurationSet, {}, seconds, [&] {
        if (std::isfinite(seconds))
            settings_.duration = seconds;
        return settings_.duration;
    });
}

std::int32_t SimulatedTimebase::StopMode()
{
    return calls_.read(Operation::StopModeGet, {}, [&] { return settings_.stopMode; });
}

void SimulatedTimebase::setStopMode(std::int32_t mode)
{
    calls_.write(Operation::StopModeSet, {}, mode, [&] { return settings_.stopMode = mode; });
}

std::int32_t SimulatedTimebase::StartMode()
{
    return calls_.read(Operation::StartModeGet, {}, [&] { return settings_.startMode; });
}

void SimulatedTimebase::setStartMode(std::int32_t mode)
{
    calls_.write(Operation::StartModeSet, {}, mode, [&] { return settings_.startMode = mode; });
}

} // namespace ko
