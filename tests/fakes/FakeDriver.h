#pragma once

#include "fakes/FaultGate.h"
#include "interfaces/Driver.h"
#include "interfaces/Timebase.h"
#include "interfaces/TriggerLines.h"
#include "interfaces/TriggerParameters.h"

#include <algorithm>
#include <map>
#include <set>
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
    using I = std::int32_t;
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
        I id = 2;
        std::string name = "Level";
        std::string type = "Float";
        Value value = 0.5;
        double min = -10;
        double max = 10;
        std::vector<std::string> choices{};
    };

    std::string name = "Fake";
    I measurementMode = 1, samplingMode = 1;
    std::vector<Group> groups;
    bool hasTimebase = true, hasParameters = true, hasLines = true;
    double samplePeriod = 0.001, blockSize = 1024, scanPeriod = 0.1;
    std::vector<double> sampleChoices, blockChoices, scanChoices;
    Range sampleRange, blockRange, scanRange;
    DateTime startTime;
    float duration = 10;
    I stopMode = 0, startMode = 0;
    I numberOfScans = 0;
    double dynamicBytes = 416;
    I startRank = -1, startLine = -1, startInput = -1, scanRank = -1, scanLine = -1, scanInput = -1;
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
    bool notes = true;         ///< fills `writes` and `calls`; if false, calls allocate nothing
    FaultGate* gate = nullptr; ///< if set, every call passes it

    // Driver
    I GroupCount() override { return answer("GroupCount", static_cast<I>(groups.size())); }
    I ChannelCount(I g) override { return answer("ChannelCount", static_cast<I>(group(g).channels.size())); }
    Value ChannelAttribute(I g, I c, I attribute) override
    {
        called("ChannelAttribute");
        const Channel& it = channel(g, c);
        return attribute == 1 ? Value(it.address) : attribute == 2 ? it.enabled : Value(it.name);
    }
    I MeasurementMode() override { return answer("MeasurementMode", measurementMode); }
    I SamplingMode() override { return answer("SamplingMode", samplingMode); }
    std::string DriverName(I) override { return answer("DriverName", name); }
    std::string GroupName(I g) override { return answer("GroupName", group(g).name); }
    Timebase* queryTimebase() override { return view<Timebase>("queryTimebase", hasTimebase); }
    TriggerParameters* queryTriggerParameters() override
    {
        return view<TriggerParameters>("queryTriggerParameters", hasParameters);
    }
    TriggerLines* queryTriggerLines() override { return view<TriggerLines>("queryTriggerLines", hasLines); }
    StaticMeasurement* queryStaticMeasurement() override { return view<StaticMeasurement>("queryStaticMeasurement"); }
    DynamicMeasurement* queryDynamicMeasurement() override
    {
        return view<DynamicMeasurement>("queryDynamicMeasurement");
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
    I StopMode() override { return answer("StopMode", stopMode); }
    void setStopMode(I v) override { write("setStopMode", stopMode, v, v); }
    I StartMode() override { return answer("StartMode", startMode); }
    void setStartMode(I v) override { write("setStartMode", startMode, v, v); }

    // Measurements
    I NumberOfScans() override { return answer("NumberOfScans", scans ? scans(*this) : numberOfScans); }
    double DynamicBytes() override { return answer("DynamicBytes", bytes ? bytes(*this) : dynamicBytes); }
    std::function<double(const FakeDriver&)> bytes; ///< computes `DynamicBytes` when set
    std::function<I(const FakeDriver&)> scans;      ///< computes `NumberOfScans` when set

    // TriggerLines
    I StartMasterRank() override { return answer("StartMasterRank", startRank); }
    I StartTriggerLine() override { return answer("StartTriggerLine", startLine); }
    void setStartTriggerLine(I v) override { write("setStartTriggerLine", startLine, v, v); }
    void setStartTriggerInput(I v) override { write("setStartTriggerInput", startInput, v, v); }
    I ScanMasterRank() override { return answer("ScanMasterRank", scanRank); }
    I ScanTriggerLine() override { return answer("ScanTriggerLine", scanLine); }
    void setScanTriggerLine(I v) override { write("setScanTriggerLine", scanLine, v, v); }
    void setScanTriggerInput(I v) override { write("setScanTriggerInput", scanInput, v, v); }
    LineList StartLinesAsMaster() override { return answer("StartLinesAsMaster", startMasterLines); }
    LineList ScanLinesAsListener() override { return answer("ScanLinesAsListener", scanListenerLines); }
    LineList ScanLinesAsMaster() override { return answer("ScanLinesAsMaster", scanMasterLines); }
    LineList StartLinesAsListener() override { return answer("StartLinesAsListener", startListenerLines); }

    // TriggerParameters
    I GetTriggerParamCount(I, I) override { return answer("GetTriggerParamCount", static_cast<I>(parameters.size())); }
    I GetTriggerParamId(I, I, I index) override
    {
        return answer("GetTriggerParamId", parameters.at(static_cast<std::size_t>(index)).id);
    }
    std::string GetTriggerParamName(I, I, I id) override { return answer("GetTriggerParamName", parameter(id).name); }
    std::string GetTriggerParamType(I, I, I id) override { return answer("GetTriggerParamType", parameter(id).type); }
    Value GetTriggerParamValue(I, I, I id) override { return answer("GetTriggerParamValue", parameter(id).value); }
    std::vector<std::string> GetTriggerParamChoices(I, I, I id) override
    {
        return answer("GetTriggerParamChoices", parameter(id).choices);
    }
    double GetTriggerParamMin(I, I, I id) override { return answer("GetTriggerParamMin", parameter(id).min); }
    double GetTriggerParamMax(I, I, I id) override { return answer("GetTriggerParamMax", parameter(id).max); }
    void SetTriggerParamValue(I, I, I id, const Value& value) override
    {
        called("SetTriggerParamValue");
        writes.push_back("SetTriggerParamValue " + std::to_string(id));
        parameter(id).value = value;
        if (afterParameter)
            afterParameter(*this);
    }
    bool TriggerEnabled(I g, I c) override { return answer("TriggerEnabled", channel(g, c).triggerSource); }
    void setTriggerEnabled(I g, I c, bool enabled) override
    {
        called("setTriggerEnabled");
        writes.push_back("setTriggerEnabled " + std::to_string(g) + " " + std::to_string(c) +
                         (enabled ? " on" : " off"));
        if (!refuses)
            channel(g, c).triggerSource = enabled;
    }
    bool CanTrigger(I g, I c) override { return answer("CanTrigger", channel(g, c).canTrigger); }
    std::string GetTriggerGroupName(I g) override { return answer("GetTriggerGroupName", "trigger " + group(g).name); }

private:
    void called(const char* operation)
    {
        if (notes)
            ++calls[operation];
        if (gate)
            gate->pass(operation);
        if (!failing.empty() && (failing.contains(operation) || failing.contains("*")))
            throw Failure(1000, std::string(operation) + " failed");
    }
    template <class T> T answer(const char* operation, const T& value)
    {
        called(operation);
        return value;
    }
    template <class View> View* view(const char* operation, bool isOffered = true)
    {
        return answer<View*>(operation, isOffered ? this : nullptr);
    }
    template <class T, class Shown> void write(const char* operation, T& kept, T value, Shown shown)
    {
        called(operation);
        if (notes)
            note(operation, std::to_string(shown));
        if (!refuses)
            kept = value;
    }
    void note(const char* operation, std::string text)
    {
        if (text.find('.') != std::string::npos)
            text.erase(std::max(text.find_last_not_of('0'), text.find('.') + 1) + 1);
        writes.push_back(std::string(operation) + " " + text);
    }
    Group& group(I g) { return groups.at(static_cast<std::size_t>(g)); }
    Channel& channel(I g, I c) { return group(g).channels.at(static_cast<std::size_t>(c)); }
    Parameter& parameter(I id)
    {
        const auto found = std::find_if(parameters.begin(), parameters.end(), [&](auto& p) { return p.id == id; });
        if (found == parameters.end())
            fail(failure::subscriptOutOfRange);
        return *found;
    }

    const Range* askedFor_ = nullptr;
};

} // namespace ko::test
