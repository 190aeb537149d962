#include "fakes/Tape.h"
#include "host/instruments/Signal.h"
#include "host/setup/SetupFile.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace ko {
namespace {

using test::Tape;

/// An instrument whose channels have these members.
std::shared_ptr<HostInstrument> sampling(const std::vector<std::string>& channels, const std::string& timebase)
{
    std::string list;
    for (const std::string& channel : channels)
        list += (list.empty() ? "" : ",") + std::string("{\"address\": \"1:") + std::to_string(list.size()) + "\", " +
                channel + "}";
    return makeDrivers(parseSetup("{\"drivers\": [{\"name\": \"d\", \"groups\": [{\"name\": \"g\", \"channels\": [" +
                                      list + "]}], \"timebase\": " + timebase + "}]}",
                                  "test.json"))
        .front();
}

/// Acquires as ordered, as fast as possible.
void acquire(Acquisition& acquisition, AcquisitionOrder order, Tape& tape)
{
    order.isPaced = false;
    order.patience = 3600.0;
    acquisition.start(order, tape);
    tape.awaitEnd();
    acquisition.stop();
}

TEST(AcquisitionTest, ASignalFollowsItsFormulaHoweverItIsCutIntoBlocks)
{
    const auto formula = [](const SignalSettings& signal, double t) {
        const double x = signal.frequency * t + signal.phase / (2 * std::numbers::pi);
        const double u = x - std::floor(x);
        const double shapes[]{std::sin(2 * std::numbers::pi * x), u < 0.5 ? 1.0 : -1.0, 1 - std::abs(4 * u - 2), 0.0};
        return signal.offset + signal.amplitude * shapes[static_cast<std::size_t>(signal.shape)];
    };
    for (const Shape shape : {Shape::Sine, Shape::Square, Shape::Triangle, Shape::Constant})
        for (const double period : {1e-6, 0.0013, 7.0})
            for (const std::int64_t first : {0, 999, 1234567}) {
                const SignalSettings settings{
                    .shape = shape, .frequency = 49.7, .amplitude = 3, .offset = -1, .phase = 0.7};
                const Signal signal(settings, "1:1", period);
                std::vector<float> whole(1000), cut(1000);
                signal.fill(whole, first);
                for (std::size_t at = 0; at < cut.size(); at += 250)
                    signal.fill({&cut[at], 250}, first + static_cast<std::int64_t>(at));
                for (std::size_t i = 0; i < whole.size(); ++i) {
                    const auto sample = first + static_cast<std::int64_t>(i);
                    const double wanted = formula(settings, static_cast<double>(sample) * period);
                    ASSERT_NEAR(signal.at(sample), wanted, 1e-12);
                    ASSERT_NEAR(whole[i], wanted, 5e-6) << i << " " << period << " " << first;
                    ASSERT_NEAR(cut[i], wanted, 5e-6);
                }
            }
}

TEST(AcquisitionTest, NoiseIsGaussianAndDependsOnSeedAddressAndSampleAlone)
{
    const auto samples = [](std::int32_t seed, const char* address, std::int64_t first) {
        std::vector<float> made(20000);
        Signal({.amplitude = 0, .noise = 1, .seed = seed}, address, 0.001).fill(made, first);
        return made;
    };
    const auto noise = samples(1, "1:1", 0);
    double sum = 0, squares = 0;
    std::ptrdiff_t within = 0;
    for (const float sample : noise) {
        sum += sample;
        squares += double{sample} * sample;
        within += std::abs(sample) < 1.0F;
    }
    const auto count = static_cast<double>(noise.size());
    EXPECT_NEAR(sum / count, 0.0, 0.03);
    EXPECT_NEAR(std::sqrt(squares / count), 1.0, 0.02);
    EXPECT_NEAR(static_cast<double>(within) / count, 0.6827, 0.015);
    EXPECT_EQ(samples(1, "1:1", 0), noise);
    EXPECT_EQ(samples(1, "1:1", 100)[0], noise[100]);
    EXPECT_NE(samples(2, "1:1", 0), noise);
    EXPECT_NEAR(samples(3, "0:1", 0)[5], -1.2212663, 1e-6) << "as it has always been";
    EXPECT_NE(samples(1, "1:2", 0), noise);
}

TEST(AcquisitionTest, TheFirstCrossingNotBelowThePretriggerTriggers)
{
    const char* const sine = R"("signal": {"frequency": 10, "offset": 0.25})";
    const char* const square = R"("signal": {"shape": "square", "frequency": 10, "phase": 3.2})";
    const char* const still = R"("signal": {"shape": "constant"})";
    const struct {
        const char* signal;
        double level;
        const char* slope;
        int pretrigger;
        std::int64_t at; ///< -1: never
    } cases[]{
        {sine, 0.5, "Rising", 0, 5},    {sine, 0.5, "Rising", 5, 5},       {sine, 0.5, "Rising", 6, 105},
        {sine, 0.5, "Falling", 0, 46},  {sine, 0.5, "Either edge", 6, 46}, {sine, 1.25, "Rising", 0, 25},
        {sine, 1.26, "Either", 0, -1},  {square, 1, "Rising", 0, 50},      {square, -1, "Falling", 9, 100},
        {square, 0, "Rising", 60, 150}, {still, 0, "Either", 0, -1},       {sine, 0.5, "Up", 0, 5},
    };
    for (const auto& c : cases) {
        const std::string parameters =
            R"(, "triggerSource": true, "triggerParameters": [{"id": 1, "name": "", "type": "Float", "role": "level",
            "value": )" +
            std::to_string(c.level) + R"(}, {"id": 2, "name": "", "type": "String", "role": "slope", "value": ")" +
            c.slope + R"("}, {"id": 3, "name": "", "type": "Integer", "role": "pretrigger", "value": )" +
            std::to_string(c.pretrigger) + "}]";
        // A channel that is disabled can trigger, too.
        const auto driver =
            sampling({R"("signal": {"shape": "constant", "offset": 4})", R"("enabled": 0, )" + (c.signal + parameters)},
                     R"({"samplePeriod": {"value": 0.001}})");
        Acquisition& acquisition = *driver->acquisition();
        acquisition.arm();
        Tape tape;
        acquire(acquisition, {.samples = 3, .onTrigger = true}, tape);
        EXPECT_EQ(tape.trigger.value_or(-1), c.at) << c.signal << c.level << c.slope << c.pretrigger;
        EXPECT_EQ(tape.why, c.at < 0 ? "no trigger within 3600 seconds" : "");
        ASSERT_EQ(tape.blocks.size(), c.at < 0 ? 0U : 1U);
        if (c.at >= 0) {
            EXPECT_EQ(tape.blocks[0].first, c.at - c.pretrigger);
            EXPECT_EQ(tape.blocks[0].samples, (std::vector<float>{4, 4, 4}));
            EXPECT_EQ(tape.end, tape.blocks[0].first + 3);
        }
    }
}

TEST(AcquisitionTest, AnArmedInstrumentKeepsToTheSettingsThatItHasCopied)
{
    const auto driver = sampling({R"("signal": {"shape": "constant", "offset": 1})"}, R"({"blockSize": {"value": 7}})");
    Acquisition& acquisition = *driver->acquisition();
    Tape tape;
    EXPECT_THROW(acquisition.start({.samples = 3}, tape), Failure);
    const InstrumentSettings before = driver->settings();
    const ArmedSettings armed = acquisition.arm();
    EXPECT_EQ(armed, acquisition.settingsToArm());
    driver->queryTimebase()->setSamplePeriod(0.5);
    driver->enableChannel(0, 0, false);
    EXPECT_NE(armed, acquisition.settingsToArm());
    acquire(acquisition, {.samples = 20, .notBefore = 0.0105}, tape);
    ASSERT_EQ(tape.blocks.size(), 1U);
    EXPECT_EQ(tape.blocks[0].first, 11);
    EXPECT_EQ(tape.blocks[0].samples, std::vector<float>(20, 1.0F));
    EXPECT_THROW(acquisition.start({.samples = 3}, tape), Failure);

    driver->restore(before);
    EXPECT_EQ(driver->settings(), before);
    EXPECT_EQ(driver->queryTimebase()->SamplePeriod(), 0.001);
    InstrumentSettings other = before;
    other.timebase.reset();
    EXPECT_THROW(driver->restore(other), Failure);
}

} // namespace
} // namespace ko
