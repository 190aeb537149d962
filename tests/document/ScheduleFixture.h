#pragma once

#include "fakes/DocumentTest.h"
#include "platform/NumberText.h"

namespace ko::test {

/// Two dynamic drivers whose bytes grow with the duration and exceed the limit above 1000 seconds. The clock is fixed
/// at 21 November 2026, 9:30.
class ScheduleTest : public DocumentTest {
protected:
    ScheduleTest() { host.time = toDateTime("11/21/2026 9:30:00 AM", {}); }

    static constexpr const char* tooLarge =
        "Error: Total required disk space for dynamic measurements can never exceed the maximum file size of 2 Gb "
        "regardless of available disk space. Reduce the duration or sample rate. (48)";

    void openTwo(std::int32_t start = 0, std::int32_t stop = 0, const char* startTime = "8:00:00 AM",
                 float seconds = 10)
    {
        for (int i = 0; i < 2; ++i) {
            FakeDriver& driver = addDriver();
            driver.startMode = start;
            driver.stopMode = stop;
            driver.startTime = toDateTime(startTime, {});
            driver.duration = seconds;
            driver.bytes = [](const FakeDriver& it) { return it.duration * 1e-3 / it.samplePeriod * 1073741.2 + 416; };
        }
        open();
        for (const auto& driver : fakes)
            driver->writes.clear();
    }
    /// Opens the page in a new document.
    void openAnew(std::int32_t start = 0, std::int32_t stop = 0, const char* startTime = "8:00:00 AM",
                  float seconds = 10)
    {
        document = makeDocument(shared, host);
        fakes.clear();
        openTwo(start, stop, startTime, seconds);
    }
    /// Builds another document on the same drivers while they fail at these operations, and expects the reports.
    void openFailing(const std::set<std::string>& operations)
    {
        document = makeDocument(shared, host);
        failIn(operations);
        open();
        EXPECT_FALSE(host.takeReports().empty());
    }
    void failIn(const std::set<std::string>& operations)
    {
        for (const auto& driver : fakes)
            driver->failing = operations;
    }

    OptionButton& start(std::int32_t mode)
    {
        OptionButton* const options[] = {&page().optImmediate, &page().optStartTime, &page().optOnTrigger};
        return *options[mode];
    }
    OptionButton& stop(std::int32_t mode) { return mode == 1 ? page().optStopTime : page().optAfter; }

    /// Returns "start stop start-time duration" of each driver.
    Texts held() const
    {
        Texts all;
        for (const auto& it : fakes)
            all.push_back(std::to_string(it->startMode) + " " + std::to_string(it->stopMode) + " " +
                          generalDate(it->startTime, {}) + " " + numberText(widen(it->duration), {}));
        return all;
    }
    std::string plan() { return page().lblPlan.caption(); }
    /// Returns options, times and duration as the page shows them.
    std::string shown()
    {
        std::string all;
        for (const OptionButton* option : {&start(0), &start(1), &start(2), &stop(0), &stop(1)})
            all += option->value() ? '1' : '0';
        return all + "|" + page().txtStartTime.text() + "|" + page().txtStopTime.text() + "|" +
               page().txtDuration.text() + " " + page().cmbInterval.text() + "|" + page().lblDurationValue.caption() +
               "|" + (page().lblStopTimeValue.visible() ? page().lblStopTimeValue.caption() : "");
    }
    /// Expects these settings on the page and in the settings kept for the next list.
    void expectEverywhere(const std::string& settings)
    {
        EXPECT_EQ(held(), (Texts{settings, settings}));
        const std::int32_t startShown = page().optImmediate.value() ? 0 : page().optStartTime.value() ? 1 : 2;
        EXPECT_EQ(settings.substr(0, 3), std::to_string(startShown) + (page().optStopTime.value() ? " 1" : " 0"));
        ASSERT_TRUE(page().triggerVars);
        EXPECT_EQ(*page().triggerVars,
                  (TriggerVars{fakes[0]->startMode, fakes[0]->startTime, fakes[0]->stopMode, fakes[0]->duration}));
    }
    /// Sets what the user picks in the dialog when it opens next.
    void pick(const std::function<void(SetDateTime&)>& actions)
    {
        host.inModalForm = [actions](Form& form) { actions(dynamic_cast<SetDateTime&>(form)); };
    }
    void pickTime(CommandButton& button, DateParts time, bool dated = true)
    {
        pick([=](SetDateTime& dialog) {
            (dated ? dialog.optSpecifiedDay : dialog.optCurrentDay).userClicked();
            if (dated)
                dialog.calDate.userChose(time.year, time.month, time.day);
            dialog.dtpTimeSelector.userChose(time.hour, time.minute, time.second);
            dialog.btnOK.userClicked();
        });
        EXPECT_EQ(button.userClicked(), Outcome::Done);
    }
};

} // namespace ko::test
