#include "host/instruments/KeptViews.h"

#include <cmath>

namespace ko {

void KeptTimebase::setSamplePeriod(double seconds)
{
    settings_.samplePeriod.value = keepSamplePeriod_(seconds);
}

double KeptTimebase::SamplePeriod()
{
    return settings_.samplePeriod.value;
}

void KeptTimebase::setBlockSize(double samples)
{
    settings_.blockSize.request(samples);
}

double KeptTimebase::BlockSize()
{
    return settings_.blockSize.value;
}

void KeptTimebase::setScanPeriod(double seconds)
{
    settings_.scanPeriod.request(seconds);
}

double KeptTimebase::ScanPeriod()
{
    return settings_.scanPeriod.value;
}

std::vector<double> KeptTimebase::SampleChoiceList()
{
    listAskedLast_ = &settings_.samplePeriod;
    return settings_.samplePeriod.choices;
}

std::vector<double> KeptTimebase::BlockSizeChoiceList()
{
    return settings_.blockSize.choices;
}

Range KeptTimebase::BlockSizeRange()
{
    return settings_.blockSize.range;
}

std::vector<double> KeptTimebase::ScanChoiceList()
{
    listAskedLast_ = &settings_.scanPeriod;
    return settings_.scanPeriod.choices;
}

Range KeptTimebase::ChoiceRange()
{
    return listAskedLast_ ? listAskedLast_->range : Range{};
}

DateTime KeptTimebase::StartTime()
{
    return settings_.startTime;
}

void KeptTimebase::setStartTime(DateTime time)
{
    if (std::isfinite(time.days))
        settings_.startTime = time;
}

float KeptTimebase::Duration()
{
    return settings_.duration;
}

void KeptTimebase::setDuration(float seconds)
{
    if (std::isfinite(seconds))
        settings_.duration = seconds;
}

std::int32_t KeptTimebase::StopMode()
{
    return settings_.stopMode;
}

void KeptTimebase::setStopMode(std::int32_t mode)
{
    settings_.stopMode = mode;
}

std::int32_t KeptTimebase::StartMode()
{
    return settings_.startMode;
}

void KeptTimebase::setStartMode(std::int32_t mode)
{
    settings_.startMode = mode;
}

} // namespace ko
