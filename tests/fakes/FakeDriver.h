#pragma once

#include "fakes/FaultGate.h"
#include "interfaces/Driver.h"
#include "interfaces/Timebase.h"
#include "interfaces/TriggerLines.h"
#include "interfaces/TriggerParameters.h"
#include "platform/Failure.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace ko::test {

/// A driver whose results a test sets. Calls in `failing` ("SamplePeriod", "setSamplePeriod") fail with number 1000;
/// every call that writes is recorded in `writes`.
class FakeDriver : public Driver,
                   public Timebase,
                   public TriggerParameters,
                   public TriggerLines,
                   public StaticMeasurement,
                   public DynamicMeasurement {
public:
    struct Channel {
        std::string address = "0:1:0";
        std::string name{};
        Value enabled = 1;
        bool triggerSource = false;
        bool canTrigger = true;
    };
    struct Group {
        std::string name = "Inputs";
        std::vector<Channel> channels{};
    };
    struct Parameter {
        std::int32_t id = 2;
        std::string name = "Level";
        std::string type = "Float";
        Value value = 0.5;
        double min = -10;
        double max = 10;
        std::vector<std::string> choices{};
    };

    std::string name = "Fake";
    std::int32_t measurementMode = 1, samplingMode = 1;
    std::vector<Group> groups;
    bool hasTimebase = true, hasParameters = true, hasLines = true;
    double samplePeriod = 0.001, blockSize = 1024, scanPeriod = 0.1;
    std::vector<double> sampleChoices, blockChoices, scanChoices;
    Range sampleRange, blockRange, scanRange;
    DateTime startTime;
    float duration = 10;
    std::int32_t stopMode = 0, startMode = 0;
    std::int32_t numberOfScans = 0;
    double dynamicBytes = 416;
    std::int32_t startRank = -1, startLine = -1, startInput = -1, scanRank = -1, scanLine = -1, scanInput = -1;
    LineList startMasterLines, scanListenerLines, scanMasterLines, startListenerLines;
    std::vector<Parameter> parameters;
    /// Rounds a requested sample period, block size or scan period.
    std::function<double(double)> keeps = [](double value) { return value; };
    std::function<float(float)> keepsDuration = [](float seconds) { return seconds; };
    bool refuses = false; ///< writes change nothing
    /// Called after a trigger parameter has been written.
    std::function<void(FakeDriver&)> afterParameter;

    std::set<std::string> failing;
    std::vector<std::string> writes;
    std::map<std::string, int> calls;
    FaultGate* gate = nullptr; ///< if set, every call passes it

    // Driver
    std::int32_t GroupCount() override { return answer("GroupCount", static_cast<std::int32_t>(groups.size())); }
    std::int32_t ChannelCount(std::int32_t g) override
    {
        return answer("ChannelCount", static_cast<std::int32_t>(group(g).channels.size()));
    }
    Value ChannelAttribute(std::int32_t g, std::int32_t c, std::int32_t attribute) override
    {
        called("ChannelAttribute");
        const Channel& it = channel(g, c);
        return attribute == 1 ? Value(it.address) : attribute == 2 ? it.enabled : Value(it.name);
    }
    std::int32_t MeasurementMode() override { return answer("MeasurementMode", measurementMode); }
    std::int32_t SamplingMode() override { return answer("SamplingMode", samplingMode); }
    std::string DriverName(std::int32_t) override { return answer("DriverName", name); }
    std::string GroupName(std::int32_t g) override { return answer("GroupName", group(g).name); }
    Timebase* queryTimebase() override { return answer<Timebase*>("queryTimebase", hasTimebase ? this : nullptr); }
    TriggerParameters* queryTriggerParameters() override
    {
        return answer<TriggerParameters*>("queryTriggerParameters", hasParameters ? this : nullptr);
    }
    TriggerLines* queryTriggerLines() override
    {
        return answer<TriggerLines*>("queryTriggerLines", hasLines ? this : nullptr);
    }
    StaticMeasurement* queryStaticMeasurement() override
    {
        return answer<StaticMeasurement*>("queryStaticMeasurement", this);
    }
    DynamicMeasurement* queryDynamicMeasurement() override
    {
        return answer<DynamicMeasurement*>("queryDynamicMeasurement", this);
    }

    // Timebase
    void setSamplePeriod(double v) override { write("setSamplePeriod", samplePeriod, keeps(v), v); }
    double SamplePeriod() override { return answer("SamplePeriod", samplePeriod); }
    void setBlockSize(double v) override { write("setBlockSize", blockSize, keeps(v), v); }
    double BlockSize() override { return answer("BlockSize", blockSize); }
    void setScanPeriod(double v) override { write("setScanPeriod", scanPeriod, keeps(v), v); }
    double ScanPeriod() override { return answer("ScanPeriod", scanPeriod); }
    std::vector<double> SampleChoiceList() override
    {
        askedFor_ = &sampleRange;
        return answer("SampleChoiceList", sampleChoices);
    }
    std::vector<double> BlockSizeChoiceList() override { return answer("BlockSizeChoiceList", blockChoices); }
    Range BlockSizeRange() override { return answer("BlockSizeRange", blockRange); }
    std::vector<double> ScanChoiceList() override
    {
        askedFor_ = &scanRange;
        return answer("ScanChoiceList", scanChoices);
    }
    Range ChoiceRange() override { return answer("ChoiceRange", askedFor_ ? *askedFor_ : Range{}); }
    DateTime StartTime() override { return answer("StartTime", startTime); }
    void setStartTime(DateTime v) override { write("setStartTime", startTime, v, v.days); }
    float Duration() override { return answer("Duration", duration); }
    void setDuration(float v) override { write("setDuration", duration, keepsDuration(v), double{v}); }
    std::int32_t StopMode() override { return answer("StopMode", stopMode); }
    void setStopMode(std::int32_t v) override { write("setStopMode", stopMode, v, v); }
    std::int32_t StartMode() override { return answer("StartMode", startMode); }
    void setStartMode(std::int32_t v) override { write("setStartMode", startMode, v, v); }

    // Measurements
    std::int32_t NumberOfScans() override { return answer("NumberOfScans", scans ? scans(*this) : numberOfScans); }
    double DynamicBytes() override { return answer("DynamicBytes", bytes ? bytes(*this) : dynamicBytes); }
    std::function<double(const FakeDriver&)> bytes;       ///< computes `DynamicBytes` when set
    std::function<std::int32_t(const FakeDriver&)> scans; ///< computes `NumberOfScans` when set

    // TriggerLines
    std::int32_t StartMasterRank() override { return answer("StartMasterRank", startRank); }
    std::int32_t StartTriggerLine() override { return answer("StartTriggerLine", startLine); }
    void setStartTriggerLine(std::int32_t v) override { write("setStartTriggerLine", startLine, v, v); }
    void setStartTriggerInput(std::int32_t v) override { write("setStartTriggerInput", startInput, v, v); }
    std::int32_t ScanMasterRank() override { return answer("ScanMasterRank", scanRank); }
    std::int32_t ScanTriggerLine() override { return answer("ScanTriggerLine", scanLine); }
    void setScanTriggerLine(std::int32_t v) override { write("setScanTriggerLine", scanLine, v, v); }
    void setScanTriggerInput(std::int32_t v) override { write("setScanTriggerInput", scanInput, v, v); }
    LineList StartLinesAsMaster() override { return answer("StartLinesAsMaster", startMasterLines); }
    LineList ScanLinesAsListener() override { return answer("ScanLinesAsListener", scanListenerLines); }
    LineList ScanLinesAsMaster() override { return answer("ScanLinesAsMaster", scanMasterLines); }
    LineList StartLinesAsListener() override { return answer("StartLinesAsListener", startListenerLines); }

    // TriggerParameters
    std::int32_t GetTriggerParamCount(std::int32_t, std::int32_t) override
    {
        return answer("GetTriggerParamCount", static_cast<std::int32_t>(parameters.size()));
    }
    std::int32_t GetTriggerParamId(std::int32_t, std::int32_t, std::int32_t index) override
    {
        return answer("GetTriggerParamId", parameters.at(static_cast<std::size_t>(index)).id);
    }
    std::string GetTriggerParamName(std::int32_t, std::int32_t, std::int32_t id) override
    {
        return answer("GetTriggerParamName", parameter(id).name);
    }
    std::string GetTriggerParamType(std::int32_t, std::int32_t, std::int32_t id) override
    {
        return answer("GetTriggerParamType", parameter(id).type);
    }
    Value GetTriggerParamValue(std::int32_t, std::int32_t, std::int32_t id) override
    {
        return answer("GetTriggerParamValue", parameter(id).value);
    }
    std::vector<std::string> GetTriggerParamChoices(std::int32_t, std::int32_t, std::int32_t id) override
    {
        return answer("GetTriggerParamChoices", parameter(id).choices);
    }
    double GetTriggerParamMin(std::int32_t, std::int32_t, std::int32_t id) override
    {
        return answer("GetTriggerParamMin", parameter(id).min);
    }
    double GetTriggerParamMax(std::int32_t, std::int32_t, std::int32_t id) override
    {
        return answer("GetTriggerParamMax", parameter(id).max);
    }
    void SetTriggerParamValue(std::int32_t, std::int32_t, std::int32_t id, const Value& value) override
    {
        called("SetTriggerParamValue");
        writes.push_back("SetTriggerParamValue " + std::to_string(id));
        parameter(id).value = value;
        if (afterParameter)
            afterParameter(*this);
    }
    bool TriggerEnabled(std::int32_t g, std::int32_t c) override
    {
        return answer("TriggerEnabled", channel(g, c).triggerSource);
    }
    void setTriggerEnabled(std::int32_t g, std::int32_t c, bool enabled) override
    {
        called("setTriggerEnabled");
        writes.push_back("setTriggerEnabled " + std::to_string(g) + " " + std::to_string(c) +
                         (enabled ? " on" : " off"));
        if (!refuses)
            channel(g, c).triggerSource = enabled;
    }
    bool CanTrigger(std::int32_t g, std::int32_t c) override { return answer("CanTrigger", channel(g, c).canTrigger); }
    std::string GetTriggerGroupName(std::int32_t g) override
    {
        return answer("GetTriggerGroupName", "trigger " + group(g).name);
    }

private:
    void called(const std::string& operation)
    {
        ++calls[operation];
        if (gate)
            gate->pass(operation.c_str());
        if (!failing.empty() && (failing.contains(operation) || failing.contains("*")))
            throw Failure(1000, operation + " failed");
    }
    template <class T> T answer(const std::string& operation, const T& value)
    {
        called(operation);
        return value;
    }
    template <class T, class Shown> void write(const std::string& operation, T& kept, T value, Shown shown)
    {
        called(operation);
        std::string text = std::to_string(shown);
        if (text.find('.') != std::string::npos)
            text.erase(std::max(text.find_last_not_of('0'), text.find('.') + 1) + 1);
        writes.push_back(operation + " " + text);
        if (!refuses)
            kept = value;
    }
    Group& group(std::int32_t g) { return groups.at(static_cast<std::size_t>(g)); }
    Channel& channel(std::int32_t g, std::int32_t c) { return group(g).channels.at(static_cast<std::size_t>(c)); }
    Parameter& parameter(std::int32_t id)
    {
        const auto found = std::find_if(parameters.begin(), parameters.end(), [&](auto& p) { return p.id == id; });
        if (found == parameters.end())
            fail(failure::subscriptOutOfRange);
        return *found;
    }

    const Range* askedFor_ = nullptr;
};

} // namespace ko::test
