#pragma once

#include "interfaces/Driver.h"
#include "interfaces/Timebase.h"
#include "interfaces/TriggerLines.h"
#include "interfaces/TriggerParameters.h"

#include <array>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace ko::bench {

class BareDriver;

template <class Member> struct ResultOf;
template <class View, class Result, class... Arguments> struct ResultOf<Result (View::*)(Arguments...)> {
    using Type = Result;
};

/// A recorded call, or a sequence of calls that differ only in the channel, the second argument.
struct MadeCall {
    struct Arguments {
        std::array<std::int32_t, 3> whole{}; ///< integer arguments by position
        double number = 0.0;                 ///< the only argument that is not an integer

        bool operator==(const Arguments&) const = default;
    };

    BareDriver* driver;
    void (*again)(BareDriver& driver, const Arguments& arguments, std::int32_t count);
    Arguments arguments;
    std::int32_t count = 1;

    void repeat() const { again(*driver, arguments, count); }
};

/// Keeps the processor busy for this number of rounds.
[[gnu::noinline]] inline void work(int rounds)
{
    for (int round = 0; round < rounds; ++round)
        asm volatile("" ::: "memory");
}

/// The cost of every call of every driver.
struct CallCost {
    int work = 0;                          ///< rounds of work
    std::vector<MadeCall>* made = nullptr; ///< calls are recorded here; null: not recorded
};

/// A driver whose calls do almost nothing, as the lower bound of the cost of any host's calls.
class BareDriver : public Driver,
                   public Timebase,
                   public TriggerParameters,
                   public TriggerLines,
                   public StaticMeasurement,
                   public DynamicMeasurement {
public:
    using I = std::int32_t;
    using Doubles = std::vector<double>;
    using Choices = std::shared_ptr<const Doubles>;

    BareDriver(bool isDynamic, I channels, Choices choices)
        : isDynamic_(isDynamic), channels_(channels), choices_(std::move(choices))
    {
    }

    /// Null: calls are free.
    static inline CallCost* cost = nullptr;

    I GroupCount() override { return answer<&Driver::GroupCount>(1); }
    I ChannelCount(I g) override { return answer<&Driver::ChannelCount>(channels_, g); }
    Value ChannelAttribute(I g, I c, I number) override
    {
        enter<&Driver::ChannelAttribute>(g, c, number);
        return number == attribute::enabled ? Value(1) : Value("Crank");
    }
    I MeasurementMode() override { return answer<&Driver::MeasurementMode>(1); }
    I SamplingMode() override { return answer<&Driver::SamplingMode>(isDynamic_ ? 1 : 2); }
    std::string DriverName(I form) override { return answer<&Driver::DriverName>("Module", form); }
    std::string GroupName(I g) override { return answer<&Driver::GroupName>("Inputs", g); }
    Timebase* queryTimebase() override { return answer<&Driver::queryTimebase>(this); }
    TriggerParameters* queryTriggerParameters() override { return answer<&Driver::queryTriggerParameters>(this); }
    TriggerLines* queryTriggerLines() override { return answer<&Driver::queryTriggerLines>(this); }
    StaticMeasurement* queryStaticMeasurement() override { return answer<&Driver::queryStaticMeasurement>(this); }
    DynamicMeasurement* queryDynamicMeasurement() override { return answer<&Driver::queryDynamicMeasurement>(this); }

    void setSamplePeriod(double v) override { put<&Timebase::setSamplePeriod>(samplePeriod_, v); }
    double SamplePeriod() override { return answer<&Timebase::SamplePeriod>(samplePeriod_); }
    void setBlockSize(double v) override { put<&Timebase::setBlockSize>(blockSize_, v); }
    double BlockSize() override { return answer<&Timebase::BlockSize>(blockSize_); }
    void setScanPeriod(double v) override { put<&Timebase::setScanPeriod>(scanPeriod_, v); }
    double ScanPeriod() override { return answer<&Timebase::ScanPeriod>(scanPeriod_); }
    Doubles SampleChoiceList() override { return answer<&Timebase::SampleChoiceList>(*choices_); }
    Doubles BlockSizeChoiceList() override { return answer<&Timebase::BlockSizeChoiceList>(*choices_); }
    Range BlockSizeRange() override { return answer<&Timebase::BlockSizeRange>(Range{16, 65536}); }
    Doubles ScanChoiceList() override { return answer<&Timebase::ScanChoiceList>(*choices_); }
    Range ChoiceRange() override { return answer<&Timebase::ChoiceRange>(Range{1e-6, 100}); }
    DateTime StartTime() override { return answer<&Timebase::StartTime>(DateTime{startTime_}); }
    void setStartTime(DateTime v) override { put<&Timebase::setStartTime>(startTime_, v.days); }
    float Duration() override { return answer<&Timebase::Duration>(duration_); }
    void setDuration(float v) override { put<&Timebase::setDuration>(duration_, v); }
    I StopMode() override { return answer<&Timebase::StopMode>(stopMode_); }
    void setStopMode(I v) override { put<&Timebase::setStopMode>(stopMode_, v); }
    I StartMode() override { return answer<&Timebase::StartMode>(startMode_); }
    void setStartMode(I v) override { put<&Timebase::setStartMode>(startMode_, v); }

    I NumberOfScans() override { return answer<&StaticMeasurement::NumberOfScans>(100); }
    double DynamicBytes() override { return answer<&DynamicMeasurement::DynamicBytes>(1000); }

    I StartMasterRank() override { return answer<&TriggerLines::StartMasterRank>(isDynamic_ ? 5 : -1); }
    I StartTriggerLine() override { return answer<&TriggerLines::StartTriggerLine>(startLine_); }
    void setStartTriggerLine(I v) override { put<&TriggerLines::setStartTriggerLine>(startLine_, v); }
    void setStartTriggerInput(I v) override { put<&TriggerLines::setStartTriggerInput>(startInput_, v); }
    I ScanMasterRank() override { return answer<&TriggerLines::ScanMasterRank>(isDynamic_ ? -1 : 5); }
    I ScanTriggerLine() override { return answer<&TriggerLines::ScanTriggerLine>(scanLine_); }
    void setScanTriggerLine(I v) override { put<&TriggerLines::setScanTriggerLine>(scanLine_, v); }
    void setScanTriggerInput(I v) override { put<&TriggerLines::setScanTriggerInput>(scanInput_, v); }
    LineList StartLinesAsMaster() override { return answer<&TriggerLines::StartLinesAsMaster>(LineList()); }
    LineList ScanLinesAsListener() override { return answer<&TriggerLines::ScanLinesAsListener>(LineList()); }
    LineList ScanLinesAsMaster() override { return answer<&TriggerLines::ScanLinesAsMaster>(LineList()); }
    LineList StartLinesAsListener() override { return answer<&TriggerLines::StartLinesAsListener>(LineList()); }

    I GetTriggerParamCount(I s, I c) override { return answer<&TriggerParameters::GetTriggerParamCount>(1, s, c); }
    I GetTriggerParamId(I s, I c, I i) override { return answer<&TriggerParameters::GetTriggerParamId>(2, s, c, i); }
    std::string GetTriggerParamName(I s, I c, I id) override
    {
        return answer<&TriggerParameters::GetTriggerParamName>("Level", s, c, id);
    }
    std::string GetTriggerParamType(I s, I c, I id) override
    {
        return answer<&TriggerParameters::GetTriggerParamType>("Float", s, c, id);
    }
    Value GetTriggerParamValue(I s, I c, I id) override
    {
        return answer<&TriggerParameters::GetTriggerParamValue>(0.5, s, c, id);
    }
    // The parameter has no choices, and no event here edits it.
    std::vector<std::string> GetTriggerParamChoices(I, I, I) override { return {}; }
    double GetTriggerParamMin(I, I, I) override { return -10; }
    double GetTriggerParamMax(I, I, I) override { return 10; }
    void SetTriggerParamValue(I, I, I, const Value&) override {}
    bool TriggerEnabled(I s, I c) override { return answer<&TriggerParameters::TriggerEnabled>(c == source_, s, c); }
    void setTriggerEnabled(I s, I c, bool enabled) override
    {
        enter<&TriggerParameters::setTriggerEnabled>(s, c, enabled);
        if (enabled || source_ == c)
            source_ = enabled ? c : -1;
    }
    bool CanTrigger(I s, I c) override { return answer<&TriggerParameters::CanTrigger>(true, s, c); }
    std::string GetTriggerGroupName(I) override { return "Inputs"; }

private:
    template <auto Member, class... Arguments> void enter(Arguments... arguments)
    {
        if (!cost)
            return;
        work(cost->work);
        if (cost->made)
            cost->made->push_back({this, &again<Member>, noted(arguments...)});
    }
    template <auto Member, class T, class... Arguments>
    typename ResultOf<decltype(Member)>::Type answer(T&& value, Arguments... arguments)
    {
        enter<Member>(arguments...);
        return std::forward<T>(value);
    }
    template <auto Member, class T> void put(T& kept, T value)
    {
        enter<Member>(value);
        kept = value;
    }
    template <class... Arguments> static MadeCall::Arguments noted(Arguments... arguments)
    {
        MadeCall::Arguments result;
        [[maybe_unused]] std::size_t place = 0;
        [[maybe_unused]] const auto note = [&](auto argument) {
            if constexpr (std::is_integral_v<decltype(argument)>)
                result.whole[place++] = argument;
            else
                result.number = argument;
        };
        (note(arguments), ...);
        return result;
    }
    template <auto Member>
    static void again(BareDriver& driver, const MadeCall::Arguments& arguments, std::int32_t count)
    {
        for (std::int32_t i = 0; i < count; ++i)
            call(driver, Member, arguments, i);
    }
    template <class View, class Result, class... Arguments>
    static void call(BareDriver& driver, Result (View::*member)(Arguments...), const MadeCall::Arguments& noted,
                     std::int32_t later)
    {
        [&]<std::size_t... place>(std::index_sequence<place...>)
        {
            (static_cast<View&>(driver).*member)(as<Arguments>(noted, place, place == 1 ? later : 0)...);
        }
        (std::index_sequence_for<Arguments...>());
    }
    template <class T> static T as(const MadeCall::Arguments& noted, std::size_t place, std::int32_t later)
    {
        if constexpr (std::is_same_v<T, bool>)
            return noted.whole[place] != 0;
        else if constexpr (std::is_integral_v<T>)
            return noted.whole[place] + later;
        else if constexpr (std::is_same_v<T, DateTime>)
            return {noted.number};
        else
            return static_cast<T>(noted.number);
    }

    bool isDynamic_;
    I channels_, startMode_ = 0, stopMode_ = 0, startLine_ = -1, startInput_ = -1, scanLine_ = -1, scanInput_ = -1;
    I source_ = 1;
    double samplePeriod_ = 0.001, blockSize_ = 1024, scanPeriod_ = 0.1, startTime_ = 0.25;
    float duration_ = 10;
    Choices choices_;
};

} // namespace ko::bench
