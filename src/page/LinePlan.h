#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace ko {

/// The trigger lines are numbered from 0 to `triggerLineCount` - 1.
inline constexpr std::int32_t triggerLineCount = 8;

/// A flag for each trigger line, for example whether it may be chosen.
using LineMask = std::array<bool, triggerLineCount>;

/// The two triggers that share the lines.
enum class LineTrigger : std::uint8_t { start, scan };
inline constexpr LineTrigger lineTriggers[] = {LineTrigger::start, LineTrigger::scan};
constexpr LineTrigger otherThan(LineTrigger trigger)
{
    return trigger == LineTrigger::start ? LineTrigger::scan : LineTrigger::start;
}

/// A value for each of the two triggers.
template <class T> struct PerTrigger {
    T start{};
    T scan{};

    [[nodiscard]] constexpr T& operator[](LineTrigger trigger) { return trigger == LineTrigger::start ? start : scan; }
    [[nodiscard]] constexpr const T& operator[](LineTrigger trigger) const
    {
        return trigger == LineTrigger::start ? start : scan;
    }
    bool operator==(const PerTrigger&) const = default;
};

/// The lines of the start trigger and of the sync trigger (-1: none), and the lines that may be chosen for each. The
/// two never share a line: the line of one cannot be chosen for the other.
class LinePlan {
public:
    /// No line is chosen, and none may be.
    LinePlan() = default;
    /// `offered`: lines that the drivers offer; `driven`: lines that masters already drive (-1: none). A line that both
    /// drive becomes the start trigger's.
    LinePlan(const PerTrigger<LineMask>& offered, const PerTrigger<std::int32_t>& driven);

    [[nodiscard]] std::int32_t line(LineTrigger trigger) const { return lines_[trigger]; }
    /// The lines offered for the trigger, except the other trigger's line. Inline, because hosts call it, too.
    [[nodiscard]] LineMask available(LineTrigger trigger) const
    {
        LineMask mask = offered_[trigger];
        if (const std::int32_t others = lines_[otherThan(trigger)]; others >= 0)
            mask.at(static_cast<std::size_t>(others)) = false;
        return mask;
    }
    /// The trigger's line, else the first line that may be chosen, else -1.
    [[nodiscard]] std::int32_t lineOrFirst(LineTrigger trigger) const;
    /// Whether the trigger has no line and none may be chosen for it.
    [[nodiscard]] bool lacksLine(LineTrigger trigger) const { return lineOrFirst(trigger) < 0; }

    /// Sets the line that the user chose. The trigger's previous line becomes available to the other trigger.
    void choose(LineTrigger trigger, std::int32_t line);
    /// Sets the line that the trigger's driver holds (-1: none). When the other trigger has the same line, the start
    /// trigger keeps it.
    void put(LineTrigger trigger, std::int32_t line);
    /// Copies the lines offered for the trigger from another plan.
    void restoreOffer(LineTrigger trigger, const LinePlan& from) { offered_[trigger] = from.offered_[trigger]; }

    bool operator==(const LinePlan&) const = default;

private:
    PerTrigger<LineMask> offered_;
    PerTrigger<std::int32_t> lines_{-1, -1};
};

} // namespace ko
