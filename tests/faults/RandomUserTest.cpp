#include "faults/AnyUser.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <iostream>
#include <set>

namespace ko::test {

namespace {

long stepsTaken = 0;

/// Message boxes allowed in addition to the one that an action may show.
bool isExtra(const std::string& message)
{
    return message.find("Unrecognized Parameter Type: ") != std::string::npos ||
           message.find("The currently selected trigger channel is disabled") != std::string::npos ||
           message.find("you must select a trigger device") != std::string::npos;
}

/// Reports that are not due to a driver: an erased time is no date, a number of samples or scans may exceed 32 bits, a
/// stop time may be beyond the calendar.
bool isOwn(const std::string& report)
{
    constexpr const char* own[] = {
        "txtStartTime_Change 13: Type mismatch",
        "txtStopTime_Change 13: Type mismatch",
        "updateDiskSpace 6: Overflow",
        "updateActualDuration 5: The date is outside of the years 100 to 9999",
        "optStopTime_Click 5: The date is outside of the years 100 to 9999",
    };
    return std::any_of(std::begin(own), std::end(own),
                       [&](const char* text) { return report == std::string("KoTimebaseEditor:") + text; });
}

/// One run: instruments and steps, each determined by its seed. The result is empty, or the first rule that was broken.
class Run {
public:
    Run(std::uint32_t instruments, bool mayFail) : mayFail_(mayFail)
    {
        Draw draw(instruments);
        addAnyInstruments(bench_, draw, mayFail);
        bench_.handOver();
        bench_.show();
        check();
        totals_.insert(totalBytes(bench_));
    }

    std::string after(const std::vector<std::uint32_t>& steps)
    {
        for (std::size_t i = 0; i < steps.size() && broken_.empty(); ++i)
            step(steps[i]);
        return broken_;
    }

private:
    void step(std::uint32_t seed)
    {
        ++stepsTaken;
        where_ = "step " + std::to_string(seed);
        forget();
        const double bytes = totalBytes(bench_);
        const Texts held = heldBy(bench_);
        const auto* const box = dynamic_cast<const TextBox*>(bench_.page().activeControl());
        const bool marked = box && box->marked();
        const std::string text = box ? box->text() : "";
        user_.act(seed);
        check();
        if (bench_.host.changes == 0 && isUsers() && heldBy(bench_) != held)
            fail("a change is not notified: " + testing::PrintToString(heldBy(bench_)));
        if (bytes <= fileSizeLimit && totalBytes(bench_) > fileSizeLimit && !mayFail_ && isUsers() && !isOfBefore())
            fail("the total passes the limit");
        totals_.insert(totalBytes(bench_));
        if (marked && refused() && bench_.page().activeControl() != box)
            fail(box->name() + " with the refused text '" + text + "' loses the focus");
    }
    /// Returns whether all steps were actions of the user.
    [[nodiscard]] bool isUsers() const
    {
        const auto isSetup = [](const std::string& line) { return line.rfind("setup", 0) == 0; };
        return !user_.done.empty() && std::none_of(user_.done.begin(), user_.done.end(), isSetup);
    }
    /// Returns whether Escape has brought back a total that was in force before.
    [[nodiscard]] bool isOfBefore() const
    {
        return user_.done.back() == "key Escape" && totals_.count(totalBytes(bench_)) > 0;
    }
    [[nodiscard]] bool refused() const
    {
        return std::any_of(bench_.host.messages.begin(), bench_.host.messages.end(),
                           [](const std::string& message) { return message.rfind("Invalid input", 0) == 0; });
    }
    void forget()
    {
        bench_.host.changes = 0;
        bench_.host.messages.clear();
        bench_.host.reports.clear();
        bench_.host.hints.clear();
        bench_.host.printing.clear();
        for (const auto& driver : bench_.fakes)
            driver->writes.clear();
        history_.insert(history_.end(), user_.done.begin(), user_.done.end());
        user_.done.clear();
    }
    void check()
    {
        const Texts& messages = bench_.host.messages;
        if (!bench_.escaped.empty())
            fail("a failure gets out");
        for (const std::string& rule : brokenAlways(bench_.page()))
            fail(rule);
        // Each press of a button in an open dialog is an action of its own.
        const auto presses = std::count(user_.done.begin(), user_.done.end(), "click cmdSetAll");
        if (std::count_if(messages.begin(), messages.end(), [](const auto& m) { return !isExtra(m); }) > 1 + presses)
            fail(testing::PrintToString(messages));
        if (mayFail_)
            return;
        for (const std::string& rule : shownWrongly(bench_))
            fail(rule);
        const std::string plan = bench_.page().lblPlan.caption();
        raise(bench_.page().minutePassed);
        if (plan != bench_.page().lblPlan.caption())
            fail("the plan is not up to date: " + plan + " / " + bench_.page().lblPlan.caption());
        for (const std::string& report : bench_.host.reports)
            if (!isOwn(report))
                fail("reported: " + report);
    }
    void fail(const std::string& what)
    {
        if (broken_.empty())
            for (const Texts* lines : {&history_, &user_.done})
                for (const std::string& line : *lines)
                    broken_ += line + "\n";
        broken_ += where_;
        broken_ += ": " + what + "\n";
    }

    Bench bench_;
    bool mayFail_;
    AnyUser user_{bench_, mayFail_};
    Texts history_;
    std::set<double> totals_; ///< bytes of the recordings after each step
    std::string where_ = "opening";
    std::string broken_;
};

void checkUsers(bool mayFail)
{
    stepsTaken = 0;
    const auto seed = rc::gen::noShrink(rc::gen::resize(100, rc::gen::arbitrary<std::uint32_t>()));
    EXPECT_TRUE(rc::check([&] {
        const std::uint32_t instruments = *seed;
        const std::vector<std::uint32_t> steps = *rc::gen::container<std::vector<std::uint32_t>>(seed);
        const std::string broken = Run(instruments, mayFail).after(steps);
        if (!broken.empty())
            RC_FAIL(broken);
    }));
    std::cout << stepsTaken << " steps\n";
}

TEST(RandomUser, FindsThePageShowingWhatTheDriversHoldWhateverIsDone)
{
    checkUsers(false);
}

TEST(RandomUser, FindsThePageWholeWhenDriversFail)
{
    checkUsers(true);
}

} // namespace

} // namespace ko::test
