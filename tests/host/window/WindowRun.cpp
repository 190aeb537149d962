#include "WindowRun.h"

#include "RunWatch.h"
#include "WindowChecks.h"
#include "Workplace.h"
#include "faults/Bench.h"
#include "host/setup/SetupFile.h"
#include "host/setup/SetupWriter.h"
#include "host/support/InputError.h"

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <sstream>

namespace ko::test {

namespace {

using Texts = std::vector<std::string>;

long stepsUndone = 0;

Texts* leftOver = nullptr;

/// What leaves a handler is logged as critical. The toolkit warns of what it cannot do here.
void collect(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (leftOver && type == QtCriticalMsg)
        leftOver->push_back(message.toStdString());
}

/// Collects what leaves the handlers of the window.
class Collecting {
public:
    explicit Collecting(Texts& texts) : before_(qInstallMessageHandler(collect)) { leftOver = &texts; }
    ~Collecting()
    {
        leftOver = nullptr;
        qInstallMessageHandler(before_);
    }
    Collecting(const Collecting&) = delete;
    Collecting& operator=(const Collecting&) = delete;

private:
    QtMessageHandler before_;
};

/// Returns the first line that differs.
std::string firstDifference(const std::string& found, const std::string& expected)
{
    std::istringstream one(found), other(expected);
    std::string is, was;
    do {
        std::getline(one, is);
        std::getline(other, was);
    } while (is == was && one && other);
    return "\"" + is + "\" instead of \"" + was + "\"";
}

class Run {
public:
    std::string after(const Seeds& steps, const std::string& scenario)
    {
        if (!scenario.empty())
            place_.window().capture().startFromHere(scenario);
        begin();
        for (std::size_t i = 0; i < steps.size() && broken_.empty(); ++i) {
            watched_.step();
            place_.user().note("# " + std::to_string(steps[i]));
            place_.step(steps[i]);
            check();
        }
        if (broken_.empty())
            end();
        return broken_.empty() ? std::string() : listed();
    }

private:
    [[nodiscard]] FrameWindow& window() const { return place_.window(); }
    [[nodiscard]] std::string held() const { return heldIn(window().session().drivers()); }
    [[nodiscard]] const History& steps() const { return window().history().steps(); }

    void require(bool holds, const std::string& rule)
    {
        if (!holds)
            broken_.push_back("not so: " + rule);
    }
    /// The start of another set-up is where its history begins; unknown if it has been edited in the same step.
    void begin()
    {
        const std::weak_ptr<const void> now = window().session().presence();
        if (!now.owner_before(setup_) && !setup_.owner_before(now))
            return;
        setup_ = now;
        drivers_ = window().session().drivers();
        start_ = clean_ = steps().position() == 0 ? held() : std::string();
        content_ = content();
    }
    /// Returns the content of the set-up's file; empty without one, or if another program has changed it.
    [[nodiscard]] std::string content() const
    {
        const SetupSession& session = window().session();
        return session.isOpen() && !session.hasChangedOnDisk() ? readFile(session.file()) : std::string();
    }
    void checkSaved()
    {
        const bool isChanged = window().session().isChanged();
        if (const std::string now = content(); !now.empty() && !isChanged && now != std::exchange(content_, now)) {
            clean_ = held();
            same("what a saved file holds", heldIn(makeDrivers(parseSetup(now, "saved"))), clean_);
        }
        if (!isChanged && !clean_.empty())
            same("a set-up without the changed mark", held(), clean_);
    }
    void check()
    {
        begin();
        for (const Texts& found : {failures_, brokenAlways(place_.page()), shownOtherwise(window())})
            broken_.insert(broken_.end(), found.begin(), found.end());
        checkSaved();
        followHost();
    }
    /// What the host changes at the start is part of it; a capture that begins here makes another start.
    void followHost()
    {
        const bool isStart = steps().steps().empty() || (steps().position() == 0 && !steps().cleanPosition());
        if (isStart && !steps().hasEntryInProgress())
            drivers_ = window().session().drivers(), start_ = held();
    }
    void end()
    {
        // A file that has changed may be offered late, and must not replace what is compared.
        place_.user().answer = [](QDialog& dialog) {
            dialog.reject();
            return true;
        };
        place_.have([this] { unlock(); });
        const std::string edited = held();
        const std::size_t position = steps().position();
        stepsUndone += static_cast<long>(position);
        travel(&FrameHistory::undo, [this] { return steps().position() == 0; });
        if (!start_.empty() && steps().steps().size() < History::maximumSteps) {
            same("what undoing leads to", held(), start_);
            require(window().session().drivers() == drivers_, "undoing leads to the same instruments");
        }
        travel(&FrameHistory::redo, [&] { return steps().position() == position; });
        same("what redoing leads to", held(), edited);
        check();
        const std::string saved = setupText(window().session().presentSetup());
        same("what is saved", heldIn(makeDrivers(parseSetup(saved, "saved"))), edited);
        compareWithAnother(saved);
    }
    /// After it has been built again the page shows what it shows in a window that has opened what is saved. A whole
    /// group as trigger channel lives as long as the page: set-ups have no place for it.
    void compareWithAnother(const std::string& saved)
    {
        place_.write(QStringLiteral("saved.json"), QByteArray::fromStdString(saved));
        place_.have([this] {
            window().history().hostCall([this] {
                auto& page = window().document().page();
                if (page.TriggerChannel < 0)
                    page.TriggerSlot = -1;
                window().document().UserDocument_Show();
            });
        });
        FrameWindow other("");
        place_.have([&] { other.open(fromQt(place_.path(QStringLiteral("saved.json")))); });
        same("the page", valuesOn(window()), valuesOn(other));
    }
    /// Nothing fails and nothing is locked or being typed.
    void unlock()
    {
        window().recording().stop();
        while (window().recording().isActive())
            QTest::qWait(1);
        heal();
        window().history().hostCall([this] { window().document().mode().setReadOnly(false); });
        if (steps().hasEntryInProgress())
            window().history().undo();
        begin();
        followHost();
    }
    void heal()
    {
        for (const auto& driver : window().session().drivers())
            driver->calls().healAll();
    }
    /// A removed instrument that comes back fails as before.
    template <class Done> void travel(void (FrameHistory::*move)(), const Done& isDone)
    {
        while (!isDone() && broken_.empty()) {
            const std::size_t before = steps().position();
            heal();
            place_.have([&] { (window().history().*move)(); });
            require(steps().position() != before, "a step is undone or redone");
        }
    }
    void same(const std::string& what, const std::string& found, const std::string& expected)
    {
        if (found != expected)
            broken_.push_back(what + " differs: " + firstDifference(found, expected));
    }
    [[nodiscard]] std::string listed()
    {
        std::string all;
        for (const Texts* lines : {&place_.user().done, &broken_})
            for (const std::string& line : *lines)
                all += line + "\n";
        return all;
    }

    Texts failures_;
    Collecting collecting_{failures_};
    Workplace place_;
    const WatchedRun watched_{place_.user().done};
    std::weak_ptr<const void> setup_;
    HostInstruments drivers_; ///< at its start
    std::string start_;       ///< what they held then
    std::string clean_;       ///< what they hold without the changed mark
    std::string content_;     ///< of the set-up's file
    Texts broken_;
};

} // namespace

std::string runWindow(const Seeds& steps, const std::string& scenario)
{
    return Run().after(steps, scenario);
}

Seeds fewestSteps(Seeds steps)
{
    for (std::size_t count = std::max<std::size_t>(steps.size() / 2, 1); count > 0; count /= 2)
        for (std::size_t at = 0; at + count <= steps.size();) {
            Seeds fewer = steps;
            const auto from = fewer.begin() + static_cast<std::ptrdiff_t>(at);
            fewer.erase(from, from + static_cast<std::ptrdiff_t>(count));
            if (runWindow(fewer).empty())
                at += count;
            else
                steps = fewer;
        }
    return steps;
}

RunCounts runCounts()
{
    return {WatchedRun::steps(), stepsUndone};
}

} // namespace ko::test
