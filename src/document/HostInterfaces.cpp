#include "document/TimebaseEditor.h"
#include "interfaces/TriggerLines.h"
#include "platform/Scoped.h"
#include "support/TextNumbers.h"

#include <algorithm>

namespace ko {

namespace {

/// Runs a statement of an event without reporting its failure.
template <class Statement> void quietly(const Steps& step, Statement&& statement)
{
    if (step.isSuperseded())
        return;
    try {
        statement();
    } catch (...) {
        return;
    }
}

} // namespace

void TimebaseEditor::setNumberOfDrivers(std::int32_t count)
{
    page_.numDrivers = count;
}

bool TimebaseEditor::HasProcessedDriverChanges()
{
    return !page_.driverChangesPending;
}

/// When called from inside an event, the page is rebuilt after that event has returned.
void TimebaseEditor::setDrivers(const DriverList& handedOver)
{
    constexpr std::string_view procedure = "IKopDrivers_Drivers";
    const bool isNested = support_.errors.events.areInProgress();
    const auto announced = static_cast<std::size_t>(std::max(page_.numDrivers, 0));
    const std::size_t given = std::min(announced, handedOver.size());
    DriverList list;
    Steps(support_.errors, procedure, Steps::Begin::Anew)([&] {
        if (page_.numDrivers < 0)
            fail(failure::subscriptOutOfRange);
        list.assign(handedOver.begin(), handedOver.begin() + static_cast<std::ptrdiff_t>(given));
    });
    support_.errors.events.supersede(std::exchange(page_.drivers, list));
    const Steps step(support_.errors, procedure, Steps::Begin::Anew);
    ++page_.listNumber;
    page_.hasStaticDrivers = false;
    page_.hasDynamicDrivers = false;
    page_.driverChangesPending = true;
    if (!page_.isShown || page_.readOnly)
        forgetSettings();
    for (const auto& driver : list)
        noteKind(driver.get(), step);
    reportMissing(announced - given, step);
    if (!page_.isShown || step.isSuperseded())
        return;
    clearTriggerLines(step);
    if (!isNested && !step.isSuperseded()) {
        UserDocument_Show();
        UserDocument_Resize();
    }
}

/// A list that arrives while the user cannot edit the page is a different set-up, with its own settings.
void TimebaseEditor::forgetSettings()
{
    page_.triggerVars.reset();
    page_.TriggerSlot = -1;
    page_.TriggerChannel = -1;
}

/// The two tests query the driver separately, so that a driver that fails in the first may still count in the second.
void TimebaseEditor::noteKind(Driver* driver, const Steps& step)
{
    if (!step([&] { required(driver); }))
        return;
    if (!page_.hasStaticDrivers && step.value([&] { return !isDynamicDriver(*driver); }))
        page_.hasStaticDrivers = true;
    if (!page_.hasDynamicDrivers && step.value([&] { return isDynamicDriver(*driver); }))
        page_.hasDynamicDrivers = true;
}

/// Missing elements are not in the page's list; they count as empty entries.
void TimebaseEditor::reportMissing(std::size_t count, const Steps& step)
{
    constexpr std::size_t reportedSingly = 100;
    for (std::size_t i = 0; i < std::min(count, reportedSingly); ++i)
        step([] { fail(failure::subscriptOutOfRange); });
    if (count > reportedSingly)
        step([&] {
            throw Failure(failure::subscriptOutOfRange,
                          "Subscript out of range: " + std::to_string(count - reportedSingly) + " more elements");
        });
}

void TimebaseEditor::clearTriggerLines(const Steps& step)
{
    for (const auto& driver : page_.currentDrivers()) {
        TriggerLines* lines = nullptr;
        quietly(step, [&] { lines = driver ? driver->queryTriggerLines() : nullptr; });
        if (!lines)
            continue;
        quietly(step, [&] { lines->setScanTriggerLine(-1); });
        quietly(step, [&] { lines->setStartTriggerLine(-1); });
    }
}

void TimebaseEditor::DriversHaveChanged()
{
    const Steps step(support_.errors, "IKopDrivers_DriversHaveChanged", Steps::Begin::Anew);
    schedule_.captureStartStop();
}

void TimebaseEditor::setReadOnly(bool flag)
{
    const Steps step(support_.errors, "IKopMode_ReadOnly", Steps::Begin::Anew);
    page_.readOnly = flag;
    if (!page_.isShown || page_.numDrivers <= 0)
        return showMode();
    const Scoped loading(page_.isLoading, true);
    initializeDocument();
}

void TimebaseEditor::setClientSite(const std::shared_ptr<ClientSite>& site)
{
    const Steps step(support_.errors, "IKopMode_ClientSite", Steps::Begin::Anew);
    const auto offered = [](auto view) {
        if (!view)
            fail(failure::typeMismatch);
        return view;
    };
    step([&] { page_.statusSite = site ? offered(site->queryStatusSite()) : nullptr; });
    step([&] { page_.helpSite = site ? offered(site->queryHelpSite()) : nullptr; });
    step([&] { shared_.dialogs.setHelp(page_.helpSite); });
    step([&] { shared_.dialogs.selectChannel().helpContextId = helpTopic::selectChannel; });
}

void TimebaseEditor::setPrintMode(std::int32_t mode)
{
    page_.printMode = mode;
}

std::int32_t TimebaseEditor::PrintMode()
{
    return page_.printMode;
}

void TimebaseEditor::GetPrintModeDescription(std::string& description)
{
    const Steps step(support_.errors, "IKopPrint_GetPrintModeDescription", Steps::Begin::Anew);
    description = step.value([&] { return support_.text(textNumber::page::componentTitle); });
}

void TimebaseEditor::DefaultPrint(const std::string& printerName, const DeviceMode& settings)
{
    const Steps step(support_.errors, "IKopPrint_DefaultPrint", Steps::Begin::Anew);
    Printers& printers = support_.platform.printers;
    const std::int32_t count = step.value([&] { return printers.count(); });
    for (std::int32_t i = 0; i < count; ++i) {
        if (step.value([&] { return printers.deviceName(i) == printerName; })) {
            step([&] { printers.makeCurrent(i); });
            break;
        }
    }
    step([&] { printers.setCopies(settings.copies); });
    step([&] { printers.setColorMode(settings.color); });
    step([&] { printers.setDuplex(settings.duplex); });
    step([&] { printers.setOrientation(settings.orientation); });
    step([&] { printers.setPaperSize(settings.paperSize); });
    step([&] { printers.setPrintQuality(settings.printQuality); });
    step([&] { printers.printForm(page_); });
    step([&] { printers.endDocument(); });
}

void TimebaseEditor::OKToLeave(bool& allowed)
{
    const Steps step(support_.errors, "IKopState_OKToLeave", Steps::Begin::Anew);
    allowed = step.value([&] { return validateActiveControl(false); });
}

} // namespace ko
