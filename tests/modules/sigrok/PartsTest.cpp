#include "modules/sigrok/Demo.h"
#include "modules/sigrok/LatestValues.h"
#include "modules/sigrok/PacketJoiner.h"

#include <cmath>
#include <limits>
#include <map>

namespace ko::sigrok {

namespace {

using Samples = std::vector<float>;

constexpr float none = -1000.0F; // instead of NaN, which equals nothing

Samples shown(Samples samples)
{
    for (float& sample : samples)
        sample = std::isnan(sample) ? none : sample;
    return samples;
}

} // namespace

TEST(PacketJoinerTest, JoinsWhateverOrderThePacketsComeInUpToTheOrderedSamples)
{
    for (const std::size_t size : {1U, 2U, 3U, 7U, 20U}) {
        Tape kept;
        PacketJoiner joiner({.channels = 2, .samples = 10, .first = 5}, kept);
        Samples all(20);
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i] = static_cast<float>(i);
        // The second channel's packets have another size.
        std::size_t first = 0;
        std::size_t second = 0;
        while (!joiner.isComplete()) {
            const std::size_t firsts = std::min(size, all.size() - first);
            joiner.append(0, std::span(all).subspan(first, firsts));
            joiner.append(1, std::span(all).subspan(second, std::min<std::size_t>(4, all.size() - second)));
            first += firsts;
            second += std::min<std::size_t>(4, all.size() - second);
            joiner.advance(0.0);
        }
        EXPECT_EQ(kept.blocks.front().first, 5);
        EXPECT_EQ(kept.samplesOf(0), Samples(all.begin(), all.begin() + 10)) << size;
        EXPECT_EQ(kept.samplesOf(1), kept.samplesOf(0)) << size;
        EXPECT_EQ(joiner.next(), 15);
    }
}

TEST(PacketJoinerTest, KeepsThePretriggerOfEachChannelAndFillsWhatIsMissing)
{
    Tape kept;
    PacketJoiner joiner(
        {.channels = 2, .period = 0.5, .samples = 5, .awaitsTrigger = true, .pretrigger = 3, .patience = 100.0}, kept);
    joiner.append(0, Samples{1, 2, 3, 4});
    joiner.append(1, Samples{24});
    joiner.advance(8.0);
    EXPECT_TRUE(kept.blocks.empty());
    joiner.trigger(10.0);
    joiner.append(0, Samples{5, 6, 7});
    joiner.append(1, Samples{25, 26, 27});
    joiner.advance(11.0);
    EXPECT_EQ(kept.trigger, 20);
    EXPECT_EQ(kept.blocks.front().first, 17);
    EXPECT_EQ(kept.samplesOf(0), (Samples{2, 3, 4, 5, 6}));
    EXPECT_EQ(shown(kept.samplesOf(1)), (Samples{none, none, 24, 25, 26}));
    EXPECT_TRUE(joiner.isComplete());
}

TEST(PacketJoinerTest, AfterATriggerAChannelWithFewerSamplesEndsWithNaN)
{
    for (const bool onTrigger : {false, true}) {
        Tape kept;
        PacketJoiner joiner({.channels = 2, .samples = 9, .awaitsTrigger = onTrigger, .patience = 9.0}, kept);
        joiner.append(0, Samples{1});
        EXPECT_EQ(joiner.beginsAgain(), onTrigger);
        joiner.trigger(0.0);
        joiner.append(0, onTrigger ? Samples{1, 2, 3} : Samples{2, 3});
        joiner.append(1, Samples{4});
        joiner.finish();
        joiner.advance(0.0);
        EXPECT_EQ(kept.samplesOf(0), onTrigger ? (Samples{1, 2, 3}) : Samples{1});
        EXPECT_EQ(shown(kept.samplesOf(1)), onTrigger ? (Samples{4, none, none}) : Samples{4});
    }
}

TEST(PacketJoinerTest, ItsMemoryAndItsBlocksAreBounded)
{
    Tape kept;
    PacketJoiner joiner({.channels = 2, .samples = std::numeric_limits<std::int64_t>::max()}, kept);
    const Samples packet(PacketJoiner::mostInBlock);
    std::size_t packets = 0;
    const std::string failure = thrownBy([&] {
        while (++packets < 1000)
            joiner.append(0, packet);
    });
    EXPECT_EQ(failure, "the device delivers some channels without the others");
    EXPECT_EQ(packets, PacketJoiner::mostWaiting / packet.size() + 1);
    joiner.append(1, packet);
    joiner.advance(0.0);
    for (const Block& block : kept.blocks)
        EXPECT_LE(block.samples.size(), PacketJoiner::mostInBlock);
    EXPECT_EQ(joiner.next(), std::ssize(packet));
}

TEST(LatestValuesTest, EachScanHasTheLastValueBeforeItAndNothingBeforeTheFirst)
{
    Tape kept;
    LatestValues scans(2, 0.1, 6, 0, kept);
    // In each line: a time, and the value that comes then on which channel.
    const struct {
        double time;
        std::size_t channel;
        Samples values;
    } lines[] = {{0.05, 0, {1, 2}}, {0.25, 1, {30}}, {0.26, 0, {3}}, {0.31, 0, {}}, {0.41, 0, {4}}, {9.0, 1, {99}}};
    for (const auto& it : lines) {
        scans.advance(it.time);
        scans.append(it.channel, it.values);
    }
    EXPECT_EQ(shown(kept.samplesOf(0)), (Samples{none, 2, 2, 3, 3, 4}));
    EXPECT_EQ(shown(kept.samplesOf(1)), (Samples{none, none, none, 30, 30, 30}));
    EXPECT_TRUE(scans.isComplete());
    EXPECT_FALSE(scans.mayEnd());

    Tape silent;
    LatestValues minutes(1, 30.0, 8, 0, silent);
    minutes.append(0, Samples{7});
    minutes.advance(180.0);
    minutes.append(0, Samples{8});
    minutes.advance(1000.0);
    EXPECT_EQ(shown(silent.samplesOf(0)), (Samples{7, 7, 7, 7, 7, none, none, 8}));
}

TEST(SampleRatesTest, TheNearestRateIsOfTheListOrAStepOfTheRange)
{
    const struct {
        SampleRates rates;
        std::map<double, std::uint64_t> nearest; ///< of these rates
    } cases[] = {
        {{{20000, 50000, 1000000}, 0, 0, 1}, {{1.0, 20000}, {45000.0, 50000}, {9e9, 1000000}}},
        {{{}, 100, 1000, 250}, {{1.0, 100}, {224.0, 100}, {226.0, 350}, {900.0, 850}, {1e12, 850}}},
        {{}, {{0.2, 1}, {1234.4, 1234}, {5e9, 5000000000}}},
    };
    for (const auto& it : cases)
        for (const auto& [rate, nearest] : it.nearest)
            EXPECT_EQ(it.rates.nearest(1.0 / rate), nearest) << rate;
    const QuantitySettings range = cases[1].rates.samplePeriod(0);
    EXPECT_EQ(range.range, (Range{0.001, 0.01}));
    EXPECT_EQ(range.value, 1.0 / 850.0);
    EXPECT_EQ(cases[0].rates.samplePeriod(50000).choices, (std::vector{5e-5, 2e-5, 1e-6}));
}

TEST(ConfigTextTest, TextsAreReadAsTheValuesThatTheyWereMadeOf)
{
    const struct {
        int datatype;
        GVariant* value;
        const char* text;
    } cases[] = {
        {SR_T_UINT64, g_variant_new_uint64(18000000000000000000U), "18000000000000000000"},
        {SR_T_STRING, g_variant_new_string("a=b: c"), "a=b: c"},
        {SR_T_BOOL, g_variant_new_boolean(TRUE), "on"},
        {SR_T_FLOAT, g_variant_new_double(-0.1), "-0.1"},
        {SR_T_INT32, g_variant_new_int32(-7), "-7"},
        {SR_T_RATIONAL_PERIOD, g_variant_new("(tt)", std::uint64_t{1}, std::uint64_t{100000000}), "10 ns"},
        {SR_T_RATIONAL_VOLT, g_variant_new("(tt)", std::uint64_t{20}, std::uint64_t{1000}), "20 mV"},
        {SR_T_UINT64_RANGE, g_variant_new("(tt)", std::uint64_t{30}, std::uint64_t{130}), "30-130"},
        {SR_T_DOUBLE_RANGE, g_variant_new("(dd)", -1.5, -0.5), "-1.5--0.5"},
        {SR_T_MQ, g_variant_new("(ut)", std::uint32_t{SR_MQ_CURRENT}, std::uint64_t{SR_MQFLAG_AC | SR_MQFLAG_RMS}),
         "current/ac/rms"},
    };
    for (const auto& it : cases) {
        const Variant value = owned(it.value);
        EXPECT_EQ(textOf(value.get(), it.datatype), it.text);
        const Variant read = valueOf(it.text, it.datatype);
        ASSERT_TRUE(read) << it.text;
        EXPECT_TRUE(isSame(read.get(), value.get(), it.datatype)) << it.text;
        EXPECT_FALSE(it.datatype != SR_T_STRING && valueOf("x", it.datatype));
        EXPECT_FALSE(it.datatype != SR_T_STRING && valueOf("", it.datatype));
    }
}

TEST(ConfigTextTest, TextsOfDevicesAreUtf8WhateverTheirBytesAre)
{
    EXPECT_EQ(utf8("20 \xc2\xb5s"), "20 \xc2\xb5s");
    EXPECT_EQ(utf8("20 \xb5s"), "20 \xef\xbf\xbds");
    EXPECT_EQ(utf8(nullptr), "");
}

} // namespace ko::sigrok
