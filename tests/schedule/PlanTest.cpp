#include "schedule/Plan.h"

#include "fakes/SectionTest.h"
#include "support/Phrases.h"

#include <fstream>
#include <sstream>

namespace ko::test {
namespace {

std::string stringFile(const std::string& language)
{
    std::ifstream file(KO_STRINGS_FOLDER "/" + language + ".txt", std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    EXPECT_FALSE(content.str().empty()) << language;
    return content.str();
}

const std::string narrowBlank = "\xE2\x80\xAF"; // the French thousands separator

/// A page after the estimate of 90 seconds of both kinds of measurement.
class PlanTest : public SectionTest {
protected:
    PlanTest()
    {
        addDriver();
        page.notApplicableText = "N/A";
        page.cmbInterval.setItems({{"seconds", 1}, {"minutes", 60}, {"hours", 3600}, {"days", 86400}});
        page.cmbInterval.select(0);
        page.optImmediate.showSelected();
        page.optAfter.showSelected();
        figures.plannedSeconds = figures.actualSeconds = 90.0;
        figures.samples = 2304000;
        figures.dynamicBytes = 17.6 * 1024 * 1024;
        figures.scans = 181;
        figures.staticBytes = 12.8 * 1024;
        figures.stopTime = toDateTime("9:31:31 AM", {});
        page.txtStartTime.setText("9:30:00 AM");
        page.txtStopTime.setText("9:31:30 AM");
    }
    Figures& figures = page.figures;

    void addParameter(const char* name, const char* value, int format, CellStyle::Control control = {})
    {
        const std::int32_t row = page.grdParam.rowCount() + 1;
        page.grdParam.setRowCount(row);
        Grid::Cell cell{value, {}};
        cell.style.format = format;
        cell.style.control = control;
        page.grdParam.setCell(row, Grid::nameColumn, {name, {}});
        page.grdParam.setCell(row, Grid::valueColumn, cell);
    }
    void startAt(const char* channel)
    {
        page.optOnTrigger.showSelected();
        page.txtChannel.setText(channel);
    }
    std::string plan()
    {
        Plan(page, support).show();
        return page.lblPlan.caption();
    }
    std::string planIn(const std::string& language, const Locale& locale)
    {
        host.platform.locale = locale;
        Support translated(host.platform, stringFile(language));
        Plan(page, translated).show();
        return page.lblPlan.caption();
    }
};

TEST_F(PlanTest, EveryWayToStartAndStopHasItsSentence)
{
    const std::string rest = ", records 90 s, 2,304,000 samples, 17.6 MB dynamic and 12.8 KB static, ends about "
                             "1 min 30 s later.";
    EXPECT_EQ(plan(), "Starts immediately" + rest);
    startAt("");
    EXPECT_EQ(plan(), "Starts on trigger, with no trigger channel selected yet" + rest);
    startAt("Crank");
    EXPECT_EQ(plan(), "Starts on trigger at Crank" + rest);
    addParameter("Level", "0.5", 3);
    EXPECT_EQ(plan(), "Starts on trigger at Crank (Level 0.5)" + rest);
    page.optStartTime.showSelected();
    EXPECT_EQ(plan(), "Starts at 9:30:00 AM (today)" + rest);
    page.optStopTime.showSelected();
    EXPECT_EQ(plan(),
              "Starts at 9:30:00 AM (today), records until 9:31:30 AM, that is 1 min 30 s, 2,304,000 samples, 17.6 MB "
              "dynamic and 12.8 KB static, ends at about 9:31:31 AM.");
    page.numDrivers = 0;
    EXPECT_EQ(plan(), "Records nothing: this set-up has no instruments.");
}

TEST_F(PlanTest, TimesSayTheirDayAndHowFarTheyAreAndAStartInThePastIsMarked)
{
    page.optStartTime.showSelected();
    const struct {
        const char *now = "", *start = "", *plan = "", *day = "", *words = "";
        bool stopsAtTime = false;
    } cases[] = {
        {"2:50:00 AM", "9:30:00 AM", "9:30:00 AM (today)", "today, in 6 h 40 min",
         "Now; Start: today, 9:30:00 AM, in 6 h 40 min; records 1 min 30 s; Stop: today, 9:31:30 AM, in 6 h 41 min"},
        {"9:30:00 AM", "9:30:00 AM", "9:30:00 AM (today)", "today, in less than 1 min",
         "Now; Start: today, 9:30:00 AM, in less than 1 min; records 1 min 30 s; Stop: today, 9:31:30 AM, in 1 min"},
        {"9:30:01 AM", "9:30:00 AM", "9:30:00 AM (tomorrow)", "tomorrow, in 23 h 59 min",
         "Now; Start: tomorrow, 9:30:00 AM, in 23 h 59 min; records 1 min 30 s; Stop: tomorrow, 9:31:30 AM, in 1 day"},
        {"11:59:00 PM", "12:00:00 AM", "12:00:00 AM (tomorrow)", "tomorrow, in 1 min",
         "Now; Start: tomorrow, 12:00:00 AM, in 1 min; records 1 min 30 s; Stop: tomorrow, 12:01:30 AM, in 2 min"},
        {"9:00:00 AM", "11/24/2026", "11/24/2026", "in 2 days 15 h",
         "Now; Start: 11/24/2026, in 2 days 15 h; records 1 min 30 s; Stop: 11/24/2026 12:01:30 AM, in 2 days 15 h"},
        {"9:31:00 AM", "11/21/2026 9:30:00 AM", "11/21/2026 9:30:00 AM (in the past)", "today, 1 min ago",
         "Start: today, 9:30:00 AM, 1 min ago; records 1 min 30 s; Now; Stop: today, 9:31:30 AM, in less than 1 min"},
        {"9:30:01 AM", "11/19/2026", "11/19/2026 (in the past)", "2 days 10 h ago",
         "Start: 11/19/2026, 2 days 10 h ago; records 1 min 30 s; Stop: 11/19/2026 12:01:30 AM, 2 days 9 h ago; Now"},
        {"9:30:01 AM", "9:30:00 AM", "9:30:00 AM (in the past)", "today, less than 1 min ago",
         "Start: today, 9:30:00 AM, less than 1 min ago; records 1 min 30 s; Now; Stop: today, 9:31:30 AM, in 1 min",
         true},
    };
    for (const auto& it : cases) {
        host.time = {46347.0 + toDateTime(it.now, {}).days};
        page.txtStartTime.setText(it.start);
        page.txtStopTime.setText("11/21/2026 9:31:30 AM");
        (it.stopsAtTime ? page.optStopTime : page.optAfter).showSelected();
        EXPECT_TRUE(plan().starts_with(std::string("Starts at ") + it.plan + ", records")) << plan();
        EXPECT_EQ(page.lblStartDay.caption(), it.day);
        EXPECT_EQ(page.lblStartPast.visible(), plan().find("past") != std::string::npos);
        EXPECT_EQ(page.lblStopDay.caption().empty(), !it.stopsAtTime);
        EXPECT_EQ(page.tmlPlan.caption(), it.words);
    }
}

TEST_F(PlanTest, TheTimelineShowsWhatIsKnownOfEveryStart)
{
    const auto words = [this] { return plan(), page.tmlPlan.caption(); };
    EXPECT_EQ(words(), "Start: immediately; records 1 min 30 s; Stop: in 1 min 30 s");
    startAt("Crank");
    EXPECT_EQ(words(), "Now; waits for the trigger; Trigger: Crank; records 1 min 30 s; Stop");
    figures.actualSeconds.reset();
    EXPECT_EQ(words(), "Now; waits for the trigger; Trigger: Crank; records for an unknown time; Stop: unknown");
    page.optStartTime.showSelected();
    EXPECT_EQ(words(), "Now; Start: today, 9:30:00 AM, in 9 h 30 min; records for an unknown time; Stop: unknown");
    page.txtStartTime.setText("12/31/9999");
    figures.actualSeconds = 1e300;
    EXPECT_TRUE(words().ends_with("; Stop: unknown"));
    page.optStartTime.deselect();
    EXPECT_EQ(words(), "");
    EXPECT_FALSE(page.tmlPlan.visible());
}

TEST_F(PlanTest, NumbersAndChoicesSetATriggerOffAndNamesMayHoldAnything)
{
    startAt("100 %1 & <b>");
    addParameter("Pretrigger", "1024", 0);
    addParameter("Level (V)", "%2", 3);
    addParameter("Noise Reject", "True", 0, CellStyle::Control::check);
    addParameter("Slope", "Rising", 0, CellStyle::Control::list);
    addParameter("Hold-off", "0.05", 3);
    addParameter("Hysteresis", "1", 3);
    EXPECT_EQ(plan().substr(0, 73), "Starts on trigger at 100 %1 & <b> (Level (V) %2, Slope Rising, Hold-off 0");
    EXPECT_EQ(plan().find("Hysteresis"), std::string::npos);
}

TEST_F(PlanTest, FiguresThatAreNotKnownAreLeftOut)
{
    const auto told = [this] {
        const std::string text = plan();
        const std::size_t from = text.find("90 s") + 4;
        return text.substr(from, text.find(", ends") - from);
    };
    figures.samples.reset();
    EXPECT_EQ(told(), ", 17.6 MB dynamic and 12.8 KB static");
    page.frmStatic.setVisible(false);
    EXPECT_EQ(told(), ", 17.6 MB dynamic");
    figures.samples = 1;
    EXPECT_EQ(told(), ", 1 sample, 17.6 MB dynamic");
    page.frmDynamic.setVisible(false);
    EXPECT_EQ(told(), "");
    page.frmStatic.setVisible(true);
    EXPECT_EQ(told(), ", 181 scans, 12.8 KB static");
    figures.scans.reset();
    EXPECT_EQ(told(), ", 12.8 KB static");
    figures.staticBytes.reset();
    EXPECT_EQ(plan(), "Starts immediately, records 90 s, ends about 1 min 30 s later.");
}

TEST_F(PlanTest, AnUnknownDurationIsMentioned)
{
    const auto expectUnknown = [this] { EXPECT_NE(plan().find("unknown."), std::string::npos) << plan(); };
    figures.actualSeconds.reset();
    expectUnknown();
    figures.actualSeconds = 90.0;
    figures.plannedSeconds = -1.0;
    startAt("Crank");
    expectUnknown();
    figures.plannedSeconds.reset();
    startAt("");
    expectUnknown();
    page.optStartTime.showSelected();
    EXPECT_EQ(plan(), "Starts at 9:30:00 AM (today); recording time unknown.");
    figures.plannedSeconds = 90.0;
    page.optStopTime.showSelected();
    figures.stopTime.reset();
    EXPECT_EQ(plan(), "Starts at 9:30:00 AM (today), records until 9:31:30 AM; recording time unknown.");
}

TEST_F(PlanTest, DurationsAreShownInTheUnitEnteredAndInTheTwoLargest)
{
    const struct {
        double seconds;
        int unit;
        const char *entered, *later;
    } cases[] = {
        {0, 0, "0 s", "0 s"},
        {0.001, 0, "0.001 s", "0.001 s"},
        {59.994, 0, "59.99 s", "59.99 s"},
        {59.996, 0, "60 s", "1 min"},
        {100, 1, "1.67 min", "1 min 40 s"},
        {3599.6, 2, "1 h", "1 h"},
        {5430, 2, "1.51 h", "1 h 31 min"},
        {86399, 0, "86399 s", "1 day"},
        {90000, 3, "1 day 1 h", "1 day 1 h"},
        {216000, 3, "2 days 12 h", "2 days 12 h"},
        {8.64e9, 3, "100,000 days", "100,000 days"},
    };
    for (const auto& it : cases) {
        figures.plannedSeconds = figures.actualSeconds = it.seconds;
        page.cmbInterval.select(it.unit);
        EXPECT_NE(plan().find(std::string("records ") + it.entered + ","), std::string::npos) << plan();
        EXPECT_NE(plan().find(std::string("about ") + it.later + " later"), std::string::npos) << plan();
    }
    figures.actualSeconds = 1e30;
    EXPECT_NE(plan().find("unknown"), std::string::npos);
}

TEST_F(PlanTest, EachLanguageHasItsOwnSentencesPluralsAndSeparators)
{
    startAt("Crank");
    addParameter("Level", "0,5", 3);
    Locale locale;
    locale.decimalSeparator = ",";
    locale.digitGroupSeparator = ".";
    EXPECT_EQ(planIn("de", locale),
              "Startet bei Trigger an Crank (Level 0,5), zeichnet 90 s auf, 2.304.000 Abtastwerte, 17,6 MB dynamisch "
              "und 12,8 KB statisch, endet etwa 1 min 30 s später.");
    locale.digitGroupSeparator = narrowBlank;
    page.frmStatic.setVisible(false);
    EXPECT_EQ(planIn("fr", locale), "Démarre sur déclenchement par Crank (Level 0,5), enregistre 90 s, 2" +
                                        narrowBlank + "304" + narrowBlank +
                                        "000 échantillons, 17,6 Mo en dynamique, se termine environ 1 min 30 s plus "
                                        "tard.");
    EXPECT_EQ(planIn("ja", Locale()),
              "Crank (Level 0,5) のトリガで開始し、90 秒 記録します。2,304,000 サンプル、動的 17.6 MB。約 1 分 30 秒 "
              "後に終了します。");
}

TEST_F(PlanTest, ASentenceEndsInOneFullStopWhateverItEndsWith)
{
    page.optStartTime.showSelected();
    page.optStopTime.showSelected();
    Locale locale;
    locale.amDesignator = "a.m.";
    EXPECT_TRUE(planIn("en", locale).ends_with("ends at about 9:31:31 a.m.")) << page.lblPlan.caption();
    for (const auto& [sentence, shown] :
         {std::pair{"Ends.", "Ends."}, {"Ends..", "Ends."}, {"Ends", "Ends"}, {"..", "."}})
        EXPECT_EQ(withOneFullStop(sentence), shown);
}

TEST_F(PlanTest, TheLanguageSaysWhichCountsAreSingular)
{
    const struct {
        const char *language, *none, *one, *many;
    } cases[] = {
        {"en", "0 samples", "1 sample", "2 samples"},
        {"de", "0 Abtastwerte", "1 Abtastwert", "2 Abtastwerte"},
        {"fr", "0 échantillon", "1 échantillon", "2 échantillons"},
        {"ja", "0 サンプル", "1 サンプル", "2 サンプル"},
    };
    for (const auto& it : cases) {
        const Support translated(host.platform, stringFile(it.language));
        EXPECT_EQ(counted(translated, 0, 3321), it.none);
        EXPECT_EQ(counted(translated, 1, 3321), it.one);
        EXPECT_EQ(counted(translated, 2, 3321), it.many);
    }
}

} // namespace
} // namespace ko::test
