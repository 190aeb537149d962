#include "host/Settings.h"

#include "interfaces/Timebase.h"
#include "platform/NumberText.h"

#include <array>
#include <cmath>

namespace ko {

namespace {

/// A rate, a period or a block size: a list where the instruments share choices, else a box.
struct Quantity {
    const char* name;
    const char* unit;
    Label Page::*label;
    ComboBox Page::*list;
    TextBox Page::*box;
    Driver* (PlayedPage::*driver)() const;
    double (Timebase::*held)();
    Range Page::*range; ///< of periods also for a rate
    bool isRate;
};

constexpr std::array quantities{
    Quantity{"sample-rate", "Sa/s", &Page::lblSampleRate, &Page::cmbSampleRate, &Page::txtSampleRate,
             &PlayedPage::dynamicDriver, &Timebase::SamplePeriod, &Page::samplePeriodRange, true},
    Quantity{"sample-period", "s", &Page::lblSamplePeriod, &Page::cmbSamplePeriod, &Page::txtSamplePeriod,
             &PlayedPage::dynamicDriver, &Timebase::SamplePeriod, &Page::samplePeriodRange, false},
    Quantity{"block-size", "Sa", &Page::lblBlockSize, &Page::cmbBlockSize, &Page::txtBlockSize,
             &PlayedPage::dynamicDriver, &Timebase::BlockSize, &Page::blockSizeRange, false},
    Quantity{"scan-rate", "Sc/s", &Page::lblScanRate, &Page::cmbScanRate, &Page::txtScanRate, &PlayedPage::staticDriver,
             &Timebase::ScanPeriod, &Page::scanPeriodRange, true},
    Quantity{"scan-period", "s", &Page::lblScanPeriod, &Page::cmbScanPeriod, &Page::txtScanPeriod,
             &PlayedPage::staticDriver, &Timebase::ScanPeriod, &Page::scanPeriodRange, false},
};

Control& shown(Page& page, const Quantity& quantity)
{
    ComboBox& list = page.*quantity.list;
    return list.visible() ? static_cast<Control&>(list) : page.*quantity.box;
}

/// The rate of a period, in as few digits as bring back that period.
double rateOf(double period)
{
    const double rate = 1.0 / period;
    const auto shown = numberIn(numberText(rate, Locale{}));
    return shown && 1.0 / *shown == period ? *shown : rate;
}

Json read(const PlayedPage& played, const Quantity& quantity)
{
    Driver* const driver = (played.*quantity.driver)();
    Timebase* const timebase = driver ? driver->queryTimebase() : nullptr;
    if (!timebase)
        return {};
    const double held = (timebase->*quantity.held)();
    const double figure = quantity.isRate ? rateOf(held) : held;
    return std::isfinite(figure) ? Json(figure) : Json();
}

std::optional<Range> rangeOf(const Page& page, const Quantity& quantity)
{
    const Range range = page.*quantity.range;
    if (range == Range{})
        return std::nullopt;
    return quantity.isRate ? Range{rateOf(range.maximum), rateOf(range.minimum)} : range;
}

Offer offerOf(const PlayedPage& played, const Quantity& quantity)
{
    Offer offer;
    const ComboBox& list = played.page().*quantity.list;
    if (!list.visible()) {
        offer.range = rangeOf(played.page(), quantity);
        return offer;
    }
    for (const ComboBox::Item& item : list.items())
        if (numberIn(item.text))
            offer.choices.push_back(item.text);
    return offer;
}

/// The page says itself what is wrong with a number typed into a box.
Request requestOf(const PlayedPage& played, const Quantity& quantity, const std::string& value)
{
    const Control& control = shown(played.page(), quantity);
    const auto number = numberIn(value);
    const Json wanted = number ? Json(*number) : Json(value);
    if (&control == &(played.page().*quantity.box))
        return {{"focus " + control.name(), "text " + control.name() + " " + quotedWord(value), "leave"}, wanted};
    const std::vector<std::string> choices = offerOf(played, quantity).choices;
    return {{"choose " + control.name() + " " + quotedWord(choices.at(choiceOf(choices, value)))}, wanted};
}

Setting settingOf(const Quantity& quantity, const Page& page)
{
    Setting setting;
    setting.name = quantity.name;
    setting.label = labelText(page.*quantity.label);
    setting.unit = quantity.unit;
    setting.controls = {(page.*quantity.list).name(), (page.*quantity.box).name()};
    setting.control = [quantity](Page& shownOn) -> Control& { return shown(shownOn, quantity); };
    setting.read = [quantity](const PlayedPage& played) { return read(played, quantity); };
    setting.offer = [quantity](const PlayedPage& played) { return offerOf(played, quantity); };
    setting.write = [quantity](const PlayedPage& played, const std::string& value) {
        return requestOf(played, quantity, value);
    };
    return setting;
}

} // namespace

void addSamplingSettings(Settings& settings, const PlayedPage& played)
{
    for (const Quantity& quantity : quantities)
        settings.push_back(settingOf(quantity, played.page()));
}

} // namespace ko
