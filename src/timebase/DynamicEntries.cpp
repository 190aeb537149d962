#include "timebase/DynamicEntries.h"

#include "support/Numbers.h"

namespace ko {

const DynamicEntry::Kind DynamicEntry::sampleRate{
    NumberType::Double,
    {"txtSampleRate_GotFocus", "txtSampleRate_LostFocus", "txtSampleRate_Change", "txtSampleRate_Validate"},
    DynamicEditors::samplePeriod,
    [](const Page& page) { return rateBounds(page.samplePeriodRange); },
    reciprocal};

const DynamicEntry::Kind DynamicEntry::samplePeriod{
    NumberType::Double,
    {"txtSamplePeriod_GotFocus", "txtSamplePeriod_LostFocus", "txtSamplePeriod_Change", "txtSamplePeriod_Validate"},
    DynamicEditors::samplePeriod,
    [](const Page& page) { return periodBounds(page.samplePeriodRange); },
    itself};

const DynamicEntry::Kind DynamicEntry::blockSize{
    NumberType::Long,
    {"txtBlockSize_GotFocus", "txtBlockSize_LostFocus", "txtBlockSize_Change", "txtBlockSize_Validate"},
    DynamicEditors::blockSize,
    [](const Page& page) {
        return NumberBounds{page.blockSizeRange.minimum, page.blockSizeRange.maximum};
    },
    itself};

std::optional<Held> DynamicEntry::held()
{
    Timebase* timebase = page().timebaseAt(page().dynamicDriverIndex);
    return timebase ? std::optional(Held{(timebase->*kind_.quantity.get)(), timebase}) : std::nullopt;
}

void DynamicEntry::accept(const Steps& step, double value, const std::optional<Held>& before)
{
    const auto written = editors_.writeTyped(step, kind_.quantity, kind_.converted(value), before, box());
    if (!written.inForce)
        return;
    step([&] {
        if (written.fate == DynamicEditors::Written::Fate::Refused)
            showSelected(*written.inForce);
        else
            show(*written.inForce);
    });
}

} // namespace ko
