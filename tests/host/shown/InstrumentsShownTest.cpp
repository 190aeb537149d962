#include "host/docks/CallText.h"
#include "host/docks/FaultDialog.h"
#include "host/window/FrameTest.h"

namespace ko::test {
namespace {

/// The rows of a tree, one line each: name, value, check mark, "!" for a sign, "~" for a name that can be edited.
std::string rowsOf(const QAbstractItemModel& rows, const QModelIndex& parent = {}, const std::string& indent = "  ")
{
    std::string lines;
    for (int i = 0; i < rows.rowCount(parent); ++i) {
        const QModelIndex name = rows.index(i, 0, parent);
        const QModelIndex value = name.siblingAtColumn(1);
        EXPECT_EQ(rows.parent(name), parent);
        EXPECT_EQ(rows.hasChildren(name), rows.rowCount(name) > 0);
        EXPECT_EQ(rows.rowCount(value), 0);
        for (const QModelIndex& cell : {name, value})
            EXPECT_EQ(cell.data(Qt::ToolTipRole).toString().isEmpty(), cell.data().toString().isEmpty());
        const QVariant check = name.data(Qt::CheckStateRole);
        EXPECT_EQ(name.flags().testFlag(Qt::ItemIsUserCheckable), check.isValid());
        EXPECT_FALSE(value.flags().testFlag(Qt::ItemIsEditable) || value.data(Qt::CheckStateRole).isValid());
        lines += indent + fromQt(name.data().toString()) + " = " + fromQt(value.data().toString());
        lines += check.isValid() ? check.toInt() == Qt::Checked ? " [x]" : " [ ]" : "";
        lines += name.flags().testFlag(Qt::ItemIsEditable) ? " ~" : "";
        lines += value.data(Qt::DecorationRole).isValid() ? " !\n" : "\n";
        lines += rowsOf(rows, name, indent + "  ");
    }
    return lines;
}

using InstrumentsShownTest = FrameTest;

TEST_F(InstrumentsShownTest, TheTreeOfTheInstrumentsShowsAllThatIsSetInOrder)
{
    InstrumentsModel model(texts, locale, nullptr);
    model.show(makeDrivers(parseSetup(R"({"drivers": [
        {"name": "Digitizer", "failing": ["GroupName"], "hasTriggerParameters": true,
         "triggerLines": {"startMasterRank": 1, "startTriggerLine": 2, "startTriggerInput": 3, "scanMasterRank": 4,
                          "scanTriggerLine": 5, "scanTriggerInput": 6},
         "timebase": {"samplePeriod": {"value": 0.5}, "blockSize": {"value": 64}, "scanPeriod": {"value": 2},
                      "startMode": 1, "startTime": 46347.5, "stopMode": 1, "duration": 25.6},
         "groups": [{"name": "None", "channels": []},
                    {"name": "Inputs", "channels": [{"address": "0:1", "name": "Crank", "triggerSource": true,
            "triggerParameters": [{"id": 2, "name": "Level", "type": "Float", "value": 1.5},
                {"id": 3, "name": "Armed", "type": "Bool", "value": true},
                {"id": 4, "name": "Count", "type": "Long", "value": 7},
                {"id": 5, "name": "Edge", "type": "Enum", "value": "Rising", "choices": ["Rising"]}]},
            {"address": "0:2", "enabled": 0}]}]},
        {"name": "Odd", "timebase": {"startMode": 7, "stopMode": -1, "startTime": 1e9}},
        {"name": "Bare"}]})",
                                      "bench.json")));
    EXPECT_EQ("\n" + rowsOf(model), R"(
  Digitizer = Simulated faults: GroupName ~ !
    Timebase = 
      Sample period = 0.5 s
      Block size = 64
      Scan period = 2 s
      Start = At time
      Start time = 11/21/2026 12:00:00 PM
      Stop = At time
      Duration = 25.6 s
    None =  ~
    Inputs =  ~
      Crank (0:1) = Trigger source [x] ~
        Level = 1.5
        Armed = Yes
        Count = 7
        Edge = Rising
      0:2 =  [ ] ~
    Trigger lines = 
      Rank as start master = 1
      Start trigger line = 2
      Start trigger input = 3
      Rank as sync master = 4
      Sync trigger line = 5
      Sync trigger input = 6
  Odd =  ~
    Timebase = 
      Sample period = 0.001 s
      Block size = 1024
      Scan period = 0.1 s
      Start = 7
      Start time = 1000000000
      Stop = -1
      Duration = 10 s
  Bare =  ~
)");
}

TEST_F(InstrumentsShownTest, AValueOfACallReadsAsItsTypeInTheLocale)
{
    Locale german;
    german.decimalSeparator = ",";
    const std::pair<CallValue, const char*> cases[]{
        {{}, ""},
        {true, "Yes"},
        {false, "No"},
        {std::int32_t{-7}, "-7"},
        {double{25.6F}, "25,6"},
        {0.1, "0,1"},
        {std::string("a\nb"), "a b"},
        {DateTime{46347.5}, "11/21/2026 12:00:00 PM"},
        {DateTime{1e12}, "1000000000000"},
        {Range{0.5, 2}, "0,5 \u2013 2"},
        {std::vector<double>{0.5, 2}, "0,5; 2"},
        {std::vector<std::string>{"x", "y"}, "x; y"},
        {LineList{1, 2}, "1; 2"},
    };
    for (const auto& [value, text] : cases)
        EXPECT_EQ(fromQt(callText(value, texts, german)), text);
}

TEST_F(InstrumentsShownTest, TheFaultsOfAnInstrumentAreThoseOfTheViewsThatItHas)
{
    const std::tuple<const char*, const char*, const char*> cases[]{
        {"false", "NumberOfScans", ""},
        {R"(false, "timebase": {})", "SamplePeriod set; ", "; StartMode set; "},
        {"true", "GetTriggerParamCount; ", "; GetTriggerGroupName; "},
        {R"(false, "triggerLines": {})", "StartMasterRank get; ", "; StartLinesAsListener get; "}};
    for (const auto& [members, first, last] : cases) {
        const std::string named = R"({"drivers": [{"name": "A", "failing": ["GroupName"], "hasTriggerParameters": )";
        const auto drivers = makeDrivers(parseSetup(named + members + "}]}", ""));
        const FaultDialog dialog(texts, *drivers[0], &window);
        const auto& list = *dialog.findChild<QListWidget*>();
        std::string boxes;
        for (int i = 0; i < list.count(); ++i)
            boxes += fromQt(list.item(i)->text()) + (list.item(i)->checkState() ? " [x]; " : "; ");
        EXPECT_TRUE(boxes.starts_with("GroupCount; ChannelCount; ChannelAttribute; MeasurementMode; SamplingMode; "
                                      "DriverName; GroupName [x]; " +
                                      std::string(first)))
            << boxes;
        EXPECT_TRUE(boxes.ends_with(last + std::string("NumberOfScans; DynamicBytes; "))) << boxes;
    }
}

} // namespace
} // namespace ko::test
