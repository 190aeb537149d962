#include "fakes/Folder.h"
#include "modules/sigrok/Demo.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace ko::sigrok {

namespace {

template <class T> std::vector<T> contentOf(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(stream), {});
    std::vector<T> content(bytes.size() / sizeof(T));
    std::copy_n(bytes.data(), content.size() * sizeof(T), reinterpret_cast<char*>(content.data())); // NOLINT
    return content;
}

/// Enables only the channel at this address.
void enableOnly(InstrumentSettings& settings, const std::string& address)
{
    for (GroupSettings& group : settings.groups)
        for (ChannelSettings& channel : group.channels)
            channel.enabled = std::int32_t{channel.address == address ? 1 : 0};
}

/// Starts by the first channel with this match.
void awaitTrigger(InstrumentSettings& settings, const std::string& match, std::int32_t ratio)
{
    settings.timebase->startMode = startMode::onTrigger;
    settings.timebase->blockSize.value = 1.0;
    settings.timebase->duration = 0.05F;
    ChannelSettings& source = settings.groups[0].channels[0];
    source.triggerSource = true;
    source.triggerParameters[0].value = match;
    source.triggerParameters[1].value = ratio;
}

} // namespace

TEST(SigrokAcquisitionTest, DeliversWhatSigroksOwnProgramRecords)
{
    const test::Folder folder;
    const std::string file = folder.file("reference.sr");
    const std::string record = "sigrok-cli -d demo --config samplerate=10k --samples 700 -o " + file;
    ASSERT_EQ(std::system((record + " && python3 -m zipfile -e " + file + " " + folder.path.string()).c_str()), 0);

    const Demo demo;
    Tape kept;
    demo.acquire(kept, 700);
    EXPECT_EQ(kept.why, "");
    EXPECT_EQ(kept.end, 700);
    const auto logic = contentOf<std::uint8_t>(folder.path / "logic-1-1");
    ASSERT_EQ(logic.size(), 700U);
    for (unsigned bit = 0; bit < 8; ++bit) {
        std::vector<float> expected(logic.size());
        std::transform(logic.begin(), logic.end(), expected.begin(),
                       [&](std::uint8_t bits) { return static_cast<float>((unsigned{bits} >> bit) & 1U); });
        EXPECT_EQ(kept.samplesOf(bit), expected) << "D" << bit;
    }
    for (std::size_t number = 0; number < 4; ++number) // the fifth is random
        EXPECT_EQ(kept.samplesOf(8 + number),
                  contentOf<float>(folder.path / ("analog-1-" + std::to_string(9 + number) + "-1")))
            << "A" << number;
}

TEST(SigrokAcquisitionTest, EachSettingReachesTheDevice)
{
    const struct {
        const char *pattern, *amplitude, *offset;
        float least, greatest;
    } cases[] = {
        {"square", "3", "1", -2.0F, 4.0F}, {"sine", "0.5", "-2", -2.5F, -1.5F}, {"sawtooth", "10", "0", -10.0F, 10.0F}};
    for (const auto& it : cases) {
        const Demo demo({{"pattern A1", it.pattern}, {"amplitude A1", it.amplitude}, {"offset A1", it.offset}});
        demo.change([](InstrumentSettings& settings) { enableOnly(settings, "2:1"); });
        EXPECT_EQ(demo.instrument->held().options.at("pattern A1"), it.pattern);
        const auto armed = demo.acquisition().arm();
        ASSERT_EQ(armed.channels.size(), 1U);
        EXPECT_EQ(armed.channels[0], (ArmedChannel{1, 1, "2:1", "A1", "V", {}}));
        Tape kept;
        demo.start(kept, 100);
        kept.awaitEnd();
        const auto samples = kept.samplesOf(0);
        ASSERT_EQ(samples.size(), 100U) << it.pattern;
        const auto [least, greatest] = std::minmax_element(samples.begin(), samples.end());
        EXPECT_NEAR(*least, it.least, 0.3) << it.pattern;
        EXPECT_NEAR(*greatest, it.greatest, 0.3) << it.pattern;
    }
}

TEST(SigrokAcquisitionTest, TriggersWithThePartBeforeTheTrigger)
{
    {
        const Demo wide;
        wide.change([](InstrumentSettings& it) {
            awaitTrigger(it, "Rising edge", 20);
            it.timebase->samplePeriod.value = 2e-6;
            it.timebase->blockSize.value = 1000.0;
            it.timebase->duration = 0.1F;
        });
        EXPECT_EQ(wide.acquisition().settingsToArm().trigger->pretrigger, 10000)
            << "20 % of 50 blocks, but for rounding";
    }
    for (const auto& [match, before, now] : {std::tuple{"Rising edge", 0.0F, 1.0F}, {"Falling edge", 1.0F, 0.0F}}) {
        const Demo demo(DeviceOptions{{"pattern Logic", "incremental"}});
        demo.change([match = match](InstrumentSettings& it) { awaitTrigger(it, match, 20); });
        const auto armed = demo.acquisition().arm();
        EXPECT_EQ(armed.trigger->pretrigger, 100) << "20 % of 500 samples";
        Tape kept;
        demo.start(kept, 500, true);
        kept.awaitEnd();
        EXPECT_EQ(kept.why, "");
        ASSERT_TRUE(kept.trigger && !kept.blocks.empty());
        const auto samples = kept.samplesOf(0);
        EXPECT_EQ(kept.end, kept.blocks.front().first + std::ssize(samples));
        EXPECT_GE(kept.blocks.front().first, *kept.trigger - 100);
        const auto at = static_cast<std::size_t>(*kept.trigger - kept.blocks.front().first);
        ASSERT_TRUE(at > 0 && at < samples.size()) << at;
        EXPECT_EQ(samples[at - 1], before) << match;
        EXPECT_EQ(samples[at], now) << match;
        EXPECT_EQ(kept.samplesOf(8).size(), samples.size()) << "the demonstration device has no analog samples then";
    }
}

TEST(SigrokAcquisitionTest, AUnitIsThatOfTheMeasuredQuantityAndAnotherOneEndsTheAcquisitionOnce)
{
    const Demo demo(DeviceOptions{{"measured_quantity A0", "current/ac"}, {"measured_quantity A1", "temperature"}});
    for (const char* const expected : {"A", ""}) {
        demo.change([&](InstrumentSettings& it) { enableOnly(it, *expected ? "2:0" : "2:1"); });
        EXPECT_EQ(demo.acquisition().settingsToArm().channels.at(0).unit, expected);
        Tape kept;
        demo.acquire(kept, 10);
        EXPECT_EQ(kept.why, "");
    }
    EXPECT_NE(demo.acquisition().settingsToArm().channels.at(0).unit, "") << "known since it has measured";
    demo.change([](InstrumentSettings& it) {
        enableOnly(it, "2:2");
        it.groups[1].channels[2].unit = "A";
    });
    for (const char* const expected : {"channel A2 measures \"V\", not \"A\"", ""}) {
        Tape kept;
        demo.acquire(kept, 10);
        EXPECT_EQ(kept.why, expected);
    }
}

TEST(SigrokAcquisitionTest, WithoutASampleRateTheLastValuesAreScanned)
{
    const Demo demo;
    demo.change([](InstrumentSettings& it) {
        enableOnly(it, "2:0");
        it.measurementMode = it.samplingMode = 2;
        it.timebase->scanPeriod.value = 0.02;
    });
    Tape kept;
    demo.acquire(kept, 10);
    EXPECT_EQ(kept.why, "");
    const auto scans = kept.samplesOf(0);
    ASSERT_EQ(scans.size(), 10U);
    EXPECT_TRUE(std::isnan(scans.front())) << "nothing has come at the start";
}

TEST(SigrokAcquisitionTest, GivesUpWaitingForATriggerInTimeOrWhenItIsStopped)
{
    const Demo demo(DeviceOptions{{"pattern Logic", "all-low"}});
    demo.change([](InstrumentSettings& it) { awaitTrigger(it, "High level", 0); });
    for (const bool isStopped : {false, true}) {
        demo.acquisition().arm();
        Tape kept;
        demo.start(kept, 500, true, isStopped ? 60.0 : 0.2);
        if (!isStopped)
            kept.awaitEnd();
        demo.acquisition().stop();
        EXPECT_EQ(kept.why, isStopped ? "" : "no trigger within 0 seconds");
        EXPECT_TRUE(kept.blocks.empty() && !kept.trigger && kept.end);
    }
}

TEST(SigrokAcquisitionTest, StopsWhileItRunsAndIsArmedOneAtATime)
{
    const Demo demo;
    Tape never;
    EXPECT_EQ(thrownBy([&] { demo.start(never, 1); }), "is not armed");
    demo.acquisition().stop();
    for (int round = 0; round < 2; ++round) {
        demo.acquisition().arm();
        demo.acquisition().arm();
        Tape kept;
        demo.start(kept, 100'000'000);
        EXPECT_EQ(thrownBy([&] { demo.acquisition().arm(); }), "is acquiring");
        EXPECT_EQ(thrownBy([&] { demo.start(never, 1); }), "is not armed");
        kept.awaitBlock();
        demo.acquisition().stop();
        EXPECT_EQ(kept.why, "");
        ASSERT_TRUE(kept.end);
        EXPECT_EQ(*kept.end, std::ssize(kept.samplesOf(0)));
    }
    demo.acquisition().arm();
    Tape brief;
    demo.start(brief, 100'000'000);
    demo.acquisition().stop(); // perhaps before its first block
    EXPECT_TRUE(brief.end);
    EXPECT_FALSE(never.end);
}

TEST(SigrokAcquisitionTest, ADeviceThatIsClosedWhileItAcquiresEndsItsAcquisition)
{
    Tape kept;
    {
        const Demo demo;
        demo.acquisition().arm();
        demo.start(kept, 100'000'000);
    }
    EXPECT_TRUE(kept.end);
}

} // namespace ko::sigrok
