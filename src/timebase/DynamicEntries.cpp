#include "timebase/DynamicEntries.h"

#include "support/Numbers.h"

#include <cmath>

namespace ko {

void DynamicEntry::acceptPeriod(const Steps& step, double seconds, double (*shown)(double))
{
    if (!std::isfinite(seconds))
        return;
    const DynamicEditors::Written written = editors_.writeSamplePeriod(step, seconds);
    editors_.showWritten(step, written, seconds, box());
    if (!written.inForce)
        return;
    step([&] {
        if (written.fate == DynamicEditors::Written::Fate::Refused)
            showSelected(shown(*written.inForce));
        else
            show(shown(*written.inForce));
    });
}

DynamicEditors::SampleRateEntry::SampleRateEntry(Page& page, Support& support, DynamicEditors& editors)
    : DynamicEntry(
          page, support, page.txtSampleRate, NumberType::Double,
          {"txtSampleRate_GotFocus", "txtSampleRate_LostFocus", "txtSampleRate_Change", "txtSampleRate_Validate"},
          editors)
{
}

NumberBounds DynamicEditors::SampleRateEntry::bounds()
{
    return rateBounds(page().samplePeriodRange);
}

double DynamicEditors::SampleRateEntry::inForce()
{
    return reciprocal(timebase().SamplePeriod());
}

void DynamicEditors::SampleRateEntry::accept(const Steps& step, double value)
{
    acceptPeriod(step, 1.0 / value, reciprocal);
}

DynamicEditors::SamplePeriodEntry::SamplePeriodEntry(Page& page, Support& support, DynamicEditors& editors)
    : DynamicEntry(page, support, page.txtSamplePeriod, NumberType::Double,
                   {"txtSamplePeriod_GotFocus", "txtSamplePeriod_LostFocus", "txtSamplePeriod_Change",
                    "txtSamplePeriod_Validate"},
                   editors)
{
}

NumberBounds DynamicEditors::SamplePeriodEntry::bounds()
{
    return periodBounds(page().samplePeriodRange);
}

double DynamicEditors::SamplePeriodEntry::inForce()
{
    return timebase().SamplePeriod();
}

void DynamicEditors::SamplePeriodEntry::accept(const Steps& step, double value)
{
    acceptPeriod(step, value, [](double period) { return period; });
}

DynamicEditors::BlockSizeEntry::BlockSizeEntry(Page& page, Support& support, DynamicEditors& editors)
    : DynamicEntry(page, support, page.txtBlockSize, NumberType::Long,
                   {"txtBlockSize_GotFocus", "txtBlockSize_LostFocus", "txtBlockSize_Change", "txtBlockSize_Validate"},
                   editors)
{
}

NumberBounds DynamicEditors::BlockSizeEntry::bounds()
{
    return {page().blockSizeRange.minimum, page().blockSizeRange.maximum};
}

double DynamicEditors::BlockSizeEntry::inForce()
{
    return timebase().BlockSize();
}

void DynamicEditors::BlockSizeEntry::accept(const Steps& step, double value)
{
    const DynamicEditors::Written written = editors().writeBlockSize(step, value);
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
