#include "host/scenario/PlayedScenario.h"

namespace ko::test {
namespace {

const std::string two = R"({"drivers": [
    {"name": "A", "timebase": {"blockSize": {"value": 512, "choices": [512, 1024]}}},
    {"name": "B", "timebase": {"blockSize": {"value": 1024, "choices": [512, 1024]}}}]})";

TEST(NestedScenario, WhatTheHostDoesInsideACallEndsTheEventAndThePageFollows)
{
    const Played run = play("setup\nshow\nquiet on\n"
                            "during A \"BlockSize set\"\nannounce 1\nhand-over 1\nprocessed\nend\n"
                            "choose cmbBlockSize 1024\nprocessed\n"
                            "expect cmbBlockSize text 1024\nexpect frmDynamic visible true\n",
                            two);
    EXPECT_EQ(run.fault, "");
    EXPECT_TRUE(run.expectationsMet);
    EXPECT_EQ(run.only({"changed", "report", "processed"}), "{\"line\":7,\"event\":\"processed\",\"value\":false}\n"
                                                            "{\"line\":10,\"event\":\"processed\",\"value\":true}\n");
}

TEST(NestedScenario, TheDocumentMayEndWhileItsMessageIsOpen)
{
    const Played run = play("setup\nshow\n"
                            "during message\nterminate\ndocument\nsetup\nshow\nend\n"
                            "text txtDuration 1e9\n"
                            "expect txtDuration text 10\nstate lblPlan\n",
                            R"({"drivers": [{"name": "A", "timebase": {"samplePeriod": {"value": 1e-6}},
                                "groups": [{"name": "G", "channels": [{"address": "0:1:1"}]}]}]})");
    EXPECT_EQ(run.fault, "");
    EXPECT_EQ(run.only({"message", "changed", "report", "inert"}).find("changed"), std::string::npos);
    EXPECT_EQ(run.only({"message"}).empty(), false);
    EXPECT_EQ(run.last("state")["controls"].size(), 1U);
}

TEST(NestedScenario, BlocksAreCheckedBeforeTheyRun)
{
    const std::pair<const char*, const char*> faults[] = {
        {"during A nonsense\nend\n", "1: there is no operation \"nonsense\""},
        {"during other\nend\n", "1: during takes a driver and an operation, or message"},
        {"during message\nfocus txtDuration\nend\n", "2: the command \"focus\" has no place inside a call"},
        {"during message\nduring message\nend\n", "2: the command \"during\" has no place inside a call"}};
    for (const auto& [script, fault] : faults)
        EXPECT_EQ(play(script, two).fault, fault);
}

} // namespace
} // namespace ko::test
