#include "host/chart/ChartPanel.h"
#include "host/recording/Moments.h"
#include "host/recording/RecordedSignals.h"
#include "host/recording_view/RecordingView.h"
#include "host/support/FileWriter.h"
#include "host/support/HostTexts.h"
#include "host/window/FrameFiles.h"
#include "host/window/FrameRecording.h"
#include "widgets/support/Convert.h"
#include "widgets/support/ShownText.h"

#include <QDialog>

namespace ko {

namespace recordText = textNumber::record;

void FrameRecording::follow()
{
    if (monitor_)
        return followMonitor();
    if (!task_)
        return;
    if (task_->isOver())
        return end();
    const auto run = task_->run();
    if (!run)
        return view_->showRun({parts_.text(recordText::opening), {}});
    const RecordingProgress progress = run->progress();
    if (!std::exchange(isCharted_, true))
        chart_->chart().show(run->chart(), true);
    chart_->setMarking(progress.takesMarkers);
    noteFailures(progress);
    view_->showRun(
        runText(progress, task_->plan(), momentNow(files_.session().clock()), parts_.texts(), parts_.platform.locale));
}

void FrameRecording::followMonitor()
{
    std::vector<RecordingFailure> found;
    for (const std::string& failure : monitor_->failures())
        found.push_back({failure, failure});
    noteFailures(std::move(found));
    if (!monitor_->isOver())
        return;
    timer_.stop();
    monitor_.reset();
    chart_->chart().setEnded();
    if (!unlock())
        return;
    enableEntries();
    view_->showNote(parts_.text(recordText::none));
    if (waiting_)
        waiting_->accept();
}

void FrameRecording::noteFailures(const RecordingProgress& progress)
{
    std::vector<RecordingFailure> failures;
    for (const std::string& failure : progress.failures)
        failures.push_back({failure, failure});
    for (const InstrumentProgress& it : progress.instruments)
        if (it.lost > 0)
            failures.push_back(
                {std::to_string(it.index),
                 it.name + ": " + fromQt(parts_.text(recordText::lostSamples).arg(static_cast<qlonglong>(it.lost)))});
    noteFailures(std::move(failures));
}

void FrameRecording::noteFailures(std::vector<RecordingFailure> failures)
{
    if (failures == failures_)
        return;
    failures_ = std::move(failures);
    ko::raise(failed);
}

void FrameRecording::end()
{
    timer_.stop();
    const auto task = std::exchange(task_, nullptr);
    const RecordingOutcome& outcome = task->outcome();
    // A short recording may have ended before it was charted.
    if (const auto run = task->run(); !isCharted_)
        chart_->chart().show(run ? run->chart() : nullptr, true);
    if (waiting_)
        waiting_->accept();
    noteFailures(outcome.end);
    chart_->setMarking(false);
    chart_->chart().setEnded(outcome.chart);
    if (!unlock())
        return;
    enableEntries();
    showOutcome(task->file(), outcome);
    if (!outcome.refusal.empty())
        refuse(outcome.refusal);
}

void FrameRecording::showOutcome(const std::string& file, const RecordingOutcome& outcome)
{
    QString reason;
    for (const std::string& failure : outcome.end.failures)
        reason += (reason.isEmpty() ? QString() : QStringLiteral("\n")) + toShown(failure);
    if (outcome.held)
        view_->showEnd(file, *outcome.held, reason);
    else
        view_->showNote(outcome.refusal.empty() ? reason : toShown(outcome.refusal));
}

std::optional<std::string> FrameRecording::setupIn(const std::string& file)
{
    const bool isRecording = isRecordingFile(file);
    read_ = isRecording ? std::optional(OpenedRecording{file, heldIn(file), signalsIn(file)}) : std::nullopt;
    return read_ ? std::optional(read_->held.setup) : std::nullopt;
}

void FrameRecording::followSetup()
{
    const std::string& source = files_.session().source();
    const auto recording = std::exchange(read_, std::nullopt);
    if (recording && recording->file == source)
        opened_ = recording;
    else if (opened_ && opened_->file != source)
        opened_.reset();
}

void FrameRecording::showOpened()
{
    const std::weak_ptr<const void> open = files_.session().presence();
    const bool isSame = !open.owner_before(shownFor_) && !shownFor_.owner_before(open);
    shownFor_ = open;
    if (isSame)
        return;
    noteFailures(std::vector<RecordingFailure>());
    chart_->chart().show(isOpened() ? opened_->chart : nullptr, false);
    if (!isOpened())
        return view_->showNote(parts_.text(recordText::none));
    view_->showEnd(opened_->file, opened_->held, {});
    ko::raise(reveal);
}

} // namespace ko
