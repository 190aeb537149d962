#include "host/settings/SettingsList.h"
#include "SettingsPage.h"
#include "host/settings/OffersList.h"
#include "host/support/InputError.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace ko::test {
namespace {

TEST(SettingsList, AreListedWithWhatTheyCanBeSetTo)
{
    SettingsPage bench(ranges);
    bench.set({"start=trigger", "trigger-channel=A"});
    const std::string table = settingsTable(settingsOf(bench.played()), bench.played());
    for (const char* const row : {"\nsample-rate       1000          Sa/s  0.1 to 10000\n",
                                  "\nsample-period     0.001         s     0.0001 to 10\n",
                                  "\nstart             trigger             immediately, trigger, time\n",
                                  "\ntrigger-channel   A                   A, 0:3:1\n",
                                  "\ntrigger.Level     0.1                 at least -10\n",
                                  "\ntrigger.Rising    True                False, True\n",
                                  "\ntrigger.Serial    77                  (read-only)\n",
                                  "\nstop-time         -                   (needs start=time and stop=time)\n",
                                  "\nduration          10            s     0 or more; s, min, h, d\n"})
        EXPECT_NE(table.find(row), std::string::npos) << row << table;
    EXPECT_EQ(settingChoices(bench.played(), "trigger-channel").lines, "A\n0:3:1\n");
    EXPECT_EQ(settingChoices(bench.played(), "duration").note, "duration: 0 or more; s, min, h, d");
    EXPECT_THROW(settingChoices(bench.played(), "span"), Refusal);
}

TEST(SettingsList, AreListedInALineEachAndSetByThatNameWhateverItIs)
{
    for (const std::string name :
         {"=", "a=b", "Level=1=2", "a\nb", "a\r\n\tb", "--set x=1", "\"q\\", "\x7f\xc3\xa4", "\u202Ea\u2066"}) {
        Json setup = Json::parse(ranges);
        Json& channel = setup["drivers"][0]["groups"][0]["channels"][0];
        channel["name"] = setup["drivers"][0]["name"] = name;
        for (Json& parameter : channel["triggerParameters"])
            parameter["name"] = name + parameter["type"].get<std::string>();
        channel["triggerParameters"].push_back(
            {{"id", 6}, {"name", name}, {"type", "Enum"}, {"choices", {"Up", name}}, {"value", "Up"}});
        SettingsPage bench(setup.dump());
        EXPECT_EQ(bench.set({"start=trigger", "trigger-channel=" + oneLine(name)}), "");
        EXPECT_EQ(bench.get("trigger-channel"), name);
        for (const auto& [parameter, value] : {std::pair{name + "Float", std::string("2.5")}, {name, name}}) {
            EXPECT_EQ(bench.set({"trigger." + oneLine(parameter) + "=" + oneLine(value)}), "") << parameter;
            EXPECT_EQ(bench.get("trigger." + oneLine(parameter)), value);
        }
        const Settings settings = settingsOf(bench.played());
        const std::string table = settingsTable(settings, bench.played()), names = settingNames(settings);
        EXPECT_EQ(std::count(names.begin(), names.end(), '\n'), static_cast<std::ptrdiff_t>(settings.size()));
        EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), static_cast<std::ptrdiff_t>(settings.size()) + 1);
        const std::string offers = offersText(bench.played());
        const std::string row = std::string("\n  ").append(oneLine(name)).append(" | ");
        EXPECT_NE(offers.find(row), std::string::npos) << offers;
        for (const std::string* text : {&names, &table, &offers})
            EXPECT_EQ(text->find("\u202E"), std::string::npos);
    }
}

TEST(SettingsList, OfNamesThatReadAlikeAreNumberedAndReachedOneByOne)
{
    Json setup = Json::parse(ranges);
    Json& parameters = setup["drivers"][0]["groups"][0]["channels"][0]["triggerParameters"];
    const char* const names[]{"x\ny", "x y", "x y (1)"};
    for (std::size_t i = 0; i < std::size(names); ++i)
        parameters[i] = {{"id", i + 4}, {"name", names[i]}, {"type", "String"}, {"value", "old"}};
    SettingsPage bench(setup.dump());
    EXPECT_EQ(bench.set({"start=trigger", "trigger-channel=A", "trigger.x y (3)=b", "trigger.x y (1)=c"}), "");
    EXPECT_EQ(bench.get("trigger.x y (2)") + bench.get("trigger.x y (3)") + bench.get("trigger.x y (1)"), "oldbc");
    EXPECT_EQ(bench.get("trigger.x y").find("trigger.x y: no such setting; "), 0U);
}

TEST(SettingsList, InJsonHaveNumbersForNumbers)
{
    const SettingsPage demo("demo");
    Json list = settingsJson(settingsOf(demo.played()), demo.played());
    const Json offers = list[4]["offers"];
    list[4].erase("offers");
    EXPECT_EQ(list[4].dump(), R"json({"name":"scan-period","label":"Scan Period (s)","value":0.5,"readOnly":false,)json"
                              R"json("canBeSet":true,"unit":"s","choices":[0.5,1.0,2.0,5.0,10.0,60.0]})json");
    EXPECT_EQ(offers["shared"].dump(), R"({"values":6,"range":[0.5,60.0]})");
    const SettingsPage bench(ranges);
    const Json ranged = settingsJson(settableOnes(bench.played()), bench.played());
    EXPECT_EQ(ranged[1]["range"].dump(), R"({"minimum":0.0001,"maximum":10.0})");
    EXPECT_EQ(ranged.size(), 8U); // no times, trigger settings or figures
}

} // namespace
} // namespace ko::test
