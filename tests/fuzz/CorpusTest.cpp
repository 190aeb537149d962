#include "fuzz/Targets.h"

#include "host/setup/SetupFile.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace ko::fuzz {
namespace {

TEST(FuzzCorpus, EveryInputThatIsKeptIsTakenOrRefusedAsItHasToBe)
{
    for (const Target* const target : allTargets()) {
        int inputs = 0;
        for (const auto& file : std::filesystem::directory_iterator(std::string(KO_CORPUS_FOLDER "/") + target->name)) {
            ++inputs;
            EXPECT_NO_THROW(target->run(readFile(file.path().string()))) << file.path();
        }
        EXPECT_GT(inputs, 0) << target->name;
    }
}

} // namespace
} // namespace ko::fuzz
