#pragma once

#include "host/instruments/InstrumentSettings.h"
#include "interfaces/Driver.h"
#include "interfaces/Timebase.h"
#include "interfaces/TriggerLines.h"
#include "interfaces/TriggerParameters.h"
#include "platform/Failure.h"

#include <functional>

namespace ko {

/// The views of a `KeptInstrument`. Each refers to the instrument's own settings, which must outlive it.

class KeptTimebase final : public Timebase {
public:
    /// `keepSamplePeriod` returns the sample period that is kept for a requested one, in seconds.
    KeptTimebase(TimebaseSettings& settings, std::function<double(double)> keepSamplePeriod)
        : settings_(settings), keepSamplePeriod_(std::move(keepSamplePeriod))
    {
    }
    virtual ~KeptTimebase() = default;

    void setSamplePeriod(double seconds) override;
    double SamplePeriod() override;
    void setBlockSize(double samples) override;
    double BlockSize() override;
    void setScanPeriod(double seconds) override;
    double ScanPeriod() override;
    std::vector<double> SampleChoiceList() override;
    std::vector<double> BlockSizeChoiceList() override;
    Range BlockSizeRange() override;
    std::vector<double> ScanChoiceList() override;
    Range ChoiceRange() override;
    DateTime StartTime() override;
    void setStartTime(DateTime time) override;
    float Duration() override;
    void setDuration(float seconds) override;
    std::int32_t StopMode() override;
    void setStopMode(std::int32_t mode) override;
    std::int32_t StartMode() override;
    void setStartMode(std::int32_t mode) override;

private:
    TimebaseSettings& settings_;
    std::function<double(double)> keepSamplePeriod_;
    const QuantitySettings* listAskedLast_ = nullptr;
};

/// Slots and channels outside the driver's groups fail with 9. Unknown parameter ids, the choices of a parameter that
/// is not an "Enum", and the bounds of one that is not a number fail with 5. A value of another type than the
/// parameter's fails with 13.
class KeptTriggerParameters final : public TriggerParameters {
public:
    explicit KeptTriggerParameters(std::vector<GroupSettings>& groups) : groups_(groups) {}
    virtual ~KeptTriggerParameters() = default;

    std::int32_t GetTriggerParamCount(std::int32_t slot, std::int32_t channel) override;
    std::int32_t GetTriggerParamId(std::int32_t slot, std::int32_t channel, std::int32_t index) override;
    std::string GetTriggerParamName(std::int32_t slot, std::int32_t channel, std::int32_t id) override;
    std::string GetTriggerParamType(std::int32_t slot, std::int32_t channel, std::int32_t id) override;
    Value GetTriggerParamValue(std::int32_t slot, std::int32_t channel, std::int32_t id) override;
    std::vector<std::string> GetTriggerParamChoices(std::int32_t slot, std::int32_t channel, std::int32_t id) override;
    double GetTriggerParamMin(std::int32_t slot, std::int32_t channel, std::int32_t id) override;
    double GetTriggerParamMax(std::int32_t slot, std::int32_t channel, std::int32_t id) override;
    void SetTriggerParamValue(std::int32_t slot, std::int32_t channel, std::int32_t id, const Value& value) override;
    bool TriggerEnabled(std::int32_t slot, std::int32_t channel) override;
    void setTriggerEnabled(std::int32_t slot, std::int32_t channel, bool enabled) override;
    bool CanTrigger(std::int32_t slot, std::int32_t channel) override;
    std::string GetTriggerGroupName(std::int32_t slot) override;

private:
    [[nodiscard]] ChannelSettings& channelAt(std::int32_t slot, std::int32_t channel) const;
    [[nodiscard]] ParameterSettings& parameter(std::int32_t slot, std::int32_t channel, std::int32_t id) const;

    std::vector<GroupSettings>& groups_;
};

class KeptTriggerLines final : public TriggerLines {
public:
    explicit KeptTriggerLines(TriggerLineSettings& settings) : settings_(settings) {}
    virtual ~KeptTriggerLines() = default;

    std::int32_t StartMasterRank() override;
    std::int32_t StartTriggerLine() override;
    void setStartTriggerLine(std::int32_t line) override;
    void setStartTriggerInput(std::int32_t line) override;
    std::int32_t ScanMasterRank() override;
    std::int32_t ScanTriggerLine() override;
    void setScanTriggerLine(std::int32_t line) override;
    void setScanTriggerInput(std::int32_t line) override;
    LineList StartLinesAsMaster() override;
    LineList ScanLinesAsListener() override;
    LineList ScanLinesAsMaster() override;
    LineList StartLinesAsListener() override;

private:
    TriggerLineSettings& settings_;
};

/// Returns the element at `index`; fails with 9 outside the list.
template <class List> auto& elementAt(List& list, std::int32_t index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= list.size())
        fail(failure::subscriptOutOfRange);
    return list[static_cast<std::size_t>(index)];
}

} // namespace ko
