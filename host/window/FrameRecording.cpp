#include "host/window/FrameRecording.h"

#include "host/chart/ChartPanel.h"
#include "host/recording/FreeSpace.h"
#include "host/recording_view/RecordingView.h"
#include "host/setup/SetupSaving.h"
#include "host/setup/SetupWriter.h"
#include "host/support/FileWriter.h"
#include "host/support/HostTexts.h"
#include "host/toolkit/WaitingBox.h"
#include "host/window/FrameCapture.h"
#include "host/window/FrameFiles.h"
#include "host/window/PageHost.h"
#include "host/window/RecordStart.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Modal.h"
#include "widgets/support/PageTexts.h"
#include "widgets/support/ShownText.h"

#include <QMainWindow>
#include <QMenu>
#include <QStyle>
#include <QToolBar>

namespace ko {

namespace recordText = textNumber::record;

namespace {

constexpr int refreshPeriod = 100; // milliseconds

} // namespace

FrameRecording::FrameRecording(QMainWindow& window, const UserActions& actions, FrameParts& parts, PageHost& page,
                               FrameFiles& files, FrameCapture& capture)
    : window_(window), actions_(actions), parts_(parts), page_(page), files_(files), capture_(capture),
      view_(new RecordingView(parts.texts(), parts.platform.locale, &window)),
      toolBar_(new QToolBar(parts.text(recordText::toolBar), &window)),
      chart_(new ChartPanel(parts.texts(), parts.platform.locale, view_)), record_(parts.text(recordText::record)),
      showSignals_(parts.text(textNumber::chart::monitor)), stop_(parts.text(recordText::stop))
{
    window.addDockWidget(Qt::BottomDockWidgetArea, view_);
    view_->hide();
    toolBar_->setObjectName(QStringLiteral("recordingBar"));
    toolBar_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    window.addToolBar(toolBar_);
    record_.setIcon(window.style()->standardIcon(QStyle::SP_MediaPlay));
    record_.setShortcut(Qt::Key_F9);
    stop_.setIcon(window.style()->standardIcon(QStyle::SP_MediaStop));
    stop_.setShortcut(Qt::SHIFT | Qt::Key_F9);
    for (QAction* const action : {&record_, &showSignals_, &stop_})
        toolBar_->addAction(action);
    view_->add(*chart_);
    chart_->addMarker = [this](const std::string& text) {
        const auto run = task_ ? task_->run() : nullptr;
        return run && run->addMarker(text);
    };
    onSignal(&record_, &QAction::triggered, this, [this] { record(); });
    onSignal(&showSignals_, &QAction::triggered, this, [this] { monitor(); });
    onSignal(&stop_, &QAction::triggered, this, [this] { stop(); });
    onSignal(&timer_, &QTimer::timeout, this, [this] { follow(); });
    enableEntries();
}

FrameRecording::~FrameRecording()
{
    close();
    delete waiting_;
}

void FrameRecording::close()
{
    setReadOnly = nullptr;
    timer_.stop();
    task_.reset();
    monitor_.reset();
}

void FrameRecording::addEntries(QMenu& menu)
{
    for (QAction* const action : {&record_, &showSignals_, &stop_})
        menu.addAction(action);
}

void FrameRecording::enableEntries()
{
    record_.setEnabled(!isActive());
    showSignals_.setEnabled(!isActive());
    stop_.setEnabled(isActive());
}

Instruments FrameRecording::instruments() const
{
    const HostInstruments& drivers = files_.session().drivers();
    return {drivers.begin(), drivers.end()};
}

RecordingPlan FrameRecording::planned(PlanFor purpose) const
{
    return planRecording(instruments(), purpose, [this](int number) { return parts_.component->text(number); });
}

void FrameRecording::record()
{
    const UserActions::Action action(actions_);
    if (isActive() || !page_.okToLeave() || action.isOver())
        return;
    try {
        ko::raise(openDevices);
        if (action.isOver())
            return;
        refuseMissing();
        const Instruments about = instruments();
        RecordingPlan plan = planned(PlanFor::Comparison);
        plan.startOn(dateOfStart(page_.document().page(), parts_.platform.locale, parts_.services.clock.now()));
        if (!chooseStart(plan, files_.session(), files_.questions(), parts_) || action.isOver())
            return;
        const std::string file = files_.questions().fileToRecord(
            {suggestedFile(files_.session(), parts_.services.clock.now()), spaceFor(plan)});
        // The start time may have passed meanwhile.
        if (action.isOver() || file.empty() || !chooseStart(plan, files_.session(), files_.questions(), parts_))
            return;
        if (!action.isOver() && instruments() == about && !isActive())
            begin(file, plan);
    } catch (const std::exception& error) {
        if (!action.isOver())
            refuse(error.what());
    }
}

void FrameRecording::refuseMissing() const
{
    for (const auto& driver : files_.session().drivers())
        if (const std::string reason = driver->trouble(); !reason.empty())
            throw RecordingRefusal(driver->name() + ": " + reason);
}

void FrameRecording::lock(int badge)
{
    noteFailures(std::vector<RecordingFailure>());
    Page& page = page_.document().page();
    timesOpened_ = timesOpened(files_.session().drivers());
    readOnly_.emplace([this](bool on) { setReadOnly ? setReadOnly(on) : void(); }, page.readOnly);
    page.lblReadOnly.setCaption(fromQt(parts_.text(badge)));
}

bool FrameRecording::unlock()
{
    const UserActions::Action action(actions_);
    page_.document().page().lblReadOnly.setCaption(parts_.component->text(pageText::readOnly));
    readOnly_.reset();
    if (!action.isOver() && timesOpened(files_.session().drivers()) != timesOpened_)
        ko::raise(devicesOpened);
    return !action.isOver();
}

/// `start` says when the recording begins.
void FrameRecording::begin(const std::string& file, const RecordingPlan& start)
{
    parts_.refuseOwn(file);
    lock(recordText::badge);
    try {
        RecordingPlan plan;
        hostCall([&] { plan = planned(PlanFor::Recording); });
        plan.startMode = start.startMode;
        plan.startTime = start.startTime;
        const SetupSession& session = files_.session();
        capture_.host({"record", file});
        task_ = std::make_unique<RecordingTask>(instruments(), std::move(plan),
                                                RecordingOptions{.file = file,
                                                                 .title = session.title(),
                                                                 .setup = setupText(session.presentSetup()),
                                                                 .clock = session.clock(),
                                                                 .isPaced = !session.clock(),
                                                                 .freeBytes = {}});
    } catch (...) {
        disarm(instruments());
        unlock();
        throw;
    }
    isCharted_ = false;
    view_->showRun({parts_.text(recordText::opening), {}});
    beginFollowing();
}

void FrameRecording::monitor()
{
    const UserActions::Action action(actions_);
    if (isActive() || !page_.okToLeave() || action.isOver())
        return;
    ko::raise(openDevices);
    if (action.isOver())
        return;
    lock(textNumber::chart::monitoring);
    try {
        hostCall([this] { monitor_ = std::make_unique<Monitor>(instruments()); });
    } catch (const std::exception& error) {
        if (unlock())
            refuse(error.what());
        return;
    }
    view_->showNote(parts_.text(textNumber::chart::monitoring));
    chart_->chart().show(monitor_->chart(), true);
    beginFollowing();
}

/// Shows what the recording or the monitor does, from now on.
void FrameRecording::beginFollowing()
{
    enableEntries();
    timer_.start(refreshPeriod);
    ko::raise(reveal);
}

void FrameRecording::stop()
{
    if (task_)
        task_->stop();
    if (monitor_)
        monitor_->stop();
}

bool FrameRecording::mayLeave()
{
    if (!isActive())
        return true;
    if (waiting_)
        return false;
    const UserActions::Action action(actions_);
    // A monitor loses nothing.
    const bool stops = monitor_ || files_.questions().stopRecording();
    if (action.isOver() || !stops)
        return false;
    stop();
    if (isActive()) {
        Modal<WaitingBox> box(parts_.text(recordText::title), parts_.text(recordText::finishing), &window_);
        waiting_ = box.get();
        box.wait();
    }
    return !action.isOver() && !isActive();
}

void FrameRecording::refuseOwn(const std::string& file) const
{
    refuseSame(file, task_ ? task_->file() : std::string(), "being recorded");
}

void FrameRecording::refuse(const std::string& reason)
{
    view_->showNote(toShown(reason));
    files_.questions().tellNotRecorded(reason);
}

} // namespace ko
