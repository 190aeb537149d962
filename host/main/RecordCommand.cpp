#include "host/main/RecordCommand.h"

#include "host/recording/Comparison.h"
#include "host/recording/ReadOnlyPage.h"
#include "host/recording/RecordingRun.h"
#include "host/recording/RecordingTexts.h"
#include "host/recording/UnfinishedFile.h"
#include "host/setup/SetupSaving.h"
#include "host/setup/SetupWriter.h"
#include "host/support/InputError.h"
#include "host/support/StandardStreams.h"

#include <csignal>
#include <cstdio>
#include <iostream>
#include <unistd.h>

namespace ko {

namespace {

volatile std::sig_atomic_t isInterrupted = 0;

/// The first interrupt requests a stop, as does the hang-up of the terminal unless it is ignored; the second one ends
/// the program. Ignores that the reader of the progress has ended.
class Interrupts {
public:
    Interrupts()
    {
        for (const int signal : {SIGINT, SIGTERM})
            std::signal(signal, stop);
        if (hungUp_ != SIG_IGN)
            std::signal(SIGHUP, stop);
    }
    ~Interrupts()
    {
        std::signal(SIGINT, SIG_DFL);
        std::signal(SIGTERM, SIG_DFL);
        std::signal(SIGHUP, hungUp_);
        std::signal(SIGPIPE, broken_);
    }
    Interrupts(const Interrupts&) = delete;
    Interrupts& operator=(const Interrupts&) = delete;

private:
    static void stop(int signal)
    {
        isInterrupted = 1;
        std::signal(signal, SIG_DFL);
    }

    void (*hungUp_)(int) = std::signal(SIGHUP, SIG_IGN);
    void (*broken_)(int) = std::signal(SIGPIPE, SIG_IGN);
};

/// The progress on standard error: one line that is overwritten in a terminal, else a line now and then.
class ProgressLine {
public:
    void show(const RecordingProgress& progress, bool isLast)
    {
        constexpr int seldom = 50; // of the calls
        const std::string text = progressText(progress);
        if (isTerminal_)
            std::fprintf(stderr, "\r%s\x1b[K%s", text.c_str(), isLast ? "\n" : "");
        else if (isLast || calls_ % seldom == 0)
            std::fprintf(stderr, "%s\n", text.c_str());
        ++calls_;
    }

private:
    bool isTerminal_ = isatty(STDERR_FILENO) == 1;
    int calls_ = 0;
};

RecordingProgress follow(RecordingRun& run)
{
    ProgressLine line;
    while (!run.waitFor(std::chrono::milliseconds(200))) {
        if (isInterrupted)
            run.stop();
        line.show(run.progress(), false);
    }
    const RecordingProgress end = run.progress();
    line.show(end, true);
    return end;
}

bool printComparison(const RecordingPlan& plan, const std::string& file)
{
    const Comparison comparison = compare(plan, heldIn(file));
    std::cout << comparison.text;
    return comparison.isKept;
}

Instruments instrumentsOf(const HeadlessPage& page)
{
    return {page.drivers().begin(), page.drivers().end()};
}

RecordingPlan planned(const HeadlessPage& page, PlanFor purpose)
{
    return planRecording(instrumentsOf(page), purpose, [&](int number) { return page.text(number); });
}

bool record(const std::string& file, const Setup& setup, HeadlessPage& page)
{
    const auto date = dateOfStart(page.page(), Locale{}, page.now());
    const ReadOnlyPage readOnly([&](bool on) { page.setReadOnly(on); }, page.page().readOnly);
    RecordingPlan plan = planned(page, PlanFor::Recording);
    plan.startOn(date);
    // An interrupt may come as soon as there is a file.
    const Interrupts interrupts;
    RecordingRun run(instrumentsOf(page), plan,
                     {.file = file,
                      .title = setup.title,
                      .setup = setupText(withPresentValues(setup, page.drivers())),
                      .clock = setup.clock,
                      .isPaced = !setup.clock,
                      .freeBytes = {}});
    const RecordingProgress end = follow(run);
    for (const std::string& failure : end.failures)
        complain(failure);
    const bool isKept = printComparison(plan, file);
    if (end.hasFileFailed)
        throw InputError(file + ": does not hold the whole recording");
    return isKept && end.state == RunState::Done;
}

bool compareWith(const std::string& file, const HeadlessPage& page)
{
    if (clearUnfinished(file))
        complain("note: " + file + ": the program that recorded it has not closed it; it is readable now");
    return printComparison(planned(page, PlanFor::Comparison), file);
}

} // namespace

bool runRecording(const RecordCommand& command, const Setup& setup, HeadlessPage& page)
{
    bool isKept = true;
    if (!command.record.empty())
        isKept = record(command.record, setup, page);
    if (!command.compare.empty())
        isKept = compareWith(command.compare, page) && isKept;
    return isKept;
}

} // namespace ko
