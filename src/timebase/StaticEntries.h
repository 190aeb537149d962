#pragma once

#include "page/NumberEntry.h"
#include "timebase/StaticEditors.h"

namespace ko {

/// A text box whose number all drivers share.
class StaticEntry : public NumberEntry {
public:
    StaticEntry(Page& page, Support& support, TextBox& box, Names names, StaticEditors& editors)
        : NumberEntry(page, support, box, NumberType::Double, names), editors_(editors)
    {
    }

protected:
    bool isActive() override { return page().hasStaticDrivers; }
    /// The scan period that the page shows: that of the last driver with a timebase.
    double scanPeriod();
    /// The scan period of the current static driver, which takes the place of a refused text.
    double scanPeriodOfCurrent() { return required(page().timebaseAt(page().staticDriverIndex)).ScanPeriod(); }
    /// The range that the hint names, none unless both ends of `bounds` are known.
    static Range hintOf(const NumberBounds& bounds);
    /// Pushes a scan period and shows what came of it, in this box as `shown(period)`.
    void acceptPeriod(const Steps& step, double seconds, double (*shown)(double));

private:
    StaticEditors& editors_;
};

class StaticEditors::ScanRateEntry : public StaticEntry {
public:
    ScanRateEntry(Page& page, Support& support, StaticEditors& editors);

protected:
    NumberBounds bounds() override;
    double inForce() override;
    double afterRefusal() override;
    void accept(const Steps& step, double value) override;
    Range hintRange() override;
};

class StaticEditors::ScanPeriodEntry : public StaticEntry {
public:
    ScanPeriodEntry(Page& page, Support& support, StaticEditors& editors);

protected:
    NumberBounds bounds() override;
    double inForce() override;
    double afterRefusal() override;
    void accept(const Steps& step, double value) override;
    Range hintRange() override;
};

} // namespace ko
