#pragma once

#include "page/NumberEntry.h"
#include "timebase/DynamicEditors.h"

namespace ko {

/// A text box whose number the current dynamic driver holds.
class DynamicEntry : public NumberEntry {
public:
    DynamicEntry(Page& page, Support& support, TextBox& box, NumberType type, Names names, DynamicEditors& editors)
        : NumberEntry(page, support, box, type, names), editors_(editors)
    {
    }

protected:
    DynamicEditors& editors() { return editors_; }
    Timebase& timebase() { return required(page().timebaseAt(page().dynamicDriverIndex)); }
    /// Writes a sample period and shows what came of it, in this box as `shown(period)`.
    void acceptPeriod(const Steps& step, double seconds, double (*shown)(double));

private:
    DynamicEditors& editors_;
};

class DynamicEditors::SampleRateEntry : public DynamicEntry {
public:
    SampleRateEntry(Page& page, Support& support, DynamicEditors& editors);

protected:
    NumberBounds bounds() override;
    double inForce() override;
    void accept(const Steps& step, double value) override;
};

class DynamicEditors::SamplePeriodEntry : public DynamicEntry {
public:
    SamplePeriodEntry(Page& page, Support& support, DynamicEditors& editors);

protected:
    NumberBounds bounds() override;
    double inForce() override;
    void accept(const Steps& step, double value) override;
};

class DynamicEditors::BlockSizeEntry : public DynamicEntry {
public:
    BlockSizeEntry(Page& page, Support& support, DynamicEditors& editors);

protected:
    NumberBounds bounds() override;
    double inForce() override;
    void accept(const Steps& step, double value) override;
};

} // namespace ko
