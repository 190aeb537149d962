#include "modules/sigrok/Demo.h"

#include "interfaces/TriggerParameters.h"

#include <cmath>

namespace ko::sigrok {

TEST(SigrokDeviceTest, TheFoundDeviceCanBeOpenedAgainAndAgain)
{
    const auto library = std::make_shared<Library>();
    const auto found = library->devices();
    const auto demo = std::find(found.begin(), found.end(), FoundDevice{"demo", "Demo device"});
    ASSERT_NE(demo, found.end());
    const auto first = SigrokInstrument::open(library, demo->device, {});
    const auto second = SigrokInstrument::open(library, demo->device, {{"amplitude A0", "2"}});
    EXPECT_EQ(library->devices(), found);
    EXPECT_EQ(first->held().options.at("amplitude A0"), "10");
    EXPECT_EQ(second->held().options.at("amplitude A0"), "2");
}

TEST(SigrokDeviceTest, OffersItsChannelsTriggersAndOptions)
{
    const Demo demo({}, "demo:logic_channels=9:analog_channels=2");
    const InstrumentSettings& held = demo.instrument->held();
    ASSERT_EQ(held.groups.size(), 2U);
    EXPECT_EQ(held.groups[0].name, "Logic");
    ASSERT_EQ(held.groups[0].channels.size(), 9U);
    const ChannelSettings& logic = held.groups[0].channels[8];
    EXPECT_EQ(logic.address + logic.name + *logic.unit, "1:8D8");
    ASSERT_EQ(logic.triggerParameters.size(), 2U);
    EXPECT_EQ(logic.triggerParameters[0].choices,
              (std::vector<std::string>{"Rising edge", "Falling edge", "Either edge", "High level", "Low level"}));
    EXPECT_EQ(logic.triggerParameters[1].value, Value{20});
    const ChannelSettings& analog = held.groups[1].channels[1];
    EXPECT_EQ(analog.address + analog.name + *analog.unit, "2:1A1V");
    EXPECT_FALSE(analog.canTrigger);
    EXPECT_EQ(held.triggerLines->startMasterRank, 1);
    const DeviceOptions expected{{"amplitude A0", "10"},
                                 {"amplitude A1", "10"},
                                 {"measured_quantity A0", "voltage/dc"},
                                 {"measured_quantity A1", "voltage/dc"},
                                 {"offset A0", "0"},
                                 {"offset A1", "0"},
                                 {"pattern A0", "square"},
                                 {"pattern A1", "sine"},
                                 {"pattern Logic", "sigrok"}};
    EXPECT_EQ(held.options, expected);
}

TEST(SigrokDeviceTest, RefusesWhatItDoesNotHaveAndNamesWhatThereIs)
{
    const struct {
        const char* device;
        DeviceOptions options;
        const char* expected;
    } cases[] = {
        {"", {}, "\"\" is not a driver with options"},
        {"demo:conn", {}, "\"demo:conn\" is not a driver with options"},
        {"demo:", {}, "is not a driver"},
        {"nothing", {}, "no driver \"nothing\""},
        {"demo:conn=1.5", {}, "no option \"conn\"; offered: logic_channels, analog_channels, limit_frames"},
        {"demo:logic_channels=many", {}, "does not take \"many\" as logic_channels"},
        {"agilent-dmm:conn=/nowhere", {}, "no such device"},
        {"demo", {{"colour", "red"}}, "no option \"colour\"; offered: pattern Logic, "},
        {"demo",
         {{"pattern A0", "saw"}},
         "option \"pattern A0\": does not take \"saw\"; offered: square, sine, triangle, sawtooth, random"},
        {"demo", {{"amplitude A0", "much"}}, "option \"amplitude A0\": does not take \"much\""},
        {"demo", {{"samplerate", "1000"}}, "no option \"samplerate\""},
    };
    const auto library = std::make_shared<Library>();
    for (const auto& it : cases) {
        const std::string failure = thrownBy([&] { SigrokInstrument::open(library, it.device, it.options); });
        EXPECT_NE(failure.find(it.expected), std::string::npos) << it.device << ": " << failure;
    }
}

TEST(SigrokDeviceTest, RoundsSampleRatesToWhatTheDeviceHasAndArmsThem)
{
    const Demo demo;
    const struct {
        double requested, kept; // hertz
    } cases[] = {{1000.0, 1000.0}, {3333.4, 3333.0}, {0.2, 1.0}, {2e9, 1e9}, {1e300, 1e9}, {48000.0, 48000.0}};
    for (const auto& it : cases) {
        demo.timebase().setSamplePeriod(1.0 / it.requested);
        EXPECT_EQ(demo.timebase().SamplePeriod(), 1.0 / it.kept) << it.requested;
        EXPECT_EQ(demo.acquisition().arm().period, 1.0 / it.kept);
    }
    demo.timebase().setSamplePeriod(0.0);
    EXPECT_EQ(demo.timebase().SamplePeriod(), 1e-9);
    demo.timebase().setSamplePeriod(std::nan(""));
    EXPECT_EQ(demo.timebase().SamplePeriod(), 1e-9);
}

TEST(SigrokDeviceTest, WhatASetUpKeepsAndTheDeviceDoesNotTakeIsAFailureWithBoth)
{
    const Demo demo;
    const auto armedWith = [&](const auto& change) {
        const InstrumentSettings before = demo.instrument->held();
        demo.change(change);
        std::string failure = thrownBy([&] { demo.acquisition().arm(); });
        demo.instrument->restore(before);
        return failure;
    };
    EXPECT_EQ(armedWith([](auto& it) { it.timebase->samplePeriod.value = 0.4e-9; }),
              "sample rate: 2500000000 Hz set, 1000000000 Hz kept");
    EXPECT_EQ(armedWith([](auto& it) { it.timebase->samplePeriod.value = 3e-4; }),
              "sample rate: 3333.33333333333 Hz set, 3333 Hz kept");
    EXPECT_NE(armedWith([](auto& it) {
                  it.timebase->startMode = startMode::onTrigger;
                  it.groups[0].channels[0].triggerSource = true;
                  it.groups[0].channels[0].triggerParameters[1].value = std::int32_t{150};
              }).find("capture ratio: 150 %: "),
              std::string::npos);
    EXPECT_NE(armedWith([](auto& it) {
                  it.timebase->startMode = startMode::onTrigger;
                  it.groups[0].channels[0].triggerSource = true;
                  it.groups[0].channels[0].triggerParameters[0].value = "Never";
              }).find("channel D0 cannot trigger on \"Never\""),
              std::string::npos);
    EXPECT_EQ(armedWith([](auto&) {}), "");
    EXPECT_NE(thrownBy([&] { demo.change([](auto& it) { it.groups[0].channels.pop_back(); }); }), "");
    EXPECT_NE(thrownBy([&] { demo.change([](auto& it) { it.groups.emplace_back(); }); }), "");
}

} // namespace ko::sigrok
