#include "host/Settings.h"

#include "platform/NumberText.h"

#include <array>
#include <limits>

namespace ko {

namespace {

/// A figure that the page works out.
struct Readout {
    const char* name;
    Label Page::*label;
    Control& (*value)(Page&);
    Json (*read)(const Page&, const std::string&);
    const char* unit = "";
};

/// A number where the page shows one, else the text; none for what is not available or endless.
Json figure(const Page& page, const std::string& text)
{
    static const std::string endless = numberText(std::numeric_limits<double>::infinity(), Locale{});
    if (text.empty() || text == page.notApplicableText || text == endless)
        return {};
    const auto number = numberIn(text);
    return number ? Json(*number) : Json(text);
}

Json hertz(const Page& page, const std::string& text)
{
    const std::size_t unit = text.rfind(" " + page.hertzText);
    return figure(page, text.substr(0, unit));
}

Json time(const Page& page, const std::string& text)
{
    const auto shown = timeIn(text);
    return shown ? Json(isoText(*shown)) : figure(page, text);
}

template <class Label, Label Page::*member> Control& of(Page& page)
{
    return page.*member;
}

constexpr std::array readouts{
    Readout{"span", &Page::lblSpan, of<Label, &Page::lblSpanValue>, hertz, "Hz"},
    Readout{"samples", &Page::lblNumSamples, of<Label, &Page::lblNumSamplesValue>, figure},
    Readout{"dynamic-size", &Page::lblNumDynamicBytes, of<LimitedLabel, &Page::lblNumDynamicBytesValue>, figure},
    Readout{"scans", &Page::lblNumScans, of<Label, &Page::lblNumScansValue>, figure},
    Readout{"static-size", &Page::lblNumStaticBytes, of<LimitedLabel, &Page::lblNumStaticBytesValue>, figure},
    Readout{"actual-duration", &Page::lblDuration, of<Label, &Page::lblDurationValue>, figure},
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
    setting.read = [readout](const PlayedPage& played) {
        const auto& label = dynamic_cast<const CaptionControl&>(readout.value(played.page()));
        return readout.read(played.page(), label.caption());
    };
    return setting;
}

} // namespace

void addReadouts(Settings& settings, const PlayedPage& played)
{
    for (const Readout& readout : readouts)
        settings.push_back(settingOf(readout, played.page()));
}

} // namespace ko
