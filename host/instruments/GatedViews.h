#pragma once

#include "host/instruments/CallGate.h"
#include "interfaces/Timebase.h"
#include "interfaces/TriggerLines.h"
#include "interfaces/TriggerParameters.h"

namespace ko {

/// The views of a `HostInstrument`: each call passes the gate to the view of the instrument's own driver, which `over`
/// sets.

class GatedTimebase final : public Timebase {
public:
    explicit GatedTimebase(CallGate& calls) : calls_(calls) {}
    virtual ~GatedTimebase() = default;
    /// Returns this view of `view`, or null without one.
    Timebase* over(Timebase* view) { return (view_ = view) ? this : nullptr; }

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
    using List = std::vector<double> (Timebase::*)();

    template <class T> T get(Operation operation, T (Timebase::*read)())
    {
        return calls_.read(operation, {}, [&] { return (required(view_).*read)(); });
    }
    template <class T> void set(Operation operation, T value, void (Timebase::*write)(T), T (Timebase::*read)())
    {
        calls_.write(
            operation, {}, value, [&] { (required(view_).*write)(value); }, [&] { return (required(view_).*read)(); });
    }
    std::vector<double> rangedList(Operation operation, List list);

    CallGate& calls_;
    Timebase* view_ = nullptr;
    List missed_ = nullptr; ///< asked for last, by a call that did not reach the view
};

class GatedTriggerParameters final : public TriggerParameters {
public:
    explicit GatedTriggerParameters(CallGate& calls) : calls_(calls) {}
    virtual ~GatedTriggerParameters() = default;
    TriggerParameters* over(TriggerParameters* view) { return (view_ = view) ? this : nullptr; }

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
    template <class T, class... Place>
    T get(Operation operation, T (TriggerParameters::*read)(Place...), Place... place)
    {
        return calls_.read(operation, {place...}, [&] { return (required(view_).*read)(place...); });
    }

    CallGate& calls_;
    TriggerParameters* view_ = nullptr;
};

class GatedTriggerLines final : public TriggerLines {
public:
    explicit GatedTriggerLines(CallGate& calls) : calls_(calls) {}
    virtual ~GatedTriggerLines() = default;
    TriggerLines* over(TriggerLines* view) { return (view_ = view) ? this : nullptr; }

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
    using Write = void (TriggerLines::*)(std::int32_t);
    using Read = std::int32_t (TriggerLines::*)();

    template <class T> T get(Operation operation, T (TriggerLines::*read)())
    {
        return calls_.read(operation, {}, [&] { return (required(view_).*read)(); });
    }
    void set(Operation operation, std::int32_t line, Write write, Read read = nullptr);

    CallGate& calls_;
    TriggerLines* view_ = nullptr;
};

} // namespace ko
