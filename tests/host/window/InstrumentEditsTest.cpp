#include "InstrumentsDock.h"

namespace ko::test {
namespace {

using InstrumentEditsTest = InstrumentsDock;

TEST_F(InstrumentEditsTest, ThePageFollowsTheKindOfAnInstrumentAlsoThroughTheHistory)
{
    file("scanner.json", R"({"drivers": [{"name": "A", "samplingMode": 2, "timebase": {}}]})");
    window.open(folder.file("scanner.json"));
    const auto shown = [this] { return std::pair(page().frmDynamic.visible(), page().frmStatic.visible()); };
    EXPECT_EQ(shown(), std::pair(false, true));
    EXPECT_TRUE(window.instrumentList().edit([](ko::Setup& setup) { setup.instruments[0].samplingMode = 1; }));
    EXPECT_EQ(shown(), std::pair(true, false));
    window.history().undo();
    EXPECT_EQ(shown(), std::pair(false, true));
    window.history().redo();
    EXPECT_EQ(shown(), std::pair(true, false));
}

TEST_F(InstrumentEditsTest, AddingAndRemovingAreStepsThatThePageFollowsAndUndoRestoresTheTriggerLines)
{
    const std::string opened = held();
    const HostInstruments before = drivers();
    insert(2);
    EXPECT_EQ(names(), (std::vector<std::string>{"Fast", "Slow", "Counter"}));
    EXPECT_EQ(tree.currentIndex().data().toString(), "Counter");
    EXPECT_TRUE(tree.hasFocus());
    EXPECT_EQ(drivers()[0], before[0]) << "the same object";
    EXPECT_EQ(drivers()[2]->held().timebase->duration, drivers()[0]->held().timebase->duration) << "as the page";
    EXPECT_TRUE(window.isWindowModified());
    tree.setCurrentIndex(rows.index(0, 0));
    press(Qt::Key_Delete);
    EXPECT_EQ(names(), (std::vector<std::string>{"Slow", "Counter"}));
    EXPECT_EQ(page().txtSamplePeriod.text(), "0.0001") << "of the counter";
    tree.setFocus();
    tree.selectAll();
    press(Qt::Key_Delete);
    EXPECT_TRUE(page().imgNoInst.visible());
    EXPECT_EQ(steps(), (std::vector<std::string>{"Add Counter", "Remove Fast", "Remove Slow"}));
    const std::string emptied = held();
    undoAll();
    EXPECT_EQ(held(), opened);
    EXPECT_EQ(drivers(), before);
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(page().cmbSamplePeriod.text(), "0.001");
    EXPECT_EQ(rows.rowCount(), 2);
    redoAll();
    EXPECT_EQ(held(), emptied);
}

TEST_F(InstrumentEditsTest, EveryEditIsDoneByItsKeyAndIsAStepNamedByIt)
{
    const std::string opened = held();
    const auto group = [&](std::size_t i) -> const GroupSettings& { return drivers()[i]->held().groups[0]; };
    go({0, 1, 0});
    rename("Wheel");
    EXPECT_EQ(group(0).channels[0].name, "Wheel");
    EXPECT_EQ(tree.currentIndex().data().toString(), "Wheel (0:3:1)");
    EXPECT_EQ(drivers()[0]->held().triggerLines->startTriggerLine, 2) << "the list is the same, so the lines stay";
    press(Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(group(0).channels[2].address, "0:3:3");
    EXPECT_EQ(group(0).channels[2].name, "Cam 2");
    press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_FALSE(group(0).channels[0].triggerSource);
    EXPECT_TRUE(group(0).channels[2].triggerSource);
    EXPECT_EQ(page().TriggerChannel, 2);
    press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_TRUE(group(0).channels[1].triggerSource);
    EXPECT_EQ(page().TriggerChannel, 1) << "the page follows its channel";
    go({0, 1, 1});
    tree.selectionModel()->select(rows.index(2, 0, tree.currentIndex().parent()),
                                  QItemSelectionModel::Select | QItemSelectionModel::Rows);
    press(Qt::Key_Space);
    EXPECT_FALSE(group(0).channels[1].isEnabled() || group(0).channels[2].isEnabled());
    go({0, 1, 0});
    press(Qt::Key_Delete);
    EXPECT_EQ(page().TriggerChannel, 0);
    go({1});
    press(Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(group(1).name, "Group");
    go({1});
    press(Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(group(1).channels.size(), 1U) << "in the last group";
    go({0});
    press(Qt::Key_D, Qt::ControlModifier);
    press(Qt::Key_Down, Qt::AltModifier);
    ASSERT_EQ(names(), (std::vector<std::string>{"Fast", "Slow", "Fast 2"}));
    EXPECT_EQ(group(2).channels[0].address, "0:5:3");
    rename("Copy");
    EXPECT_EQ(steps(), (std::vector<std::string>{"Name Crank → Wheel", "Add Cam 2", "Trigger channel Wheel → Cam 2",
                                                 "Swap Cam and Cam 2", "Cam 2 Yes → No, Cam Yes → No", "Remove Wheel",
                                                 "Add Group", "Add 0:4:1", "Add Fast 2", "Swap Fast 2 and Slow",
                                                 "Name Fast 2 → Copy"}));
    const std::string edited = held();
    undoAll();
    EXPECT_EQ(held(), opened);
    redoAll();
    EXPECT_EQ(held(), edited);
}

TEST_F(InstrumentEditsTest, AThousandInstrumentsAreSearchedByNameChannelAndAddress)
{
    ko::Setup setup;
    for (int i = 0; i < 1000; ++i) {
        InstrumentSettings one;
        one.name = "Unit " + std::to_string(i);
        ChannelSettings& channel = one.groups.emplace_back().channels.emplace_back();
        channel.address = "0:" + std::to_string(i) + ":1";
        channel.name = i == 77 ? "Oil" : "";
        one.groups[0].name = i == 5 ? "Turbine" : "";
        setup.instruments.push_back(one);
    }
    window.open(file("large.json", setupText(setup).c_str()));
    auto& filter = *window.instruments().findChild<QLineEdit*>("filter");
    const auto shown = [&] {
        std::string found;
        for (int i = 0; i < rows.rowCount(); ++i)
            if (!tree.isRowHidden(i, {}))
                found += rows.index(i, 0).data().toString().toStdString() + ";";
        return found;
    };
    go({998});
    filter.setFocus();
    for (const auto& [text, found] : {std::pair("turb", "Unit 5;"), {"OIL", "Unit 77;"}}) {
        QTest::keyClicks(&filter, text);
        EXPECT_EQ(shown(), found);
        EXPECT_TRUE(tree.selectionModel()->selectedRows().isEmpty()) << "what is hidden cannot be removed";
        QTest::keyClick(&filter, Qt::Key_Escape);
    }
    QTest::keyClicks(&filter, "0:998:");
    EXPECT_EQ(shown(), "Unit 998;");
    QTest::keyClick(&filter, Qt::Key_Down);
    EXPECT_TRUE(tree.hasFocus());
    go({998});
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(tree.currentIndex().data().toString(), "Unit 1000");
    EXPECT_EQ(filter.text(), "") << "the copy would be hidden";
}

TEST_F(InstrumentEditsTest, AnotherStartMasterTriggersByItsOwnChannel)
{
    const char* const masters = R"({"drivers": [
      {"name": "A", "timebase": {"startMode": 2}, "triggerLines": {"startMasterRank": 5}, "groups": [{"name": "G",
       "channels": [{"address": "1:1", "name": "A1"}, {"address": "1:2", "name": "A2", "triggerSource": true}]}]},
      {"name": "B", "timebase": {"startMode": 2}, "triggerLines": {"startMasterRank": 5}, "groups": [{"name": "G",
       "channels": [{"address": "2:1", "name": "B1", "triggerSource": true}, {"address": "2:2", "name": "B2"}]}]}]})";
    const std::pair<const char*, InstrumentChange> changes[]{
        {"Remove", [](ko::Setup& setup) { setup.instruments.erase(setup.instruments.begin()); }},
        {"Move", [](ko::Setup& setup) { std::swap(setup.instruments[0], setup.instruments[1]); }},
        {"Rank", [](ko::Setup& setup) { setup.instruments[1].triggerLines->startMasterRank = 6; }},
        {"Add", [](ko::Setup& setup) {
             setup.instruments.insert(setup.instruments.begin(), setup.instruments[1]);
             setup.instruments[0].name = "New";
         }}};
    const auto marked = [](const HostInstrument& driver) {
        return driver.name().substr(0, 1) + (driver.held().groups[0].channels[1].triggerSource ? "2" : "") +
               (driver.held().groups[0].channels[0].triggerSource ? "1" : "");
    };
    for (const auto& [name, change] : changes) {
        SCOPED_TRACE(name);
        window.open(file("masters.json", masters));
        EXPECT_NE(page().txtChannel.text().find("A2"), std::string::npos) << page().txtChannel.text();
        ASSERT_TRUE(window.instrumentList().edit(change));
        EXPECT_NE(page().txtChannel.text().find("B1"), std::string::npos) << page().txtChannel.text();
        for (const auto& driver : drivers())
            EXPECT_EQ(marked(*driver), driver->name() == "A" ? "A2" : driver->name().substr(0, 1) + "1");
        undoAll();
        EXPECT_NE(page().txtChannel.text().find("A2"), std::string::npos) << page().txtChannel.text();
    }
}

TEST_F(InstrumentEditsTest, FailuresAndFaultsOfAnInstrumentThatStaysAreKept)
{
    drivers()[0]->calls().fail({.operation = "Duration set"});
    page().txtDuration.userReplaced("33", 2, 0);
    ASSERT_EQ(window.docks().health().failing().size(), 1U);
    insert(0);
    ASSERT_EQ(window.docks().health().failing().size(), 1U);
    EXPECT_FALSE(drivers()[0]->calls().failing().empty());
}

TEST_F(InstrumentEditsTest, AReadOnlyPageAndAnInvalidEntryLeaveTheInstrumentsAlone)
{
    QString message;
    const auto refuses = [&](int key, const QString& reason) {
        answer(message);
        QTest::keyClick(&tree, static_cast<Qt::Key>(key));
        activate();
        EXPECT_TRUE(message.contains(reason)) << fromQt(message);
        EXPECT_EQ(drivers().size(), 2U);
    };
    tree.setCurrentIndex(rows.index(0, 0));
    window.document().mode().setReadOnly(true);
    for (const int key : {Qt::Key_Delete, Qt::Key_Insert})
        refuses(key, window.text(textNumber::instrumentEdit::readOnly));
    window.document().mode().setReadOnly(false);
    page().moveFocus(&page().txtDuration);
    page().txtDuration.userReplaced("x", 1, 0);
    refuses(Qt::Key_Delete, {});
}

} // namespace
} // namespace ko::test
