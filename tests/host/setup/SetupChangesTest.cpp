#include "host/setup/SetupChanges.h"

#include "host/setup/SetupTemplates.h"
#include "host/support/InputError.h"

#include <gtest/gtest.h>
#include <set>

namespace ko::test {
namespace {

using Kind = SetupChange::Kind;

ko::Setup templated(const std::string& name)
{
    const SetupTemplate source = templateNamed(name);
    return parseSetup(source.content, source.file);
}

TEST(SetupChangesTest, EveryTemplateIsASetUpAndEveryKindCanBeAddedTwice)
{
    for (const std::string& name : templateNames())
        EXPECT_EQ(templated(name).instruments.empty(), name == "empty") << name;
    EXPECT_EQ(templated("vibration").instruments.size(), 2U);
    EXPECT_EQ(templated("vibration").instruments[1].timebase->samplePeriod.value, 1.0 / 51200.0);
    ko::Setup setup = templated("empty");
    std::set<std::string> names, addresses;
    for (int times = 1; times <= 2; ++times)
        for (const InstrumentSettings& kind : instrumentKinds()) {
            const InstrumentSettings& added = setup.instruments[addInstrument(setup, kindWord(kind))];
            EXPECT_EQ(added.name, times == 1 ? kind.name : kind.name + " 2");
            EXPECT_TRUE(names.insert(added.name).second);
            for (const GroupSettings& group : added.groups)
                for (const ChannelSettings& channel : group.channels)
                    EXPECT_TRUE(addresses.insert(channel.address).second) << channel.address;
        }
    EXPECT_EQ(setup.instruments.size(), 10U);
}

TEST(SetupChangesTest, AChangeDoesWhatItSaysOrNamesWhatExists)
{
    const ko::Setup bench = parseSetup(R"({"drivers": [
        {"name": "Main", "groups": [{"name": "G", "channels": [{"address": "0:1:1", "name": "Oil"},
                                                               {"address": "0:1:2", "enabled": 0}]}]},
        {"name": "A=B/C", "groups": [{"name": "G", "channels": [{"address": "5:1", "name": "Oil"}]}]},
        {"name": "Twin"}, {"name": "Twin"}]})",
                                       "");
    struct Case {
        SetupChange change;
        std::string refusal; ///< empty: done
        std::function<bool(const ko::Setup&)> isDone;
    };
    const auto channel = [](const ko::Setup& s, std::size_t instrument, std::size_t number) {
        return s.instruments[instrument].groups[0].channels[number].isEnabled();
    };
    const Case cases[]{
        {{Kind::Remove, "Main", {}}, "", [](const auto& s) { return s.instruments[0].name == "A=B/C"; }},
        {{Kind::Remove, "main", {}}, "main: no such instrument; did you mean Main or Twin?", {}},
        {{Kind::Remove, "Twin", {}}, "Twin: several instruments have this name", {}},
        {{Kind::Rename, "A=B/C=New=er", {}}, "", [](const auto& s) { return s.instruments[1].name == "New=er"; }},
        {{Kind::Rename, "Main=Twin", {}}, "Twin: an instrument of this name exists", {}},
        {{Kind::Rename, "Main=", {}}, "an instrument needs a name", {}},
        {{Kind::Rename, "Mian=New", {}}, "Mian: no such instrument; did you mean Main?", {}},
        {{Kind::Rename, "Main", {}}, "Main: --rename needs OLD=NEW", {}},
        {{Kind::Enable, "0:1:2", {}}, "", [&](const auto& s) { return channel(s, 0, 1); }},
        {{Kind::Disable, "Main/Oil", {}}, "", [&](const auto& s) { return !channel(s, 0, 0) && channel(s, 1, 0); }},
        {{Kind::Disable, "A=B/C/5:1", {}}, "", [&](const auto& s) { return !channel(s, 1, 0); }},
        {{Kind::Disable, "Oil", {}}, "Oil: several channels have this name: Main/0:1:1, A=B/C/5:1", {}},
        {{Kind::Disable, "Main/Oli", {}}, "Main/Oli: no such channel; there are Oil, 0:1:2", {}},
        {{Kind::Disable, "", {}}, ": no such channel; there are Oil, 0:1:2, Oil", {}},
        {{Kind::Add, "Counter", {}}, "Counter: no such kind of instrument; did you mean counter?", {}},
        {{Kind::Add, "counter", "Main"}, "Main: an instrument of this name exists", {}},
        {{Kind::Add, "counter", "Shaft"}, "", [](const auto& s) {
             return s.instruments.back().name == "Shaft" &&
                    s.instruments.back().groups[0].channels[0].address == "0:6:1";
         }}};
    for (const Case& it : cases) {
        ko::Setup setup = bench;
        std::string refusal;
        try {
            applyChange(setup, it.change);
        } catch (const InputError& error) {
            refusal = error.what();
        }
        EXPECT_EQ(refusal, it.refusal);
        EXPECT_TRUE(refusal.empty() ? it.isDone(setup) : setup == bench) << it.change.argument;
    }
}

} // namespace
} // namespace ko::test
