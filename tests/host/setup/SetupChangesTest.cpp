#include "host/setup/SetupChanges.h"

#include "fakes/Thrown.h"
#include "host/setup/InstrumentEdits.h"
#include "host/setup/PlacedChanges.h"
#include "host/setup/SetupTemplates.h"
#include "host/support/InputError.h"

#include <algorithm>
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
        {{Kind::Add, "bench/scope", {}},
         "",
         [](const auto& s) {
             const InstrumentSettings& added = s.instruments.back();
             return added.name == "scope" && added.module == "bench" && added.device == "scope";
         }},
        {{Kind::Add, "counter", "Shaft"}, "", [](const auto& s) {
             return s.instruments.back().name == "Shaft" &&
                    s.instruments.back().groups[0].channels[0].address == "0:6:1";
         }}};
    for (const Case& it : cases) {
        ko::Setup setup = bench;
        EXPECT_EQ(thrownBy<InputError>([&] { applyChange(setup, it.change); }), it.refusal);
        EXPECT_TRUE(it.isDone ? it.isDone(setup) : setup == bench) << it.change.argument;
    }
}

TEST(SetupChangesTest, EachInstrumentAfterAChangeIsTheOneThatItWas)
{
    using All = std::vector<InstrumentSettings>;
    const HostInstruments before = makeDrivers(
        parseSetup(R"({"drivers": [{"name": "A"}, {"name": "B", "timebase": {}}, {"name": "B"}, {"name": "C"}]})", ""));
    const std::pair<const char*, void (*)(All&)> cases[]{
        // The places before; "4" is a new one.
        {"0123", [](All&) {}},
        {"1230", [](All& all) { std::rotate(all.begin(), all.begin() + 1, all.end()); }},
        {"0213", [](All& all) { std::swap(all[1], all[2]); }},
        {"3120", [](All& all) { std::swap(all[0], all[3]), all[0].dynamicBytes = all[3].dynamicBytes = 5; }},
        {"123", [](All& all) { all.erase(all.begin()); }},
        {"013", [](All& all) { all.erase(all.begin() + 2); }},
        {"04123", [](All& all) { all.emplace(all.begin() + 1)->name = "N"; }},
        {"0123", [](All& all) { all[1].name = "N", all[3].name = "M"; }},
        {"0124", [](All& all) { all[3].timebase.emplace(); }},
    };
    for (const auto& [places, change] : cases) {
        std::string found;
        const auto edit = [change = change](auto& setup) { change(setup.instruments); };
        for (const auto& is : changedInstruments(before, edit, {}).drivers)
            found += std::to_string(std::find(before.begin(), before.end(), is) - before.begin());
        EXPECT_EQ(found, places);
    }
}

/// Instruments with their groups and channels: `A{g[c:1 d:2] h[]}`; `*` marks a trigger source, `-` one switched off.
std::string shown(const ko::Setup& setup)
{
    std::string text;
    for (const InstrumentSettings& instrument : setup.instruments) {
        text += (text.empty() ? "" : " ") + instrument.name + "{";
        for (const GroupSettings& group : instrument.groups) {
            text += (text.back() == '{' ? "" : " ") + group.name + "[";
            for (const ChannelSettings& channel : group.channels)
                text += (text.back() == '[' ? "" : " ") + channel.name + ":" +
                        channel.address.substr(channel.address.rfind(':') + 1) + (channel.triggerSource ? "*" : "") +
                        (channel.isEnabled() ? "" : "-");
            text += "]";
        }
        text += "}";
    }
    return text;
}

std::string shown(const SetupPlaces& places)
{
    std::string text;
    for (const SetupPlace& place : places)
        text += (text.empty() ? "" : " ") + std::to_string(place.instrument) + "," + std::to_string(place.group) + "," +
                std::to_string(place.channel);
    return text;
}

TEST(SetupChangesTest, WhatIsChosenInTheTreeIsChangedAtAllItsPlaces)
{
    const ko::Setup bench = parseSetup(R"({"drivers": [
        {"name": "A", "failing": ["GroupName"], "groups": [
            {"name": "g", "channels": [{"address": "0:1:1", "name": "c", "triggerSource": true},
                                       {"address": "0:1:2", "name": "d", "enabled": 0}]},
            {"name": "h", "channels": [{"address": "0:1:3", "name": "e", "canTrigger": false}]}]},
        {"name": "B"}]})",
                                       "");
    const auto enable = [](bool on) {
        return [on](ko::Setup& setup, const SetupPlaces& places) {
            enableAt(setup, places, on);
            return SetupPlaces();
        };
    };
    const auto move = [](bool down) {
        return [down](ko::Setup& setup, const SetupPlaces& places) { return moveAt(setup, places, down); };
    };
    const auto remove = [](ko::Setup& setup, const SetupPlaces& places) {
        removeAt(setup, places);
        return SetupPlaces();
    };
    const SetupPlace a{0}, b{1}, g{0, 0}, h{0, 1}, c{0, 0, 0}, d{0, 0, 1}, e{0, 1, 0};
    const struct {
        std::function<SetupPlaces(ko::Setup&, const SetupPlaces&)> change;
        SetupPlaces at;
        const char *setup, *places;
    } cases[]{
        {duplicateAt, {c}, "A{g[c:1* c 2:4 d:2-] h[e:3]} B{}", "0,0,1"},
        {duplicateAt, {c, d, e}, "A{g[c:1* c 2:6 d:2- d 2:5-] h[e:3 e 2:4]} B{}", "0,0,1 0,0,3 0,1,1"},
        {duplicateAt, {g}, "A{g[c:1* d:2-] g 2[c 2:4 d 2:5-] h[e:3]} B{}", "0,1,-1"},
        {duplicateAt, {g, h}, "A{g[c:1* d:2-] g 2[c 2:5 d 2:6-] h[e:3] h 2[e 2:4]} B{}", "0,1,-1 0,3,-1"},
        {duplicateAt, {c, h}, "A{g[c:1* c 2:5 d:2-] h[e:3] h 2[e 2:4]} B{}", "0,0,1 0,2,-1"},
        {duplicateAt, {a, b}, "A{g[c:1* d:2-] h[e:3]} A 2{g[c:1 d:2-] h[e:3]} B{} B 2{}", "1,-1,-1 3,-1,-1"},
        {remove, {c, h}, "A{g[d:2-]} B{}", ""},
        {remove, {a, b}, "", ""},
        {move(true), {c}, "A{g[d:2- c:1*] h[e:3]} B{}", "0,0,1"},
        {move(false), {d}, "A{g[d:2- c:1*] h[e:3]} B{}", "0,0,0"},
        {move(true), {g}, "A{h[e:3] g[c:1* d:2-]} B{}", "0,1,-1"},
        {move(true), {a}, "B{} A{g[c:1* d:2-] h[e:3]}", "1,-1,-1"},
        {move(false), {b}, "B{} A{g[c:1* d:2-] h[e:3]}", "0,-1,-1"},
        {move(true), {c, d}, "A{g[c:1* d:2-] h[e:3]} B{}", "0,0,0 0,0,1"},
        {move(true), {c, e}, "A{g[c:1* d:2-] h[e:3]} B{}", "0,0,0 0,1,0"},
        {move(true), {g, b}, "A{g[c:1* d:2-] h[e:3]} B{}", "0,0,-1 1,-1,-1"},
        {enable(true), {g}, "A{g[c:1* d:2] h[e:3]} B{}", ""},
        {enable(false), {a}, "A{g[c:1*- d:2-] h[e:3-]} B{}", ""},
        {enable(false), {c, e}, "A{g[c:1*- d:2-] h[e:3-]} B{}", ""},
        {enable(false), {h}, "A{g[c:1* d:2-] h[e:3-]} B{}", ""},
    };
    for (const auto& it : cases) {
        ko::Setup setup = bench;
        EXPECT_EQ(shown(it.change(setup, it.at)), it.places) << it.setup;
        EXPECT_EQ(shown(setup), it.setup);
    }
    ko::Setup setup = bench;
    setup.instruments[0].groups[0].channels[1].address = "0:1:2147483647";
    EXPECT_EQ(shown(duplicateAt(setup, {d})), "0,0,2");
    EXPECT_EQ(setup.instruments[0].groups[0].channels[2].address, "0:1:2") << "none is after the last";
    setup = bench;
    EXPECT_EQ(shown({addGroup(setup, 0, "g"), addChannel(setup, {0, 2}), addChannel(setup, g)}), "0,2,-1 0,2,0 0,0,2");
    EXPECT_EQ(shown(setup), "A{g[c:1* d:2- d 2:5] h[e:3] g 2[e 2:4]} B{}");
    chooseTrigger(setup, d);
    EXPECT_EQ(shown(setup).substr(0, 14), "A{g[c:1 d:2*- ");
    EXPECT_THROW(chooseTrigger(setup, e), InputError);
    EXPECT_THROW(renameAt(setup, g, ""), InputError);
    renameAt(setup, c, "");
    EXPECT_EQ(setup.instruments[0].groups[0].channels[0].name, "");
    EXPECT_EQ(duplicateAt(setup, {a}).size(), 1U);
    EXPECT_TRUE(setup.instruments[1].failing.empty());
}

} // namespace
} // namespace ko::test
