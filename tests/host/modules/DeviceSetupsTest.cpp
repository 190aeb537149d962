#include "fakes/Thrown.h"
#include "host/modules/ScriptedModule.h"
#include "host/setup/SetupFile.h"
#include "host/setup/SetupSaving.h"
#include "host/setup/SetupWriter.h"

#include <gtest/gtest.h>
#include <random>

namespace ko {
namespace {

using namespace test;

/// A set-up that sets some of what a device has, with its channels in any order and in any groups.
class RandomSetup {
public:
    explicit RandomSetup(unsigned seed) : random_(seed) {}

    InstrumentSettings made()
    {
        InstrumentSettings settings = scriptedSettings({{"gain", pick<std::string>({"1", "2"})}});
        settings.name = "Device";
        settings.module = "scripted";
        settings.device = pick<std::string>({"a", "b"});
        std::vector<ChannelSettings> channels;
        for (const GroupSettings& group : settings.groups)
            for (const ChannelSettings& channel : group.channels)
                if (pick({true, true, false}))
                    channels.push_back(changed(channel));
        std::shuffle(channels.begin(), channels.end(), random_);
        settings.groups = {{.name = "all", .channels = channels}};
        change(settings);
        return settings;
    }

private:
    template <class T> T pick(std::initializer_list<T> from)
    {
        return *(from.begin() + std::uniform_int_distribution<std::ptrdiff_t>(0, std::ssize(from) - 1)(random_));
    }

    ChannelSettings changed(ChannelSettings channel)
    {
        channel.name = pick<std::string>({"Crank", "Öl – \"heiß\"", ""});
        channel.enabled = pick({std::int32_t{0}, std::int32_t{1}});
        channel.triggerSource = pick({true, false});
        std::erase_if(channel.triggerParameters, [&](const auto&) { return pick({true, false}); });
        for (ParameterSettings& parameter : channel.triggerParameters) {
            if (parameter.type == "Float")
                parameter.value = pick({-0.25, 0.1, 1e-9});
            else if (parameter.type == "Enum")
                parameter.value = pick<std::string>({"Rising", "Falling"});
            parameter.id += pick({0, 100}); // as another version of the module
        }
        return channel;
    }

    void change(InstrumentSettings& settings)
    {
        settings.timebase->samplePeriod.value = pick({0.001, 0.002, 0.005});
        settings.timebase->blockSize.value = pick({1.0, 64.0, 1000.0});
        settings.timebase->duration = pick({0.1F, 12.5F});
        settings.timebase->startMode = pick({0, 1, 2});
        settings.triggerLines->startTriggerLine = pick({-1, 3});
        if (pick({true, false}))
            settings.triggerLines.reset();
    }

    std::mt19937 random_;
};

Setup setupOf(const InstrumentSettings& settings)
{
    return {.title = "Devices", .clock = {}, .instruments = {settings}};
}

InstrumentSettings savedAndRead(const Setup& setup, const HostInstruments& instruments)
{
    return parseSetup(setupText(withPresentValues(setup, instruments)), "saved.json").instruments.front();
}

const ChannelSettings& channelWith(const InstrumentSettings& settings, const std::string& address)
{
    for (const GroupSettings& group : settings.groups)
        for (const ChannelSettings& channel : group.channels)
            if (channel.address == address)
                return channel;
    throw std::out_of_range(address);
}

void expectKept(const InstrumentSettings& kept, const InstrumentSettings& now)
{
    EXPECT_EQ(now.options, kept.options);
    EXPECT_EQ(now.device, kept.device);
    EXPECT_EQ(now.timebase, kept.timebase);
    EXPECT_TRUE(!kept.triggerLines || now.triggerLines == kept.triggerLines);
    forEachChannel(kept, [&](const ChannelSettings& was, std::int32_t, std::int32_t) {
        const ChannelSettings& is = channelWith(now, was.address);
        EXPECT_EQ(is.name, was.name.empty() ? "Channel " + was.address : was.name);
        EXPECT_EQ(is.enabled, was.enabled);
        EXPECT_EQ(is.triggerSource, was.triggerSource);
        for (ParameterSettings parameter : was.triggerParameters) {
            parameter.id %= 100;
            const auto& all = is.triggerParameters;
            EXPECT_NE(std::find(all.begin(), all.end(), parameter), all.end()) << parameter.name;
        }
    });
}

TEST(DeviceSetupsTest, AHundredSetupsKeepTheirValuesOverSavingAndOpening)
{
    const auto module = std::make_shared<ScriptedModule>(std::make_shared<Script>());
    for (unsigned seed = 0; seed < 100; ++seed) {
        SCOPED_TRACE(seed);
        const InstrumentSettings kept = RandomSetup(seed).made();
        InstrumentSettings saved;
        {
            const HostInstruments opened = makeDrivers(setupOf(kept), module);
            EXPECT_EQ(opened[0]->GroupCount(), 2) << "opened";
            saved = savedAndRead(setupOf(kept), opened);
        }
        expectKept(kept, saved);
        const HostInstruments again = makeDrivers(setupOf(saved), module);
        EXPECT_EQ(savedAndRead(setupOf(saved), again), saved);
    }
}

TEST(DeviceSetupsTest, ASetupThatTheDeviceCannotHoldFailsWithTheReasonAndLosesNothing)
{
    const struct {
        const char* reason;
        void (*change)(InstrumentSettings& settings);
    } cases[]{
        {"scripted a: has no channel 9:9, which the set-up sets",
         [](auto& it) { it.groups[0].channels[0].address = "9:9"; }},
        {"scripted a: has no trigger parameter \"Pressure\" of channel 1:1, which the set-up sets",
         [](auto& it) {
             ParameterSettings& level = it.groups[0].channels[0].triggerParameters[0];
             std::tie(level.id, level.name) = std::pair(99, "Pressure");
         }},
        {"scripted a: has no option gain=3",
         [](auto& it) {
             it.options = {{"gain", "3"}};
         }},
        {"scripted z: device z is not there", [](auto& it) { it.device = "z"; }},
    };
    const auto module = std::make_shared<ScriptedModule>(std::make_shared<Script>());
    for (const auto& it : cases) {
        InstrumentSettings settings = scriptedSettings({});
        settings.module = "scripted";
        settings.device = "a";
        it.change(settings);
        const HostInstruments opened = makeDrivers(setupOf(settings), module);
        EXPECT_EQ(thrownBy([&] { opened[0]->GroupCount(); }), it.reason);
        EXPECT_EQ(savedAndRead(setupOf(settings), opened), settings) << it.reason;
    }
}

} // namespace
} // namespace ko
