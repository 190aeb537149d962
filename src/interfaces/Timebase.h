#pragma once

#include "interfaces/Values.h"

#include <vector>

namespace ko {

/// The acquisition timebase of a driver, in the order in which hosts declare it. A driver may store another value than
/// the one requested, so the document always reads back. Rates are never stored (rate = 1 / period). Choice lists are
/// empty when the driver offers no discrete values; the driver decides their order.
class Timebase {
public:
    virtual void setSamplePeriod(double seconds) = 0;
    virtual double SamplePeriod() = 0;
    /// In samples, a whole number.
    virtual void setBlockSize(double samples) = 0;
    virtual double BlockSize() = 0;
    virtual void setScanPeriod(double seconds) = 0;
    virtual double ScanPeriod() = 0;

    /// Discrete sample periods in seconds.
    virtual std::vector<double> SampleChoiceList() = 0;
    /// Placeholder for a member that the document never calls.
    virtual void Reserved() {}
    /// Discrete block sizes in samples.
    virtual std::vector<double> BlockSizeChoiceList() = 0;
    virtual Range BlockSizeRange() = 0;
    /// Discrete scan periods in seconds.
    virtual std::vector<double> ScanChoiceList() = 0;
    /// The continuous period range in seconds for the choice list that was read last: sample periods after
    /// `SampleChoiceList`, scan periods after `ScanChoiceList`. The document always reads the list first.
    virtual Range ChoiceRange() = 0;

    virtual DateTime StartTime() = 0;
    virtual void setStartTime(DateTime time) = 0;
    /// Recording length in seconds; in stop mode "at time" the seconds from start to stop.
    virtual float Duration() = 0;
    virtual void setDuration(float seconds) = 0;
    virtual std::int32_t StopMode() = 0;
    virtual void setStopMode(std::int32_t mode) = 0;
    virtual std::int32_t StartMode() = 0;
    virtual void setStartMode(std::int32_t mode) = 0;

protected:
    ~Timebase() = default;
};

} // namespace ko
