#include "schedule/Recording.h"

#include "fakes/SectionTest.h"

namespace ko::test {
namespace {

class RecordingTest : public SectionTest {
protected:
    CapturedSettings captured{page};
    Recording recording{page, support, *this, captured};

    RecordingTest() { page.cmbInterval.setItems({{"s", 1}, {"n", 60}, {"h", 3600}, {"d", 86400}}); }
};

TEST_F(RecordingTest, TheDurationIsWhatIsEnteredOrLiesBetweenTheTimes)
{
    // The clock is fixed at 21 November 2026.
    const struct {
        const char *start, *stop;
        double seconds;
    } cases[] = {
        {"11/21/2026 9:00:00 AM", "11/21/2026 9:00:01 AM", 1},
        {"9:00:00 AM", "9:00:00 AM", 0},
        {"9:00:00 AM", "8:00:00 AM", -3600},
        {"9:00:00 AM", "11/22/2026 9:00:00 AM", 86400},
        {"11/20/2026 9:00:00 AM", "9:00:00 AM", 86400},
        {"11/22/2026 9:00:00 AM", "9:00:00 AM", -86400},
        {"12/31/1899", "6:00:00 PM", -21600}, // exactly 1.0 is neither dated nor a time of day
        {"6:00:00 PM", "12/31/1899", 21600},
        {"12/31/1899 12:00:01 AM", "12:00:00 AM", 4004294399.0},
        {"2/28/2028 12:00:00 PM", "3/1/2028 12:00:00 PM", 2 * 86400},
    };
    page.optStopTime.showSelected();
    for (const auto& it : cases) {
        page.txtStartTime.setText(it.start);
        page.txtStopTime.setText(it.stop);
        EXPECT_EQ(recording.getDurationSeconds(), it.seconds) << it.start << " to " << it.stop;
    }
    page.optAfter.showSelected();
    page.cmbInterval.select(2);
    page.txtDuration.setText(" 1.5 ");
    EXPECT_EQ(recording.getDurationSeconds(), 5400);
    page.txtDuration.setText("soon");
    EXPECT_THROW((void)recording.getDurationSeconds(), Failure);
}

TEST_F(RecordingTest, TheStopTimeFollowsFromStartAndDuration)
{
    const struct {
        double seconds;
        const char *start, *stop;
    } cases[] = {
        {0, "9:00:00 AM", "9:00:00 AM"},
        {90, "9:00:00 AM", "9:01:30 AM"},
        {3600, "11:00:00 PM", "11/22/2026"},
        {7200, "11:00:00 PM", "11/22/2026 1:00:00 AM"},
        {2 * 86400, "2/28/2028 11:00:00 PM", "3/1/2028 11:00:00 PM"},
    };
    for (const auto& it : cases)
        EXPECT_EQ(recording.computeStopTime(it.seconds, toDateTime(it.start, {})), it.stop);
    EXPECT_THROW((void)recording.computeStopTime(86400, toDateTime("12/31/9999", {})), Failure);
}

} // namespace
} // namespace ko::test
