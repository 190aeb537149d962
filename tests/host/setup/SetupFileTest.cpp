#include "host/setup/SetupFile.h"
#include "fakes/Folder.h"
#include "host/setup/JsonTree.h"
#include "host/setup/RefusalOf.h"
#include "host/setup/SetupSaving.h"
#include "host/setup/SetupWriter.h"

#include <sys/stat.h>

namespace ko::test {
namespace {

// Every key once, as in the documentation of set-up files.
const char* const everything = R"({
  "title": "Engine bench",                  // optional
  "clock": "2026-11-21 09:30:00",
  "drivers": [ {
    "name": "Digitizer 4ch",
    "measurementMode": 1, "samplingMode": 2,
    "groups": [ { "name": "Inputs",
      "channels": [ {
        "address": "0:3:1", "name": "Crank", "enabled": 1, "canTrigger": true, "triggerSource": false,
        "triggerParameters": [
          { "id": 2, "name": "Level", "type": "Float", "min": -10, "max": 10, "choices": [], "value": 0.5,
            "role": "level" },
          { "id": 3, "name": "Count", "type": "Integer", "max": 1e3, "value": 7 },
          { "id": 4, "name": "Slope", "type": "Enum", "choices": ["Up", "Down \u00e4"], "value": "Up" },
          { "id": 5, "name": "On", "type": "Bool", "value": true },
          { "id": 6, "name": "Odd", "type": "Colour", "value": null } ] },
        { "address": "3:2", "enabled": null, "unit": "bar", "signal": { "shape": "square", "frequency": 5,
          "amplitude": 2, "offset": -1, "phase": 0.5, "noise": 0.25, "seed": 7 } }, { "address": "3:3", "enabled": "yes" },
        { "address": "3:4", "enabled": false }, { "address": "3:5", "enabled": 0.0 } ] } ],
    "hasTriggerParameters": true,
    "timebase": {
      "samplePeriod": { "value": 0.1, "choices": [0.001, 0.1], "keeps": "any" },
      "blockSize":    { "value": 1024, "range": [16, 65536] },
      "scanPeriod":   { "value": 0.30000000000000004 },
      "startTime": 46347.395833333336, "duration": 0.1, "stopMode": 1, "startMode": 2 },
    "triggerLines": {
      "startMasterRank": 5, "startTriggerLine": -1, "startTriggerInput": 3,
      "scanMasterRank": 5,  "scanTriggerLine": -1,  "scanTriggerInput": -1,
      "startLinesAsMaster": [0, 9], "startLinesAsListener": [],
      "scanLinesAsMaster": [],  "scanLinesAsListener": [7] },
    "dynamicBytes": null, "numberOfScans": 12,
    "failing": [ "SamplePeriod get", { "operation": "#3", "number": 7, "description": "third" } ]
  }, { "name": "Bare" } ]
})";

/// Returns a set-up whose only driver has an additional member.
std::string withMember(const std::string& member)
{
    return "{\"drivers\": [{\"name\": \"d\",\n" + member + "}]}";
}

TEST(SetupFileTest, AFileWithEveryKeyIsReadAndWhatIsMissingTakesItsDefault)
{
    const auto setup = parseSetup(everything, "bench.json");
    EXPECT_EQ(setup.title, "Engine bench");
    ASSERT_TRUE(setup.clock);
    EXPECT_NEAR(setup.clock->days, 46347.395833333336, 1e-9);
    ASSERT_EQ(setup.instruments.size(), 2U);
    const auto& channels = setup.instruments[0].groups[0].channels;
    const Value enabled[]{std::int32_t{1}, {}, std::string("yes"), std::int32_t{0}, 0.0};
    for (std::size_t i = 0; i < std::size(enabled); ++i)
        EXPECT_EQ(channels[i].enabled, enabled[i]) << i;
    EXPECT_EQ(channels[0].triggerParameters[1].value, Value{std::int32_t{7}});
    EXPECT_EQ(setup.instruments[0].timebase->blockSize.range, (Range{16, 65536}));
    EXPECT_EQ(setup.instruments[0].failing[1].number, 7);

    InstrumentSettings bare;
    bare.name = "Bare";
    EXPECT_EQ(setup.instruments[1], bare);
    const auto timebase = parseSetup(withMember(R"("timebase": {})"), "b").instruments[0].timebase;
    EXPECT_EQ(timebase->samplePeriod.value, 0.001);
    EXPECT_EQ(timebase->blockSize.value, 1024.0);
    EXPECT_EQ(timebase->scanPeriod.value, 0.1);
    EXPECT_EQ(timebase->duration, 10.0F);
}

TEST(SetupFileTest, WhatIsWrittenReadsBackAsTheSameSetup)
{
    const ko::Setup setup = parseSetup(everything, "bench.json");
    const std::string written = setupText(withPresentValues(setup, makeDrivers(setup)));
    EXPECT_EQ(parseSetup(written, "written.json"), setup) << written;
    EXPECT_EQ(setupText(ko::Setup{}), "{\"title\":\"Timebase Editor\",\"drivers\":[]}\n");
}

TEST(SetupFileTest, WhatCannotBeWrittenLeavesTheFileAsItIs)
{
    const Folder folder;
    const std::string file = folder.file("bench.json"), pipe = folder.file("pipe");
    ko::Setup setup = parseSetup(everything, "bench.json");
    saveSetup(file, setup);
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_THROW(saveSetup(pipe, setup), InputError);
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));
    setup.instruments[1].name = "\xff";
    EXPECT_THROW(saveSetup(file, setup), InputError);
    EXPECT_EQ(loadSetup(file), parseSetup(everything, "bench.json"));
}

TEST(SetupFileTest, AFileThatIsNoSetupIsRefusedWithItsLine)
{
    const std::pair<const char*, const char*> cases[]{
        {"", "bench.json:1: "},
        {"{\"drivers\": [\n{\"name\": ", "bench.json:2: "},
        {"{\"drivers\":\n\n [}", "bench.json:3: "},
        {"\x01\xff\xfe", "bench.json:1: "},
        {"[]", "bench.json:1: $: must be an object"},
        {"{}", "bench.json:1: $.drivers: is missing"},
        {"{\"drivers\": [],\n\"title\": 5}", "bench.json:2: $.title: must be a text"},
        {"{\"drivers\": [],\n\"titel\": \"x\"}", "bench.json:2: $.titel: unknown key"},
        {"{\"drivers\": [],\n\"a\\nb\": 1}", "bench.json:2: $.a b: unknown key"},
        {"{\"drivers\": [],\n\"drivers\": []}", "bench.json:2: $.drivers: stands here twice"},
        {"{\"clock\": \"10:30:00\", \"drivers\": []}", "bench.json:1: $.clock: must be a date"},
        {"{\"drivers\": {}}", "bench.json:1: $.drivers: must be a list"},
        {"{\"drivers\": [\n{},\n{}]}", "bench.json:2: $.drivers[0].name: is missing"},
        {"{\"drivers\": [{\"name\": \"a\"},\n{\"name\": \"b\",\n\"groups\": [4]}]}",
         "bench.json:3: $.drivers[1].groups[0]: must be an object"},
    };
    for (const auto& [text, message] : cases)
        EXPECT_EQ(refusalOf(text).rfind(message, 0), 0U) << text << " -> " << refusalOf(text);
}

TEST(SetupFileTest, AMemberThatDoesNotFitIsRefusedWithItsPath)
{
    const std::string parameter = R"("groups": [{"name": "g", "channels": [{"address": "1:1", "triggerParameters": [)";
    const std::string path = "groups[0].channels[0].triggerParameters[0]";
    const auto inParameter = [&](const char* members) { return parameter + "{" + members + "}]}]}]"; };
    const std::pair<std::string, std::string> cases[]{
        {R"("name": "again")", "name: stands here twice"},
        {R"("measurementMode": 1.5)", "measurementMode: must be a whole number of 32 bits"},
        {R"("samplingMode": 2147483648)", "samplingMode: must be a whole number of 32 bits"},
        {R"("hasTriggerParameters": 1)", "hasTriggerParameters: must be true or false"},
        {R"("failing": ["SamplePeriod"])", "failing[0]: is no operation that can fail"},
        {R"("failing": [{"operation": "GroupName", "why": ""}])", "failing[0].why: unknown key"},
        {R"("timebase": {"samplePeriod": 5})", "timebase.samplePeriod: must be an object"},
        {R"("timebase": {"samplePeriod": {}})", "timebase.samplePeriod.value: is missing"},
        {R"("timebase": {"blockSize": {"value": 1, "range": [1]}})", "timebase.blockSize.range: must be a minimum"},
        {R"("timebase": {"blockSize": {"value": 1, "choices": [1, "2"]}})",
         "timebase.blockSize.choices[1]: must be a number"},
        {R"("timebase": {"scanPeriod": {"value": 1, "keeps": "best"}})", "timebase.scanPeriod.keeps: must be \"near"},
        {R"("timebase": {"duration": 1e39})", "timebase.duration: must be a number of single precision"},
        {R"("triggerLines": {"rank": 5})", "triggerLines.rank: unknown key"},
        {R"("groups": [{"name": "g", "channels": [{}]}])", "groups[0].channels[0].address: is missing"},
        {R"("groups": [{"name": "g", "channels": [{"address": "1", "enabled": []}]}])",
         "groups[0].channels[0].enabled: must be a single value"},
        {inParameter(R"("id": 2, "name": "n", "type": "Float")"), path + ".value: is missing"},
        {inParameter(R"("id": 2, "name": "n", "type": "Float", "value": "1")"), path + ".value: must be a number"},
        {inParameter(R"("id": 2, "name": "n", "type": "Integer", "value": 1.5)"), path + ".value: must be a whole"},
        {inParameter(R"("id": 2, "name": "n", "type": "Bool", "value": 1)"), path + ".value: must be true or false"},
        {inParameter(R"("id": 2, "name": "n", "type": "String", "min": 0, "value": "")"), path + ".min: belongs to"},
        {inParameter(R"("id": 2, "name": "n", "type": "Bool", "choices": ["a"], "value": true)"),
         path + ".choices: belong to"},
        {inParameter(R"("id": 2, "name": "n", "type": "Bool", "value": true, "role": "edge")"),
         path + ".role: must be"},
        {R"("groups": [{"name": "g", "channels": [{"address": "1", "signal": {"shape": "saw"}}]}])",
         "groups[0].channels[0].signal.shape: must be \"sine\", \"square\", \"triangle\" or \"constant\""},
        {R"("groups": [{"name": "g", "channels": [{"address": "1", "signal": {"noise": -1}}]}])",
         "groups[0].channels[0].signal.noise: must not be negative"},
        {R"("groups": [{"name": "g", "channels": [{"address": "1", "range": [0, 0]}]}])",
         "groups[0].channels[0].range: must be a minimum and a larger maximum"},
    };
    for (const auto& [member, message] : cases)
        EXPECT_EQ(refusalOf(withMember(member)).rfind("bench.json:2: $.drivers[0]." + message, 0), 0U)
            << member << " -> " << refusalOf(withMember(member));
}

/// The bytes of each value, before those of the values in it.
std::string bytesOf(const JsonValue& value, const std::string& text)
{
    std::string all = text.substr(value.begin, value.end - value.begin) + " ~ ";
    if (const auto* const list = std::get_if<JsonList>(&value.content))
        for (const JsonValue& element : *list)
            all += bytesOf(element, text);
    if (const auto* const members = std::get_if<JsonObject>(&value.content))
        for (const JsonMember& member : *members)
            all += text.substr(member.keyBegin, 3) + bytesOf(member, text);
    return all;
}

TEST(SetupFileTest, EveryValueIsParsedWithItsBytes)
{
    const std::string text = R"({"a" : ["\\", "\"", "x\\\"y"/*"*/,"", "\u00e4" ] , // "
        "b":[1,-2.5E+3/*5*/,1e9 ,0 ],/**/"c":{ "d":7}, "e": [true,false , null,[ ],{}]})";
    const std::string parts = R"( ~ "a"["\\", "\"", "x\\\"y"/*"*/,"", "\u00e4" ] ~ "\\" ~ "\"" ~ "x\\\"y" ~ "" ~ )"
                              R"("\u00e4" ~ "b"[1,-2.5E+3/*5*/,1e9 ,0 ] ~ 1 ~ -2.5E+3 ~ 1e9 ~ 0 ~ "c"{ "d":7} ~ )"
                              R"("d"7 ~ "e"[true,false , null,[ ],{}] ~ true ~ false ~ null ~ [ ] ~ {} ~ )";
    for (const char* const before : {"", "\xEF\xBB\xBF", "/**/\n"})
        EXPECT_EQ(bytesOf(parseJson(before + text, ""), before + text), text + parts);
    for (const std::string alone : {"12", "\"a\"", "null", "-1.5"})
        EXPECT_EQ(bytesOf(parseJson(alone, ""), alone), alone + " ~ ");
}

TEST(SetupFileTest, AFileCutOffAnywhereIsRefusedAndNothingElse)
{
    const std::string whole(everything);
    for (std::size_t length = 0; length + 1 < whole.size(); ++length)
        EXPECT_EQ(refusalOf(whole.substr(0, length)).rfind("bench.json:", 0), 0U) << length;
}

TEST(SetupFileTest, AFileThatCannotBeOpenedIsRefusedByName)
{
    EXPECT_THROW(loadSetup("no/such/file.json"), InputError);
    for (const char* const file : {KO_DEMO_FOLDER, "/dev/zero", "/dev/null"})
        EXPECT_THROW(loadSetup(file), InputError) << file;
    EXPECT_EQ(loadSetup(KO_DEMO_FOLDER "/engine-bench-demo.json").instruments.size(), 5U);
}

} // namespace
} // namespace ko::test
