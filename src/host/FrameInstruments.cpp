#include "host/FailureStrip.h"
#include "host/FrameWindow.h"
#include "host/InstrumentsView.h"

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

void FrameWindow::handOverAgain()
{
    QWidget* const focused = QApplication::focusWidget();
    capture_->host({"setup"});
    const SimulatedDrivers& drivers = session_.drivers();
    watch_.health().rebuild([&] {
        document_->drivers().setNumberOfDrivers(static_cast<std::int32_t>(drivers.size()));
        document_->drivers().setDrivers(DriverList(drivers.begin(), drivers.end()));
        document_->drivers().DriversHaveChanged();
    });
    instruments_->refresh();
    // The page's own focus does not call the user away from the instruments.
    if (isInDock(focused))
        focused->setFocus();
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
    if (!okToLeave())
        return false;
    capture_->host({"enable", numberOf(driver), std::to_string(group), std::to_string(channel), on ? "1" : "0"});
    driver.enableChannel(group, channel, on);
    session_.setChanged(true);
    handOverAgain();
    return true;
}

} // namespace ko
