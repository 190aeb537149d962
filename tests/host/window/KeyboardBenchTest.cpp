#include "InstrumentsDock.h"

namespace ko::test {
namespace {

/// Makes a set-up from nothing.
class KeyboardBenchTest : public InstrumentsDock {
protected:
    /// Goes to an instrument, group or channel by the arrow keys.
    void seek(const SetupPlace& place)
    {
        press(Qt::Key_Home);
        for (int i = 0; i < 200; ++i) {
            const InstrumentRow& row = *rows.row(tree.currentIndex());
            const SetupPlace at = InstrumentsModel::placeOf(row);
            const bool isPlace = row.kind() == (place.isInstrument() ? InstrumentRow::Kind::Instrument
                                                : place.isChannel()  ? InstrumentRow::Kind::Channel
                                                                     : InstrumentRow::Kind::Group);
            if (isPlace && at == place)
                return;
            const bool isAbove = at.instrument == place.instrument && (at.group < 0 || at.group == place.group) &&
                                 at.channel < 0 && !tree.isExpanded(tree.currentIndex()) &&
                                 rows.hasChildren(tree.currentIndex());
            press(isAbove ? Qt::Key_Right : Qt::Key_Down);
        }
        FAIL() << "no such place";
    }
    /// Adds an instrument of the kind at this place in the gallery and edits it to what the dock sets of `wanted`.
    void make(std::size_t number, const InstrumentSettings& wanted)
    {
        insert(static_cast<int>(number));
        seek({number});
        rename(wanted.name.c_str());
        for (std::size_t g = 0; g < wanted.groups.size(); ++g) {
            if (drivers()[number]->held().groups.size() == g)
                press(Qt::Key_G, Qt::ControlModifier);
            seek({number, static_cast<int>(g)});
            rename(wanted.groups[g].name.c_str());
            makeChannels({number, static_cast<int>(g)}, wanted.groups[g].channels);
        }
    }
    void makeChannels(SetupPlace place, const std::vector<ChannelSettings>& wanted)
    {
        const auto count = [&] {
            return drivers()[place.instrument]->held().groups[static_cast<std::size_t>(place.group)].channels.size();
        };
        while (count() < wanted.size())
            press(Qt::Key_Insert, Qt::ShiftModifier);
        place.channel = 0;
        for (const ChannelSettings& channel : wanted) {
            seek(place);
            rename(channel.name.c_str());
            if (!channel.isEnabled())
                press(Qt::Key_Space);
            if (channel.triggerSource)
                press(Qt::Key_T, Qt::ControlModifier);
            ++place.channel;
        }
        while (count() > wanted.size()) {
            seek(place);
            press(Qt::Key_Delete);
        }
    }
};

/// What the dock sets of a set-up.
std::string outline(const ko::Setup& setup)
{
    std::string text;
    for (const InstrumentSettings& instrument : setup.instruments) {
        text += instrument.name + " " + std::to_string(instrument.timebase->duration) + "\n";
        for (const GroupSettings& group : instrument.groups) {
            text += "  " + group.name + ":";
            for (const ChannelSettings& channel : group.channels)
                text += " [" + channel.name + (channel.isEnabled() ? "" : " off") +
                        (channel.triggerSource ? " source]" : "]");
            text += "\n";
        }
    }
    return text;
}

TEST_F(KeyboardBenchTest, TheEngineBenchIsMadeFromNothingByTheKeyboardAndSaved)
{
    const ko::Setup engineBench = loadSetup(KO_DEMO_FOLDER "/engine-bench-demo.json");
    window.session().begin("empty");
    EXPECT_EQ(window.findChild<QToolButton*>("plus")->accessibleName(), "Add Instrument");
    tree.setFocus();
    for (std::size_t i = 0; i < engineBench.instruments.size(); ++i)
        make(i, engineBench.instruments[i]);
    at(page().txtDuration).setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&at(page().txtDuration), "0.5"); // minutes
    user.saveAs = folder.file("made.json");
    QTest::keyClick(&at(page().txtDuration), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(outline(loadSetup(user.saveAs)), outline(engineBench));
    EXPECT_FALSE(window.isWindowModified());
    undoAll();
    EXPECT_TRUE(drivers().empty());
}

} // namespace
} // namespace ko::test
