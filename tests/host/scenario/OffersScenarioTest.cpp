#include "host/scenario/PlayedScenario.h"

#include "host/settings/OffersList.h"

namespace ko::test {
namespace {

const char* const offeringBench = R"({ "drivers": [
  { "name": "Sampler", "groups": [ { "name": "In", "channels": [ { "address": "0:1:0" } ] } ],
    "timebase": { "samplePeriod": { "value": 0.001, "choices": [0.0001, 0.001, 0.01] },
                  "blockSize": { "value": 16, "range": [16, 1024] }, "scanPeriod": { "value": 0.5, "range": [0.1, 9] } } },
  { "name": "Scanner", "measurementMode": 2,
    "timebase": { "samplePeriod": { "value": 0.001, "choices": [0.001, 0.01] }, "blockSize": { "value": 64, "range": [64, 4096] },
                  "scanPeriod": { "value": 0.5, "choices": [0.5, 1, 2] } } },
  { "name": "Bare" } ] })";

TEST(OffersScenario, TheAccountIsAnEventAndTheDialogIsPlayedLikeAnyOther)
{
    const Played run = play(R"#(
setup
show
offers samplePeriod
choose cmbScanPeriod #2
offers scanPeriod
dialog ShowOffers
  expect lblCommon caption "All instruments share: 2 values, from 100 to 1000."
  expect-cell tblOffers Scanner "Effect on the common values" "Removes: 10000"
  state tblOffers
  choose cmbQuantity "Blocksize"
  text txtValue 128
  click cmdSetAll
  expect-cell tblOffers Scanner "Blocksize" "128"
end
click cmdSampleRateOffers
set-all sample-rate 100
expect cmbSampleRate text 100
)#",
                            offeringBench);
    EXPECT_EQ(run.fault, "");
    EXPECT_TRUE(run.expectationsMet);
    const char* const lines[] = {
        R"({"line":4,"event":"offers","shared":{"values":2,"range":[0.001,0.01]},"drivers":[)"
        R"({"effect":"begins","values":3,"range":[0.0001,0.01],"name":"Sampler","held":0.001},)"
        R"({"effect":"removes","values":2,"range":[0.001,0.01],"removed":[0.0001],"name":"Scanner"},)"
        R"({"effect":"none","timebase":false,"name":"Bare"}],"quantity":"samplePeriod"})",
        R"({"line":6,"event":"offers","shared":{"values":3,"range":[0.5,2.0]},"drivers":[)"
        R"({"effect":"begins","range":[0.1,9.0],"name":"Sampler","held":2.0},)"
        R"({"effect":"begins","values":3,"range":[0.5,2.0],"name":"Scanner","held":2.0},)"
        R"({"effect":"none","timebase":false,"name":"Bare"}],"quantity":"scanPeriod"})"};
    EXPECT_EQ(run.only({"offers"}), std::string(lines[0]) + "\n" + lines[1] + "\n");
    EXPECT_NE(
        run.only({"write"}).find(R"("line":17,"event":"write","driver":1,"operation":"SamplePeriod","value":0.01)"),
        std::string::npos)
        << run.only({"write"});
    EXPECT_EQ(play("set-all duration 1", offeringBench).fault, "1: \"duration\" is no quantity such as sample-rate");
    EXPECT_EQ(play("offers sample-rate", offeringBench).fault,
              "1: \"sample-rate\" is none of samplePeriod, blockSize and scanPeriod");
}

TEST(OffersScenario, TheListOfSettingsShowsTheOffersToo)
{
    HeadlessPage played({parseSetup(offeringBench, "bench.json"), {}, {}, {}});
    EXPECT_NE(offersText(played).find(R"(
block-size: All instruments share: Any value from 64 to 1024.
  Sampler | Any value from 16 to 1024 | All its values are used | 16, nothing requested | Differs from the page
  Scanner | Any value from 64 to 4096 | Narrows the range to: Any value from 64 to 1024 | Not read
  Bare | No timebase | None | Not read
)"),
              std::string::npos)
        << offersText(played);
    EXPECT_TRUE(offersOf(played, "start").is_null());
    EXPECT_EQ(differencesOf(played, "block-size").dump(), R"([{"name":"Sampler","value":16.0}])");
    EXPECT_EQ(differencesOf(played, "sample-rate").size(), 0U);
    EXPECT_TRUE(played.page().lblPlan.caption().ends_with(" later. Blocksize differs: Sampler (16)."));
}

} // namespace
} // namespace ko::test
