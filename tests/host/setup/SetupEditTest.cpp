#include "host/setup/SetupEdit.h"

#include "host/setup/SetupWriter.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <random>

namespace ko::test {
namespace {

using Change = std::function<void(Setup&)>;

std::string replaced(std::string text, const std::string& old, const std::string& with)
{
    const std::size_t at = text.find(old);
    EXPECT_NE(at, std::string::npos) << old;
    return at == std::string::npos ? text : text.replace(at, old.size(), with);
}

const std::string byHand = R"(// Bench 3, ask Ann before a change
{ "title" : "Bench",   /* as on the door */
  "drivers": [
    { // the old one
      "name": "A",
      "groups": [{"name": "G", "channels": [
        {"address": "0:1", "enabled": true},   // crank
        {"address": "0:2", "name": "Oil"}      // pressure
      ]}],
      "timebase": {
        "samplePeriod": {"value": 1e-3, "choices": [1e-3, 2e-3]},  // 1 kHz
        "duration": 25.60                                           // seconds
      },
      "failing": []
    },
    // spare
    { "name": "B",
      "samplingMode": 2 /* static */ }
  ]
}
)";

TEST(SetupEditTest, OnlyWhatHasChangedIsWrittenAndTheRestStaysAsItWas)
{
    struct Case {
        Change change;
        std::vector<std::pair<std::string, std::string>> edits; ///< of the text
    };
    const auto timebase = [](ko::Setup& s) -> TimebaseSettings& { return *s.instruments[0].timebase; };
    const auto channels = [](ko::Setup& s) -> std::vector<ChannelSettings>& {
        return s.instruments[0].groups[0].channels;
    };
    const Case cases[]{
        {[](ko::Setup&) {}, {}},
        {[&](ko::Setup& s) { timebase(s).duration = 30.1F; }, {{"25.60", "30.1"}}},
        {[&](ko::Setup& s) { timebase(s).samplePeriod.value = 0.002; }, {{R"("value": 1e-3)", R"("value": 0.002)"}}},
        {[&](ko::Setup& s) { timebase(s).startMode = 1; },
         {{"25.60                                           // seconds\n",
           "25.60,                                           // seconds\n        \"startMode\": 1\n"}}},
        {[&](ko::Setup& s) { channels(s)[0].enabled = 0; }, {{"true", "0"}}},
        {[&](ko::Setup& s) { channels(s).erase(channels(s).begin()); },
         {{"        {\"address\": \"0:1\", \"enabled\": true},   // crank\n", ""}}},
        {[&](ko::Setup& s) { channels(s).pop_back(); },
         {{"        {\"address\": \"0:2\", \"name\": \"Oil\"}      // pressure\n", ""}, {"true},", "true}"}}},
        {[](ko::Setup& s) { s.instruments[1].name = "C"; }, {{"\"B\"", "\"C\""}}},
        {[](ko::Setup& s) { s.instruments[1].measurementMode = 2; }, {{"\"B\",", "\"B\", \"measurementMode\": 2,"}}},
        {[](ko::Setup& s) { s.instruments[1].dynamicBytes = 5; },
         {{R"("samplingMode": 2)", R"("samplingMode": 2, "dynamicBytes": 5.0)"}}},
        {[](ko::Setup& s) { s.instruments.pop_back(); },
         {{R"({ "name": "B",
      "samplingMode": 2 /* static */ })",
           ""},
          {"[]\n    },", "[]\n    }"},
          {"    // spare\n    \n", "    // spare\n"}}},
        {[](ko::Setup& s) { s.title = "X \"1\""; }, {{"\"Bench\"", R"("X \"1\"")"}}},
        {[](ko::Setup& s) { s.clock = readClockTime("2026-11-21 09:30:00"); },
         {{"\"Bench\",", "\"Bench\", \"clock\": \"2026-11-21 09:30:00\","}}},
        {[&](ko::Setup& s) { timebase(s).samplePeriod.choices.push_back(4e-3); }, {{"2e-3]", "2e-3, 0.004]"}}},
    };
    for (const Case& it : cases) {
        for (const bool carriageReturns : {false, true}) {
            const auto broken = [&](std::string text) {
                for (std::size_t at = 0; carriageReturns && (at = text.find('\n', at)) != std::string::npos; at += 2)
                    text.insert(at, "\r");
                return text;
            };
            ko::Setup setup = parseSetup(byHand, "");
            it.change(setup);
            std::string expected = byHand;
            for (const auto& [old, with] : it.edits)
                expected = replaced(expected, old, with);
            EXPECT_EQ(editedText(broken(byHand), setup), broken(expected));
        }
    }
}

TEST(SetupEditTest, AnInstrumentIsAddedInTheIndentationOfItsNeighbours)
{
    ko::Setup setup = parseSetup(byHand, "");
    setup.instruments.emplace_back().name = "C";
    const std::string added = editedText(byHand, setup);
    EXPECT_EQ(added.find("/* static */ },\n    {\"name\":\"C\","), byHand.find("/* static */ }")) << added;
    setup.instruments.emplace(setup.instruments.begin())->name = "Z";
    EXPECT_NE(editedText(byHand, setup).find("  \"drivers\": [\n    {\"name\":\"Z\","), std::string::npos);
    EXPECT_EQ(parseSetup(editedText(byHand, setup), ""), setup);
    EXPECT_EQ(editedText("no set-up", setup), setupText(setup));
}

TEST(SetupEditTest, AsManyElementsAsCanBeStayAndOneBetweenThemIsChangedInPlace)
{
    const std::string text = R"({"drivers": [{"name": "A", "timebase": {"samplePeriod": {"value": 1,
        "choices": [1/*a*/, 2/*b*/, 3/*c*/, 4/*d*/, 5]}}}]})";
    ko::Setup setup = parseSetup(text, "");
    for (const auto& [choices, edited] :
         {std::pair(std::vector<double>{3, 4, 1, 5, 9}, "[3/*c*/, 4/*d*/, 1.0, 5, 9.0]"),
          {{1, 7, 3, 4, 5, 6}, "[1/*a*/, 7.0/*b*/, 3/*c*/, 4/*d*/, 5, 6.0]"},
          {{7, 2, 3, 4, 5, 6}, "[7.0/*a*/, 2/*b*/, 3/*c*/, 4/*d*/, 5, 6.0]"}}) {
        setup.instruments[0].timebase->samplePeriod.choices = choices;
        EXPECT_NE(editedText(text, setup).find(edited), std::string::npos) << editedText(text, setup);
    }
}

/// Writes a set-up file as people do, in any layout and order of keys and with comments, twice: as it is, and with some
/// values changed.
class Person {
public:
    explicit Person(unsigned seed) : random_(seed)
    {
        gap();
        object({member("title", text("bench")), member("drivers", [this] { list([this] { instrument(); }); })});
        gap();
    }

    std::string before, after;
    int changes = 0;

private:
    using Write = std::function<void()>;

    bool chance(unsigned of) { return random_() % of == 0; }
    void both(const std::string& same)
    {
        before += same;
        after += same;
    }
    void gap()
    {
        const char* const gaps[]{"", " ", "\n", "\n\t", "  // it's \"so\", [\n", " /* }, */ ", "\r\n    ", "/**/"};
        for (int i = 0; i < 2; ++i)
            both(gaps[random_() % std::size(gaps)]);
    }
    Write value(const std::string& kept, const std::string& fresh)
    {
        return [=, this] {
            const bool isChanged = chance(8);
            before += kept;
            after += isChanged ? fresh : kept;
            changes += isChanged ? 1 : 0;
        };
    }
    Write text(const std::string& kept)
    {
        return value('"' + kept + R"(\u0041")", "\"new " + std::to_string(++number_) + '"');
    }
    Write member(const std::string& key, const Write& write)
    {
        return [=, this] {
            both('"' + key + '"');
            gap();
            both(":");
            gap();
            write();
        };
    }
    void items(std::vector<Write> all, const char* open, const char* close)
    {
        both(open);
        for (std::size_t i = 0; i < all.size(); ++i) {
            both(i > 0 ? "," : "");
            gap();
            all[i]();
            gap();
        }
        both(close);
    }
    void object(std::vector<Write> members)
    {
        std::shuffle(members.begin(), members.end(), random_);
        items(std::move(members), "{", "}");
    }
    void list(const Write& element) { items(std::vector<Write>(1 + random_() % 3, element), "[", "]"); }
    void channel()
    {
        const std::string number = std::to_string(++number_);
        object({member("address", value("\"0:" + number + '"', "\"7:" + number + '"')), member("name", text("Oil")),
                member("enabled", value("true", "0")), member("canTrigger", value("false", "true"))});
    }
    void instrument()
    {
        const Write period = [this] {
            object({member("value", value("1.0E-3", "0.002")),
                    member("choices", [this] { list(value("0.10", "0.25")); })});
        };
        const Write timebase = [=, this] {
            object({member("samplePeriod", period), member("duration", value("25.60", "30.1")),
                    member("startMode", value("2", "1")), member("stopMode", value("-0", "1"))});
        };
        const Write group = [this] {
            object({member("name", text("G")), member("channels", [this] { list([this] { channel(); }); })});
        };
        object({member("name", text("A" + std::to_string(++number_))), member("timebase", timebase),
                member("groups", [=, this] { list(group); }), member("dynamicBytes", value("null", "5.0")),
                member("failing", value("[]", R"(["DriverName"])"))});
    }

    std::mt19937 random_;
    int number_ = 0;
};

TEST(SetupEditTest, FilesWrittenByHandChangeInTheEditedValuesAlone)
{
    int changes = 0;
    for (unsigned seed = 1; seed <= 100; ++seed) {
        const Person person(seed);
        EXPECT_EQ(editedText(person.before, parseSetup(person.before, "before")), person.before);
        EXPECT_TRUE(editedText(person.before, parseSetup(person.after, "after")) == person.after) << seed;
        changes += person.changes;
        ko::Setup rearranged = parseSetup(person.after, "after");
        std::rotate(rearranged.instruments.begin(), rearranged.instruments.begin() + 1, rearranged.instruments.end());
        rearranged.instruments.emplace_back().name = "Last";
        rearranged.instruments.front().groups.front().channels.clear();
        const std::string edited = editedText(person.before, rearranged);
        EXPECT_EQ(parseSetup(edited, "edited"), rearranged);
        EXPECT_NE(edited, setupText(rearranged)) << "not written anew";
    }
    EXPECT_GT(changes, 500);
}

} // namespace
} // namespace ko::test
