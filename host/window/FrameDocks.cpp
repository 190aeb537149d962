#include "host/window/FrameDocks.h"

#include "host/docks/DriverLog.h"
#include "host/docks/FailedSetting.h"
#include "host/docks/FailureStrip.h"
#include "host/docks/InstrumentsView.h"
#include "host/docks/Reports.h"
#include "host/setup/SetupSession.h"
#include "host/window/FrameCapture.h"
#include "host/window/FrameHistory.h"
#include "host/window/FrameRecording.h"
#include "host/window/PageHost.h"
#include "widgets/support/ShownText.h"

#include <QApplication>
#include <QLayout>
#include <QMainWindow>
#include <algorithm>

namespace ko {

FrameDocks::FrameDocks(QMainWindow& window, FrameParts& parts, PageHost& page, SetupSession& session,
                       FrameCapture& capture, FrameHistory& history)
    : texts_(parts.texts()), page_(page), session_(session), capture_(capture), history_(history),
      reports_(new Reports(parts.texts(), &window)), log_(new DriverLog(parts.texts(), parts.platform.locale, &window)),
      instruments_(new InstrumentsView(parts.texts(), parts.platform.locale, &window)),
      failures_(new FailureStrip(parts.texts(), &window))
{
    parts.reports = reports_;
    window.addDockWidget(Qt::BottomDockWidgetArea, reports_);
    window.addDockWidget(Qt::BottomDockWidgetArea, log_);
    window.addDockWidget(Qt::RightDockWidgetArea, instruments_);
    window.centralWidget()->layout()->addWidget(failures_);
    joinWatch();
    joinInstruments();
    joinStrip();
}

void FrameDocks::joinWatch()
{
    const auto note = [this](const DriverWatch::Watched& watched, const auto& call) {
        log_->model().add(watched.driver, call);
        instruments_->refresh();
    };
    watch_.called = note;
    watch_.failed = [this, note](const DriverWatch::Watched& watched, const FailedCall& call) {
        note(watched, call);
        reports_->callFailed(toShown(watched.driver.name()), failedSetting(call.operation, texts_),
                             call.failure.number(), toShown(call.failure.what()));
    };
    watch_.health().changed = [this] { failures_->refreshLater(); };
}

void FrameDocks::joinInstruments()
{
    instruments_->model().enable = [this](HostInstrument& driver, int group, int channel, bool on) {
        return enableChannel(driver, group, channel, on);
    };
    instruments_->faultChanged = [this](const HostInstrument& driver, const std::string& operation, bool fails) {
        faultChanged(driver, operation, fails);
    };
    instruments_->handOver = [this] { handOverAgain(); };
}

void FrameDocks::joinStrip()
{
    failures_->failing = [this] { return watch_.health().failing(); };
    failures_->recordingFailures = [this] {
        std::vector<FailureStrip::Line> lines;
        for (const RecordingFailure& failure :
             recordingFailures ? recordingFailures() : std::vector<RecordingFailure>())
            lines.push_back({failure.key, toLine(failure.text)});
        return lines;
    };
    failures_->tryAgain = [this] { handOverAgain(); };
    failures_->grown = [this] {
        QWidget* const focused = failures_->window()->focusWidget();
        if (focused && page_.widget().view().isAncestorOf(focused))
            page_.widget().ensureWidgetVisible(focused);
    };
    failures_->leaving = [this] { page_.widget().view().focus().follow(); };
}

void FrameDocks::show(const HostInstruments& drivers)
{
    watch_.watch(drivers);
    failures_->forget();
    instruments_->show(drivers);
}

void FrameDocks::follow(const HostInstruments& drivers)
{
    watch_.follow(drivers);
    instruments_->show(drivers);
}

bool FrameDocks::contains(const QWidget* widget) const
{
    const auto holds = [&](const QWidget* dock) { return dock->isAncestorOf(widget); };
    return std::any_of(others_.begin(), others_.end(), holds) || log_->isAncestorOf(widget) ||
           instruments_->isAncestorOf(widget) || reports_->isAncestorOf(widget) || failures_->isAncestorOf(widget) ||
           history_.dock().isAncestorOf(widget);
}

void FrameDocks::stop()
{
    watch_.health().changed = nullptr;
    watch_.watch({});
}

void FrameDocks::remove()
{
    delete instruments_;
    delete log_;
}

void FrameDocks::rebuildBy(const std::function<void()>& rebuild)
{
    const QPointer<QWidget> focused = QApplication::focusWidget();
    const std::weak_ptr<int> life = life_;
    watch_.health().rebuild(rebuild);
    // A message of the page may have waited until the window was destroyed.
    if (life.expired())
        return;
    instruments_->refresh();
    // Rebuilding the page may have moved the focus there.
    if (contains(focused))
        focused->setFocus();
}

bool FrameDocks::isLocked() const
{
    return locked && locked();
}

void FrameDocks::showRecordingFailures()
{
    failures_->refreshLater();
}

void FrameDocks::handOverAgain()
{
    if (isLocked() || !page_.okToLeave())
        return;
    // What a device that comes back offers is no edit.
    history_.hostCall([this] { watch_.health().reopenDevices(); });
    showPageAgain();
}

void FrameDocks::openDevices()
{
    const int before = timesOpened(session_.drivers());
    history_.hostCall([this] {
        for (const auto& driver : session_.drivers())
            driver->openDevice();
    });
    if (timesOpened(session_.drivers()) != before)
        showPageAgain();
}

void FrameDocks::showPageAgain()
{
    history_.hostCall([this] { rebuildBy([this] { page_.handOverAgain(session_.drivers()); }); });
}

bool FrameDocks::enableChannel(HostInstrument& driver, int group, int channel, bool on)
{
    // Another set-up may have been opened while the page showed a message.
    const HostInstruments shown = session_.drivers();
    if (isLocked() || !page_.okToLeave() || session_.drivers() != shown)
        return false;
    capture_.host({"enable", numberOf(driver), std::to_string(group), std::to_string(channel), on ? "1" : "0"});
    history_.edit([&] {
        driver.enableChannel(group, channel, on);
        // The instruments are the same, so no list is handed over.
        rebuildBy([this] { page_.rebuild(); });
    });
    return true;
}

void FrameDocks::faultChanged(const HostInstrument& driver, const std::string& operation, bool fails)
{
    ScenarioWriter::Words words{fails ? "fail" : "heal", numberOf(driver)};
    if (!operation.empty())
        words.push_back(operation);
    capture_.host(words);
    history_.changedOtherwise();
}

std::string FrameDocks::numberOf(const HostInstrument& driver) const
{
    const HostInstruments& drivers = session_.drivers();
    const auto found = std::find_if(drivers.begin(), drivers.end(), [&](const auto& d) { return d.get() == &driver; });
    return std::to_string(found - drivers.begin());
}

} // namespace ko
