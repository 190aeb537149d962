#include "fakes/Folder.h"
#include "host/scenario/PlayedScenario.h"

namespace ko {
namespace {

using namespace test;

const char* const recordedBench = R"({"clock": "2026-11-21 09:30:00", "drivers": [
  {"name": "Digitizer", "groups": [{"name": "g", "channels": [{"address": "1:1"}, {"address": "1:2"}]}],
   "timebase": {"samplePeriod": {"value": 0.001, "choices": [0.001, 0.003]},
                "blockSize": {"value": 100, "choices": [100, 1000]}, "duration": 3}},
  {"name": "Scanner", "samplingMode": 2, "groups": [{"name": "g", "channels": [{"address": "2:1"}]}],
   "timebase": {"scanPeriod": {"value": 0.7}}}]})";

TEST(RecordScenarioTest, ARecordingHoldsTheFiguresOfThePageWhateverIsSet)
{
    const Folder folder;
    for (const char* const steps :
         {"", "choose cmbSamplePeriod 0.003", "choose cmbBlockSize 1000", "choose cmbInterval minutes",
          "focus txtDuration\ntext txtDuration 12.34", "click optStartTime\nclick optStopTime",
          "focus txtScanPeriod\ntext txtScanPeriod 0.3"}) {
        const Played played = play(std::string("setup\nshow\n") + steps +
                                       "\nrecord out.h5\nexpect frmStart enabled true\n"
                                       "state lblNumSamplesValue lblNumScansValue",
                                   recordedBench, folder.path.string());
        EXPECT_TRUE(played.expectationsMet && played.fault.empty()) << played.fault;
        const Json recorded = Json::parse(played.only({"recorded"}));
        const Json shown = played.last("state")["controls"];
        EXPECT_EQ(recorded["state"], "complete") << recorded;
        EXPECT_EQ(recorded["file"], "out.h5");
        EXPECT_EQ(std::to_string(recorded["instruments"][0]["samples"].get<std::int64_t>()),
                  shown["lblNumSamplesValue"]["caption"]);
        EXPECT_EQ(std::to_string(recorded["instruments"][1]["samples"].get<std::int64_t>()),
                  shown["lblNumScansValue"]["caption"]);
        EXPECT_EQ(recorded["instruments"][0]["bytes"], 8.0 * recorded["instruments"][0]["samples"].get<double>());
        EXPECT_TRUE(std::filesystem::exists(folder.path / "out.h5"));
    }
}

TEST(RecordScenarioTest, ARefusalIsAMessageAndAFileThatCannotBeWrittenAFault)
{
    std::string late = recordedBench;
    for (std::size_t at = 0; (at = late.find("\"timebase\": {", at)) != std::string::npos; at += 13)
        late.insert(at + 13, R"("startMode": 1, "startTime": 46347.25, )");
    const Played refused = play("setup\nshow\nrecord out.h5\nstate", late);
    EXPECT_NE(refused.only({"message"}).find("is past"), std::string::npos) << refused.only({"message"});
    EXPECT_EQ(refused.only({"recorded"}), "");
    EXPECT_EQ(refused.last("state")["readOnly"], false);
    EXPECT_NE(
        play("setup\nshow\nrecord no/where/out.h5", recordedBench).fault.find("3: no/where/out.h5: cannot be written"),
        std::string::npos);
}

} // namespace
} // namespace ko
