#include "TriggerLines.h"

namespace ko::test {
namespace {

TEST(LineUseOf, ClassifiesADriverByItsOffersAndTheChosenLines)
{
    const LineMask evenLines{true, false, true, false, true, false, true, false};
    const UsableLines master{true, evenLines}, listener{false, evenLines}, silentMaster{true, {}}, silent;
    const LinePlan onEven({}, {2, 4}), onOdd({}, {3, 5}), none;
    const struct {
        UsableLines usable;
        std::int32_t driven = 0, line = 0;
        LinePlan plan;
        LineUse use = LineUse::unusable;
    } cases[] = {
        {master, 2, 0, onEven, LineUse::canDrive},
        {master, 2, 1, onEven, LineUse::unusable},
        {master, 0, 2, onEven, LineUse::drives},
        {master, 0, 0, onEven, LineUse::canDrive}, // it leaves the line that it was wired to
        {master, -1, 4, onEven, LineUse::taken},
        {master, -1, 3, onOdd, LineUse::mustDrive},
        {master, -1, 2, none, LineUse::canDrive},
        {listener, -1, 0, onEven, LineUse::canListen},
        {listener, -1, 1, onEven, LineUse::unusable},
        {listener, -1, 2, onEven, LineUse::listens},
        {listener, -1, 4, onEven, LineUse::taken},
        {listener, -1, 3, onOdd, LineUse::mustListen},
        {listener, 1, 1, onEven, LineUse::drives}, // a wired driver that is not a master stays wired
        {listener, 4, 4, onEven, LineUse::drives},
        {silentMaster, -1, 2, onEven, LineUse::drives},
        {silent, -1, 2, onEven, LineUse::listens},
        {silent, -1, 4, onEven, LineUse::taken},
        {silent, -1, 0, onEven, LineUse::unknown},
    };
    for (const auto& c : cases)
        EXPECT_EQ(lineUse({c.usable, c.driven}, c.line, LineTrigger::start, c.plan), c.use) << &c - cases;
}

/// The dialog for trigger lines. The first driver is start master, the second sync master.
class LineMap : public LineChoice {
protected:
    FakeDriver& start = addDriver();
    FakeDriver& scan = addDriver();

    LineMap()
    {
        start.name = "Digitizer";
        scan.name = "Scanner";
        start.startRank = scan.scanRank = 5;
    }
    void inNewDialog(const std::function<void()>& actions)
    {
        survey();
        inDialog(actions);
    }
    /// Returns each row as its header and cells.
    static Texts rowsOf(const Table& table)
    {
        Texts rows;
        for (const Table::Row& row : table.rows()) {
            rows.push_back(row.header + ":");
            for (const Table::Cell& cell : row.cells)
                rows.back() += " " + cell.text;
        }
        return rows;
    }
};

TEST_F(LineMap, TheMapFollowsTheOptionsBeforeAnythingIsWritten)
{
    start.startMasterLines = {0, 2, 3};
    scan.startListenerLines = {0, 1, 2, 3};
    inNewDialog([&] {
        EXPECT_EQ(rowsOf(dialog.tblStartMap), (Texts{"Digitizer: drives taken can drive can drive no no no no",
                                                     "Scanner: listens taken can listen can listen no no no no"}));
        start.writes.clear();
        scan.writes.clear();
        start.calls.clear();
        scan.calls.clear();
        dialog.optStartTrig[3]->userClicked();
        dialog.optScanTrig[0]->userClicked();
        EXPECT_EQ(rowsOf(dialog.tblStartMap), (Texts{"Digitizer: taken no can drive drives no no no no",
                                                     "Scanner: taken can listen can listen listens no no no no"}));
        EXPECT_EQ(rowsOf(dialog.tblScanMap)[1],
                  "Scanner: drives can drive can drive taken can drive can drive can drive can drive");
        EXPECT_EQ(dialog.tblScanMap.rows()[1].cells[3].meaning, "Line 3: This line carries the start trigger.");
        EXPECT_EQ(dialog.tblStartMap.rows()[0].cells[3].meaning, "Line 3: Digitizer drives this trigger.");
        EXPECT_TRUE(start.calls.empty() && scan.calls.empty()) << "a click asks nobody";
        dialog.btnCancel.userClicked();
    });
    EXPECT_EQ(start.writes, Texts());
    inNewDialog(
        [&] { EXPECT_EQ(rowsOf(dialog.tblStartMap)[0].substr(0, 23), "Digitizer: drives taken") << "as it was"; });
}

TEST_F(LineMap, AWiredLineThatItsDriverDoesNotOfferIsMarked)
{
    start.startLine = 6;
    start.startMasterLines = {0, 1};
    inNewDialog([&] {
        EXPECT_EQ(dialog.tblStartMap.rows()[0].cells[6].text, "drives (!)");
        EXPECT_EQ(dialog.tblStartMap.rows()[1].cells[6].text, "listens");
    });
}

TEST_F(LineMap, DriversThatFailOrHaveNoLinesDoNotHideTheOthers)
{
    FakeDriver& silent = addDriver();
    silent.failing = {"StartLinesAsListener", "DriverName"};
    addDriver().hasLines = false;
    inNewDialog([&] {
        const auto& rows = dialog.tblStartMap.rows();
        ASSERT_EQ(rows.size(), 3U);
        EXPECT_EQ(rows[2].header, "Instrument 3");
        EXPECT_EQ(rows[2].cells[0].text, "listens");
        EXPECT_EQ(rows[2].cells[4].text, "unknown");
        EXPECT_EQ(dialog.tblScanMap.rows()[2].cells[4].text, "can listen");
    });
    EXPECT_EQ(host.takeReports(), (Texts{"KoTimebaseEditor:buildStartTriggerList 1000: StartLinesAsListener failed",
                                         "KoTimebaseEditor:mnuTimebaseTriggerLines_Click 1000: DriverName failed"}));
}

} // namespace
} // namespace ko::test
