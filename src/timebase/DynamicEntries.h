#pragma once

#include "page/NumberEntry.h"
#include "timebase/DynamicEditors.h"

namespace ko {

/// A text box whose number the current dynamic driver holds.
class DynamicEntry : public NumberEntry {
public:
    /// What tells one of these boxes from the others.
    struct Kind {
        NumberType type{};
        Names names;
        DynamicEditors::Quantity quantity{};
        NumberBounds (*bounds)(const Page& page) = nullptr;
        /// From what the driver holds to what the box shows; its own inverse.
        double (*converted)(double value) = nullptr;
    };

    DynamicEntry(Page& page, Support& support, TextBox& box, const Kind& kind, DynamicEditors& editors)
        : NumberEntry(page, support, box, kind.type, kind.names), kind_(kind), editors_(editors)
    {
    }

    static const Kind sampleRate, samplePeriod, blockSize;

protected:
    NumberBounds bounds() override { return kind_.bounds(page()); }
    std::optional<Held> held() override;
    double shown(double held) const override { return kind_.converted(held); }
    void accept(const Steps& step, double value, const std::optional<Held>& before) override;

private:
    const Kind& kind_;
    DynamicEditors& editors_;
};

} // namespace ko
