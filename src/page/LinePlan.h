#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace ko {

/// The trigger lines are numbered from 0 to one less.
inline constexpr std::int32_t triggerLineCount = 8;

/// A mark for each trigger line, such as whether it may be chosen.
using LineMask = std::array<bool, triggerLineCount>;

/// The two triggers that share the lines.
enum class LineTrigger : std::uint8_t { start, scan };
inline constexpr LineTrigger lineTriggers[] = {LineTrigger::start, LineTrigger::scan};
constexpr LineTrigger otherThan(LineTrigger trigger)
{
    return trigger == LineTrigger::start ? LineTrigger::scan : LineTrigger::start;
}

/// One of each for the two triggers.
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

/// Which line carries the start trigger and which one the sync trigger (-1: none), and which lines may be chosen for
/// each. The two never share a line: the line of one may not be chosen for the other.
class LinePlan {
public:
    /// No line may be chosen, and none is.
    LinePlan() = default;
    /// The lines that the drivers offer, and those that masters drive already (-1: none); where both drive one line it
    /// is the start's.
    LinePlan(const PerTrigger<LineMask>& offered, const PerTrigger<std::int32_t>& driven);

    [[nodiscard]] std::int32_t line(LineTrigger trigger) const { return lines_[trigger]; }
    /// What is offered for the trigger, but for the line that the other one has. Inline, as hosts call it, too.
    [[nodiscard]] LineMask available(LineTrigger trigger) const
    {
        LineMask mask = offered_[trigger];
        if (const std::int32_t others = lines_[otherThan(trigger)]; others >= 0)
            mask.at(static_cast<std::size_t>(others)) = false;
        return mask;
    }
    /// The trigger's line; where it has none the first one that may be chosen; -1 when there is none.
    [[nodiscard]] std::int32_t lineOrFirst(LineTrigger trigger) const;
    /// The trigger has no line, and none may be chosen for it.
    [[nodiscard]] bool lacksLine(LineTrigger trigger) const { return lineOrFirst(trigger) < 0; }

    /// The user's choice. The line that the trigger leaves is offered for the other one from now on.
    void choose(LineTrigger trigger, std::int32_t line);
    /// Gives the trigger this line (-1: none), as its driver has it. Of a line that the other trigger has, the start's
    /// claim counts.
    void put(LineTrigger trigger, std::int32_t line);
    /// Offers for the trigger what the other plan does.
    void restoreOffer(LineTrigger trigger, const LinePlan& from) { offered_[trigger] = from.offered_[trigger]; }

    bool operator==(const LinePlan&) const = default;

private:
    PerTrigger<LineMask> offered_;
    PerTrigger<std::int32_t> lines_{-1, -1};
};

} // namespace ko
