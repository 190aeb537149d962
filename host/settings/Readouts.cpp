#include "host/settings/Settings.h"

#include <array>
#include <cmath>

namespace ko {

namespace {

/// A figure that the page computes.
struct Readout {
    const char* name;
    Label Page::*label;
    Control& (*value)(Page&);
    Value (*read)(const Page&, const std::string& caption);
    const char* unit = "";
};

/// Returns none if the figure is unknown or infinite.
template <auto figure> Value number(const Page& page, const std::string& /*caption*/)
{
    const auto& known = page.figures.*figure;
    return known && std::isfinite(*known) ? Value(*known) : Value();
}

/// Returns the figure with its unit, as the page shows it.
template <auto figure> Value text(const Page& page, const std::string& caption)
{
    return page.figures.*figure ? Value(caption) : Value();
}

Value time(const Page& page, const std::string& /*caption*/)
{
    const auto& known = page.figures.stopTime;
    return known ? Value(isoText(*known)) : Value();
}

template <class Label, Label Page::*member> Control& of(Page& page)
{
    return page.*member;
}

constexpr std::array readouts{
    Readout{"span", &Page::lblSpan, of<Label, &Page::lblSpanValue>, number<&Figures::span>, "Hz"},
    Readout{"samples", &Page::lblNumSamples, of<Label, &Page::lblNumSamplesValue>, number<&Figures::samples>},
    Readout{"dynamic-size", &Page::lblNumDynamicBytes, of<LimitedLabel, &Page::lblNumDynamicBytesValue>,
            text<&Figures::dynamicBytes>},
    Readout{"scans", &Page::lblNumScans, of<Label, &Page::lblNumScansValue>, number<&Figures::scans>},
    Readout{"static-size", &Page::lblNumStaticBytes, of<LimitedLabel, &Page::lblNumStaticBytesValue>,
            text<&Figures::staticBytes>},
    Readout{"actual-duration", &Page::lblDuration, of<Label, &Page::lblDurationValue>, text<&Figures::actualSeconds>},
    Readout{"actual-stop-time", &Page::lblStopTime, of<Label, &Page::lblStopTimeValue>, time},
};

Setting settingOf(const Readout& readout, Page& page)
{
    Setting setting;
    setting.name = readout.name;
    setting.label = labelText(page.*readout.label);
    setting.unit = readout.unit;
    setting.controls = {readout.value(page).name()};
    setting.control = readout.value;
    setting.read = [readout](const HeadlessPage& played) {
        const auto& label = dynamic_cast<const CaptionControl&>(readout.value(played.page()));
        return readout.read(played.page(), label.caption());
    };
    return setting;
}

} // namespace

void addReadouts(Settings& settings, const HeadlessPage& played)
{
    for (const Readout& readout : readouts)
        settings.push_back(settingOf(readout, played.page()));
}

} // namespace ko
