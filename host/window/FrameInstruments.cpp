#include "host/window/FailureStrip.h"
#include "host/window/FrameWindow.h"
#include "host/window/InstrumentsView.h"

#include <QApplication>
#include <algorithm>

namespace ko {

void FrameWindow::handOver()
{
    watch_.watch(session_.drivers());
    failures_->forget();
    instruments_->show(session_.drivers());
    showOnPage(session_.drivers());
    page_->view().focus().follow();
}

void FrameWindow::showOnPage(const SimulatedDrivers& drivers)
{
    document_->UserDocument_Hide();
    document_->drivers().setNumberOfDrivers(static_cast<std::int32_t>(drivers.size()));
    document_->drivers().setDrivers(DriverList(drivers.begin(), drivers.end()));
    document_->drivers().DriversHaveChanged();
    document_->UserDocument_Show();
}

/// The page writes the start and stop that it holds before it takes over those of the instruments, one of which may
/// have failed to take them.
void FrameWindow::rebuildPage(const std::function<void()>& before)
{
    const QPointer<QWidget> focused = QApplication::focusWidget();
    watch_.health().rebuild([&] {
        before();
        capture_->host({"show"});
        document_->UserDocument_Show();
        capture_->host({"drivers-changed"});
        document_->drivers().DriversHaveChanged();
    });
    instruments_->refresh();
    // The page's own focus does not call the user away from the instruments.
    if (isInDock(focused))
        focused->setFocus();
}

/// A page that is shown clears the trigger lines of the instruments in a list that it is given.
void FrameWindow::handOverAgain()
{
    const SimulatedDrivers& drivers = session_.drivers();
    const auto count = static_cast<std::int32_t>(drivers.size());
    rebuildPage([&] {
        capture_->host({"hide"});
        document_->UserDocument_Hide();
        capture_->host({"announce", std::to_string(count)});
        document_->drivers().setNumberOfDrivers(count);
        capture_->host({"hand-over"});
        document_->drivers().setDrivers(DriverList(drivers.begin(), drivers.end()));
    });
}

std::string FrameWindow::numberOf(const SimulatedDriver& driver) const
{
    const SimulatedDrivers& drivers = session_.drivers();
    const auto found = std::find_if(drivers.begin(), drivers.end(), [&](const auto& d) { return d.get() == &driver; });
    return std::to_string(found - drivers.begin());
}

void FrameWindow::faultChanged(const SimulatedDriver& driver, const std::string& operation, bool fails)
{
    ScenarioWriter::Words words{fails ? "fail" : "heal", numberOf(driver)};
    if (!operation.empty())
        words.push_back(operation);
    capture_->host(words);
    session_.setChanged(true);
}

bool FrameWindow::enableChannel(SimulatedDriver& driver, int group, int channel, bool on)
{
    // The message that refuses it may be open while another set-up is.
    const SimulatedDrivers shown = session_.drivers();
    if (!okToLeave() || session_.drivers() != shown)
        return false;
    capture_->host({"enable", numberOf(driver), std::to_string(group), std::to_string(channel), on ? "1" : "0"});
    driver.enableChannel(group, channel, on);
    session_.setChanged(true);
    // No list: the instruments are the same.
    rebuildPage([] {});
    return true;
}

} // namespace ko
