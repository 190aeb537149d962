#pragma once

#include "page/NumberEntry.h"
#include "timebase/StaticEditors.h"

namespace ko {

/// A text box whose number all drivers share.
class StaticEntry : public NumberEntry {
public:
    /// What tells one of these boxes from the other.
    struct Kind {
        Names names;
        NumberBounds (*bounds)(Range periods) = nullptr;
        /// From a scan period to what the box shows; its own inverse.
        double (*converted)(double value) = nullptr;
    };

    StaticEntry(Page& page, Support& support, TextBox& box, const Kind& kind, StaticEditors& editors)
        : NumberEntry(page, support, box, NumberType::Double, kind.names), kind_(kind), editors_(editors)
    {
    }

    static const Kind scanRate, scanPeriod;

protected:
    bool isActive() override { return page().hasStaticDrivers; }
    NumberBounds bounds() override { return kind_.bounds(page().scanPeriodRange); }
    /// The scan period that the page shows: that of the last driver with a timebase.
    std::optional<Held> held() override;
    /// That of the current static driver, when it has a timebase.
    std::optional<double> heldAfterRefusal() override;
    double shown(double seconds) const override { return kind_.converted(seconds); }
    void accept(const Steps& step, double value, const std::optional<Held>& before) override;
    Range hintRange() override;

private:
    const Kind& kind_;
    StaticEditors& editors_;
};

} // namespace ko
