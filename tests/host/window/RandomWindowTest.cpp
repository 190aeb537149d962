#include "RunWatch.h"
#include "WindowRun.h"
#include "fakes/Draw.h"
#include "host/support/HostTexts.h"
#include "host/toolkit/GuardedApplication.h"

#include <QLocale>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <sstream>

namespace ko::test {
namespace {

constexpr int stepsOfARun = 60;

Seeds seedsOf(std::uint32_t run)
{
    Draw draw(run);
    Seeds seeds(stepsOfARun);
    std::generate(seeds.begin(), seeds.end(), [&] { return static_cast<std::uint32_t>(draw.upTo(1 << 30)); });
    return seeds;
}

/// Returns a number from the environment, or the usual one.
std::uint32_t wanted(const char* variable, std::uint32_t usual)
{
    const char* const value = std::getenv(variable);
    return value ? static_cast<std::uint32_t>(std::strtoul(value, nullptr, 10)) : usual;
}

/// Returns the fewest steps that break what the run has broken, as a list and as a scenario; the run itself if it
/// depends on the time and keeps its promises when it is repeated.
std::string shrunk(const Seeds& steps, const std::string& run)
{
    const QTemporaryDir folder;
    const std::string file = folder.filePath("run.scenario").toStdString();
    const Seeds fewest = fewestSteps(steps);
    const std::string broken = runWindow(fewest);
    std::ostringstream scenario;
    if (broken.empty())
        return run;
    if (!runWindow(fewest, file).empty())
        scenario << "\nAs a scenario:\n" << std::ifstream(file).rdbuf();
    return broken + scenario.str();
}

/// A sample is the same each time; a long run is another one each time.
TEST(RandomWindow, KeepsItsPromisesWhateverItsUserDoes)
{
    const bool isLong = std::getenv("KO_LONG_RUN") != nullptr;
    const std::uint32_t runs = wanted("KO_WINDOW_RUNS", isLong ? 100'000 / stepsOfARun : 6);
    const std::uint32_t first = wanted("KO_WINDOW_SEED", isLong ? std::random_device()() % 1'000'000'000 : 1);
    for (std::uint32_t run = 0; run < runs; ++run) {
        const std::uint32_t seed = first + run;
        std::cout << "KO_WINDOW_SEED=" << seed << std::endl;
        const Seeds steps = seedsOf(seed);
        if (const std::string broken = runWindow(steps); !broken.empty())
            FAIL() << "seed " << seed << "\n" << shrunk(steps, broken);
    }
    std::cout << runCounts().steps << " steps, " << runCounts().undone << " edits undone\n";
    EXPECT_GT(runCounts().undone, runs) << "the user edits";
}

} // namespace
} // namespace ko::test

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLocale::setDefault(QLocale::c());
    ko::GuardedApplication application(argc, argv);
    // An unexpected message box would block the test.
    application.showsFailures = false;
    testing::InitGoogleTest(&argc, argv);
    ko::test::watchRuns();
    return RUN_ALL_TESTS();
}
