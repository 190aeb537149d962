#pragma once

#include "interfaces/Values.h"

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ko {

/// How an instrument rounds a requested value. A value that is not finite is never kept.
enum class Keeps {
    Nearest, ///< the nearest choice, the first of two equally near ones; without choices like `Any`
    Clamp,   ///< clamped to the range; without a range like `Any`
    Any,     ///< the value unchanged
    Nothing  ///< keeps the old value
};

/// The rules' names in set-up files, in their order.
inline constexpr std::array<std::string_view, 4> keepsNames{"nearest", "clamp", "any", "nothing"};

/// A timebase quantity: a period in seconds or a block size in samples.
struct QuantitySettings {
    double value = 0.0;
    std::vector<double> choices;
    Range range; ///< 0 and 0: none
    std::optional<Keeps> keeps;

    bool operator==(const QuantitySettings&) const = default;

    /// `keeps`, or the default for these choices and this range.
    [[nodiscard]] Keeps rule() const;
    /// Sets `value` to what the rule makes of `requested`, and returns it.
    double request(double requested);
};

struct TimebaseSettings {
    QuantitySettings samplePeriod{.value = 0.001, .choices = {}, .range = {}, .keeps = {}};
    QuantitySettings blockSize{.value = 1024.0, .choices = {}, .range = {}, .keeps = {}};
    QuantitySettings scanPeriod{.value = 0.1, .choices = {}, .range = {}, .keeps = {}};
    DateTime startTime;
    float duration = 10.0F; ///< seconds
    std::int32_t stopMode = 0;
    std::int32_t startMode = 0;

    bool operator==(const TimebaseSettings&) const = default;
};

struct TriggerLineSettings {
    std::int32_t startMasterRank = -1;
    std::int32_t startTriggerLine = -1;
    std::int32_t startTriggerInput = -1;
    std::int32_t scanMasterRank = -1;
    std::int32_t scanTriggerLine = -1;
    std::int32_t scanTriggerInput = -1;
    LineList startLinesAsMaster, startLinesAsListener;
    LineList scanLinesAsMaster, scanLinesAsListener;

    bool operator==(const TriggerLineSettings&) const = default;
};

/// The part that a trigger parameter plays when a recording starts on trigger; its names in set-up files.
namespace parameterRole {
inline constexpr std::string_view level = "level";           ///< a number; 0 without one
inline constexpr std::string_view slope = "slope";           ///< a text that begins with Rising, Falling or Either
inline constexpr std::string_view pretrigger = "pretrigger"; ///< a number of samples; 0 without one
inline constexpr std::array all{level, slope, pretrigger};
} // namespace parameterRole

struct ParameterSettings {
    std::int32_t id = 0;
    std::string name;
    std::string type;
    std::optional<double> minimum, maximum;
    std::vector<std::string> choices;
    Value value;
    std::string role; ///< see `parameterRole`; empty: none

    bool operator==(const ParameterSettings&) const = default;
};

/// The shape of a simulated signal, between -1 and 1.
enum class Shape { Sine, Square, Triangle, Constant };

/// The shapes' names in set-up files, in their order.
inline constexpr std::array<std::string_view, 4> shapeNames{"sine", "square", "triangle", "constant"};

/// What a simulated channel measures: offset + amplitude x shape + noise.
struct SignalSettings {
    Shape shape = Shape::Sine;
    double frequency = 50.0; ///< hertz
    double amplitude = 1.0;
    double offset = 0.0;
    double phase = 0.0; ///< radians
    double noise = 0.0; ///< root mean square of Gaussian noise
    std::int32_t seed = 0;

    bool operator==(const SignalSettings&) const = default;
};

struct ChannelSettings {
    std::string address; ///< "mainframe:slot:channel" or "slot:channel"
    std::string name;
    Value enabled = std::int32_t{1};
    bool canTrigger = true;
    bool triggerSource = false;
    std::vector<ParameterSettings> triggerParameters;
    std::optional<std::string> unit;      ///< of the samples; none: volts
    std::optional<SignalSettings> signal; ///< none: the default signal
    Range range;                          ///< to which samples are limited; 0 and 0: not limited

    bool operator==(const ChannelSettings&) const = default;

    [[nodiscard]] bool isEnabled() const { return enabled != Value{std::int32_t{0}}; }
};

struct GroupSettings {
    std::string name;
    std::vector<ChannelSettings> channels;

    bool operator==(const GroupSettings&) const = default;
};

/// A failure that an operation is to raise.
struct SimulatedFailure {
    /// The operation's name ("SamplePeriod set"), or "#N" for the N-th call from now on.
    std::string operation;
    std::int32_t number = -2147467259;
    std::string description = "simulated failure";

    bool operator==(const SimulatedFailure&) const = default;
};

/// Options of a device, by the names that its driver module gives them.
using DeviceOptions = std::map<std::string, std::string>;

/// All settings of an instrument, simulated or a device that a driver module opens.
struct InstrumentSettings {
    std::string name;
    std::string module; ///< the driver module's name; empty: simulated
    std::string device; ///< the module's description of the device
    DeviceOptions options;
    std::int32_t measurementMode = 1;
    std::int32_t samplingMode = 1;
    std::vector<GroupSettings> groups;
    bool hasTriggerParameters = true;
    std::optional<TimebaseSettings> timebase;
    std::optional<TriggerLineSettings> triggerLines;
    std::optional<double> dynamicBytes; ///< fixed figure; none: computed
    std::optional<std::int32_t> numberOfScans;
    std::vector<SimulatedFailure> failing;

    bool operator==(const InstrumentSettings&) const = default;
};

} // namespace ko
