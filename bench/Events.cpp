#include "bench/Events.h"

#include "triggering/SelectChannel.h"

namespace ko::bench {

namespace {

constexpr std::int32_t channels = 64;

/// Lists that differ from driver to driver, so that merging them takes time.
BareDriver::Choices choices(int entries, int variant)
{
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(entries));
    for (int i = 0; i < entries; ++i)
        if (i % 16 != 3 + variant)
            values.push_back(1e-6 * (i + 1));
    return std::make_shared<const std::vector<double>>(std::move(values));
}

/// Types one character that replaces the text of a box.
Event keystroke(const std::string& name, TextBox Page::*box, const char* before, const char* key)
{
    const auto type = [box](Setup& setup, const char* text) {
        TextBox& typedIn = setup.page().*box;
        typedIn.select(0, typedIn.text().size());
        typedIn.userTyped(text);
    };
    return {"key in " + name, Event::Offers::Boxes,
            [=](Setup& setup) {
                setup.page().moveFocus(&(setup.page().*box));
                type(setup, before);
            },
            [=](Setup& setup) { type(setup, key); }};
}

Event choice(const std::string& name, ComboBox Page::*list, Event::Offers offers)
{
    return {"choice in " + name, offers, [=](Setup& setup) { (setup.page().*list).userChose(0); },
            [=](Setup& setup) { (setup.page().*list).userChose(1); }};
}

Event click(const std::string& name, OptionButton Page::*before, OptionButton Page::*option)
{
    return {"click on " + name, Event::Offers::Both,
            [=](Setup& setup) {
                if (option == &Page::optStopTime)
                    setup.page().optStartTime.userClicked();
                (setup.page().*before).userClicked();
            },
            [=](Setup& setup) { (setup.page().*option).userClicked(); }};
}

void chooseChannel(Setup& setup, std::int32_t channel)
{
    setup.inDialog([channel](Form& form) {
        auto& dialog = dynamic_cast<SelectChannel&>(form);
        dialog.chsNavigate.userPicked({*dialog.chsNavigate.lineOf(nullptr, 0, channel)});
        dialog.cmdOK.userClicked();
    });
    setup.page().cmdChannel.userClicked();
}

} // namespace

Setup::Setup(int drivers, int entries)
{
    std::vector<BareDriver::Choices> lists;
    lists.reserve(7);
    for (int variant = 0; variant < 7; ++variant)
        lists.push_back(choices(entries, variant));
    drivers_.reserve(static_cast<std::size_t>(drivers));
    for (int i = 0; i < drivers; ++i)
        drivers_.push_back(std::make_shared<BareDriver>(i % 2 == 0, channels, lists[static_cast<std::size_t>(i) % 7]));
    open();
}

void Setup::open()
{
    document.drivers().setNumberOfDrivers(static_cast<std::int32_t>(drivers_.size()));
    document.drivers().setDrivers(drivers_);
    document.drivers().DriversHaveChanged();
    document.UserDocument_Show();
}

std::vector<Event> events()
{
    using Offers = Event::Offers;
    const auto readOnly = [](bool on) { return [on](Setup& setup) { setup.document.mode().setReadOnly(on); }; };
    return {
        {"opening", Offers::Both, [](Setup& setup) { setup.document.UserDocument_Hide(); },
         [](Setup& setup) { setup.open(); }},
        keystroke("txtSampleRate", &Page::txtSampleRate, "8", "7"),
        keystroke("txtSamplePeriod", &Page::txtSamplePeriod, "8", "7"),
        keystroke("txtBlockSize", &Page::txtBlockSize, "32", "64"),
        keystroke("txtScanRate", &Page::txtScanRate, "8", "7"),
        keystroke("txtScanPeriod", &Page::txtScanPeriod, "8", "7"),
        keystroke("txtDuration", &Page::txtDuration, "8", "7"),
        choice("cmbSampleRate", &Page::cmbSampleRate, Offers::Lists),
        choice("cmbSamplePeriod", &Page::cmbSamplePeriod, Offers::Lists),
        choice("cmbBlockSize", &Page::cmbBlockSize, Offers::Lists),
        choice("cmbScanRate", &Page::cmbScanRate, Offers::Lists),
        choice("cmbScanPeriod", &Page::cmbScanPeriod, Offers::Lists),
        choice("cmbInterval", &Page::cmbInterval, Offers::Both),
        click("optImmediate", &Page::optStartTime, &Page::optImmediate),
        click("optStartTime", &Page::optImmediate, &Page::optStartTime),
        click("optOnTrigger", &Page::optImmediate, &Page::optOnTrigger),
        click("optStopTime", &Page::optAfter, &Page::optStopTime),
        click("optAfter", &Page::optStopTime, &Page::optAfter),
        {"new trigger channel", Offers::Both,
         [](Setup& setup) {
             setup.page().optOnTrigger.userClicked();
             chooseChannel(setup, 2);
         },
         [](Setup& setup) { chooseChannel(setup, 5); }},
        {"read-only on", Offers::Both, readOnly(false), readOnly(true)},
        {"read-only off", Offers::Both, readOnly(true), readOnly(false)},
    };
}

} // namespace ko::bench
