#include "host/recording/Moments.h"
#include "host/recording/RecordedSignals.h"
#include "host/support/HostTexts.h"
#include "host/window/ChartPanel.h"
#include "host/window/FrameFiles.h"
#include "host/window/FrameRecording.h"
#include "host/window/RecordingView.h"
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
    noteFailures(monitor_->failures());
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
    std::vector<std::string> failures = progress.failures;
    for (const InstrumentProgress& it : progress.instruments)
        if (it.lost > 0)
            failures.push_back(it.name + ": " +
                               fromQt(parts_.text(recordText::lostSamples).arg(static_cast<qlonglong>(it.lost))));
    noteFailures(std::move(failures));
}

void FrameRecording::noteFailures(std::vector<std::string> failures)
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
    noteFailures(outcome.end);
    chart_->setMarking(false);
    chart_->chart().setEnded();
    if (!unlock())
        return;
    enableEntries();
    showOutcome(task->file(), outcome);
    if (waiting_)
        waiting_->accept();
    else if (!outcome.refusal.empty())
        refuse(outcome.refusal);
}

void FrameRecording::showOutcome(const std::string& file, const RecordingOutcome& outcome)
{
    QString reason;
    for (const std::string& failure : outcome.end.failures)
        reason += (reason.isEmpty() ? QString() : QStringLiteral("\n")) + toShown(failure);
    if (outcome.held) {
        view_->showEnd(file, *outcome.held, reason);
        chart_->chart().setEnded(signalsIn(file));
    } else {
        view_->showNote(outcome.refusal.empty() ? reason : toShown(outcome.refusal));
    }
}

std::optional<std::string> FrameRecording::setupIn(const std::string& file)
{
    opened_.reset();
    if (!isRecordingFile(file))
        return std::nullopt;
    opened_ = heldIn(file);
    openedFile_ = file;
    return opened_->setup;
}

bool FrameRecording::isOpened() const
{
    return opened_ && files_.session().source() == openedFile_;
}

void FrameRecording::showOpened()
{
    noteFailures(std::vector<std::string>());
    chart_->chart().show(isOpened() ? signalsIn(openedFile_) : nullptr, false);
    if (!isOpened())
        return view_->showNote(parts_.text(recordText::none));
    view_->showEnd(openedFile_, *opened_, {});
    ko::raise(reveal);
}

} // namespace ko
