#include "host/window/FrameRecording.h"

#include "host/recording/FreeSpace.h"
#include "host/recording/Moments.h"
#include "host/setup/SetupSaving.h"
#include "host/setup/SetupWriter.h"
#include "host/support/HostTexts.h"
#include "host/window/FrameCapture.h"
#include "host/window/FrameFiles.h"
#include "host/window/PageHost.h"
#include "host/window/RecordingView.h"
#include "platform/DateTimes.h"
#include "widgets/support/Modal.h"
#include "widgets/support/PageTexts.h"
#include "widgets/support/ShownText.h"

#include <QDateTime>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>
#include <cmath>

namespace ko {

namespace {

namespace recordText = textNumber::record;

constexpr int refreshPeriod = 100; // milliseconds

/// Text as a part of a file's name on every system.
QString asFileName(QString text)
{
    static const QRegularExpression reserved(QStringLiteral("[/\\\\:*?\"<>|\\p{C}]"));
    constexpr int atMost = 80;
    return text.replace(reserved, QStringLiteral("-")).trimmed().left(atMost);
}

/// Shown until a recording has ended; cannot be closed by the user.
class WaitingBox : public QDialog {
public:
    WaitingBox(const QString& title, const QString& text, QWidget* parent) : QDialog(parent)
    {
        setWindowTitle(title);
        auto* const column = new QVBoxLayout(this);
        column->addWidget(new PlainLabel(text, this));
    }
    void reject() override {}
};

} // namespace

FrameRecording::FrameRecording(QMainWindow& window, const UserActions& actions, FrameParts& parts, PageHost& page,
                               FrameFiles& files, FrameCapture& capture)
    : window_(window), actions_(actions), parts_(parts), page_(page), files_(files), capture_(capture),
      view_(new RecordingView(parts.texts(), parts.platform.locale, &window)),
      toolBar_(new QToolBar(withoutMnemonic(parts.text(recordText::dock)), &window)),
      record_(parts.text(recordText::record)), stop_(parts.text(recordText::stop))
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
    toolBar_->addAction(&record_);
    toolBar_->addAction(&stop_);
    onSignal(&record_, &QAction::triggered, this, [this] { record(); });
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
}

void FrameRecording::addEntries(QMenu& menu)
{
    menu.addAction(&record_);
    menu.addAction(&stop_);
}

void FrameRecording::enableEntries()
{
    record_.setEnabled(!isActive());
    stop_.setEnabled(isActive());
}

Instruments FrameRecording::instruments() const
{
    const SimulatedDrivers& drivers = files_.session().drivers();
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
        const Instruments about = instruments();
        RecordingPlan plan = planned(PlanFor::Comparison);
        if (!chooseStart(plan) || action.isOver())
            return;
        const std::string file = files_.questions().fileToRecord({suggestedFile(), spaceFor(plan)});
        if (!action.isOver() && !file.empty() && instruments() == about && !isActive())
            begin(file, plan);
    } catch (const std::exception& error) {
        if (!action.isOver())
            refuse(error.what());
    }
}

bool FrameRecording::chooseStart(RecordingPlan& plan)
{
    const auto standing = files_.session().clock();
    if (plan.startMode != startMode::atTime || nextMoment(plan.startTime, momentNow(standing)))
        return true;
    const Locale& locale = parts_.platform.locale;
    const double today = std::floor(parts_.services.clock.now().days);
    const DateTime tomorrow{today + 1.0 + (plan.startTime.days - std::floor(plan.startTime.days))};
    switch (
        files_.questions().pastStart(toQt(generalDate(plan.startTime, locale)), toQt(generalDate(tomorrow, locale)))) {
    case PastStart::Now: plan.startMode = startMode::immediately; return true;
    case PastStart::Tomorrow: plan.startTime = tomorrow; return true;
    case PastStart::Cancel: break;
    }
    return false;
}

/// A name of title, date and time beside the set-up that no file has.
std::string FrameRecording::suggestedFile() const
{
    const SetupSession& session = files_.session();
    const DateParts now = dateParts(parts_.services.clock.now());
    const QString date = QDateTime(QDate(now.year, now.month, now.day), QTime(now.hour, now.minute, now.second))
                             .toString(QStringLiteral("yyyy-MM-dd HHmmss"));
    QString title = asFileName(toQt(session.title()));
    if (title.isEmpty())
        title = QFileInfo(toQt(session.name())).completeBaseName();
    const QString folder = session.isOpen() ? QFileInfo(toQt(session.file())).absolutePath()
                                            : QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString name = QStringLiteral("%1/%2 %3").arg(folder, title, date).trimmed();
    QString file = name + QStringLiteral(".h5");
    for (int number = 2; QFileInfo::exists(file); ++number)
        file = QStringLiteral("%1 (%2).h5").arg(name, QString::number(number));
    return fromQt(file);
}

/// `start` says when the recording begins.
void FrameRecording::begin(const std::string& file, const RecordingPlan& start)
{
    failures_.clear();
    Page& page = page_.document().page();
    readOnly_.emplace([this](bool on) { setReadOnly ? setReadOnly(on) : void(); }, page.readOnly);
    try {
        RecordingPlan plan = planned(PlanFor::Recording);
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
        readOnly_.reset();
        throw;
    }
    page.lblReadOnly.setCaption(fromQt(parts_.text(recordText::badge)));
    enableEntries();
    follow();
    ko::raise(reveal);
    timer_.start(refreshPeriod);
}

void FrameRecording::stop()
{
    if (task_)
        task_->stop();
}

void FrameRecording::follow()
{
    if (!task_)
        return;
    if (task_->isOver())
        return end();
    const auto run = task_->run();
    if (!run)
        return view_->showRun({parts_.text(recordText::opening), {}});
    const RecordingProgress progress = run->progress();
    noteFailures(progress);
    view_->showRun(
        runText(progress, task_->plan(), momentNow(files_.session().clock()), parts_.texts(), parts_.platform.locale));
}

void FrameRecording::noteFailures(const RecordingProgress& progress)
{
    std::vector<std::string> failures = progress.failures;
    for (const InstrumentProgress& it : progress.instruments)
        if (it.lost > 0)
            failures.push_back(it.name + ": " +
                               fromQt(parts_.text(recordText::lostSamples).arg(static_cast<qlonglong>(it.lost))));
    if (failures == failures_)
        return;
    failures_ = std::move(failures);
    ko::raise(failed);
}

void FrameRecording::end()
{
    const UserActions::Action action(actions_);
    timer_.stop();
    const auto task = std::exchange(task_, nullptr);
    const RecordingOutcome& outcome = task->outcome();
    noteFailures(outcome.end);
    page_.document().page().lblReadOnly.setCaption(parts_.component->text(pageText::readOnly));
    readOnly_.reset();
    if (action.isOver())
        return;
    enableEntries();
    QString reason;
    for (const std::string& failure : outcome.end.failures)
        reason += (reason.isEmpty() ? QString() : QStringLiteral("\n")) + toShown(failure);
    if (outcome.held)
        view_->showEnd(task->file(), *outcome.held, reason);
    else
        view_->showNote(toShown(outcome.refusal.empty() ? fromQt(reason) : outcome.refusal));
    if (waiting_)
        waiting_->accept();
    else if (!outcome.refusal.empty())
        refuse(outcome.refusal);
}

bool FrameRecording::mayLeave()
{
    if (!isActive())
        return true;
    const UserActions::Action action(actions_);
    const bool stops = files_.questions().stopRecording();
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
    failures_.clear();
    ko::raise(failed);
    if (!isOpened())
        return view_->showNote(parts_.text(recordText::none));
    view_->showEnd(openedFile_, *opened_, {});
    ko::raise(reveal);
}

void FrameRecording::refuse(const std::string& reason)
{
    view_->showNote(toShown(reason));
    files_.questions().tellNotRecorded(reason);
}

} // namespace ko
