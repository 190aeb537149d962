#pragma once

#include "document/ClassFactory.h"
#include "document/Dialogs.h"
#include "page/Actions.h"
#include "schedule/Schedule.h"
#include "timebase/DynamicEditors.h"
#include "timebase/OfferButtons.h"
#include "timebase/StaticEditors.h"
#include "triggering/TriggerChannel.h"
#include "triggering/TriggerLineChoice.h"
#include "triggering/Triggering.h"

namespace ko {

class TimebaseEditor;

/// State shared by the documents of a component.
struct Shared {
    Shared(const Platform& platform, std::string_view language) : support(platform, language) {}

    Support support;
    Dialogs dialogs{support};
    /// Documents that have ended, kept while code of their controls may still be running. Those without an event in
    /// progress are destroyed when the next document is created.
    std::vector<std::shared_ptr<TimebaseEditor>> ended;
};

/// Creates and initializes a document of a component. Destroying it ends the document, also from inside a call that the
/// document makes. `shared` and `sink` must outlive it.
std::unique_ptr<Document> makeDocument(Shared& shared, PropertyNotifySink& sink);

/// The document: owns the page and its sections, and implements the interfaces to the host.
class TimebaseEditor final : public Document,
                             private IKopDrivers,
                             private IKopMenu,
                             private IKopMode,
                             private IKopPrint,
                             private IKopState,
                             private Actions {
public:
    /// `shared` and `sink` must outlive the document.
    TimebaseEditor(Shared& shared, PropertyNotifySink& sink);

    /// Ends the document: its events do nothing from now on, and its drivers are released once the events in progress
    /// have returned.
    void end();
    [[nodiscard]] bool hasEvents() const { return support_.errors.events.areInProgress(); }

    IKopDrivers& drivers() override { return *this; }
    IKopMenu& menu() override { return *this; }
    IKopMode& mode() override { return *this; }
    IKopPrint& print() override { return *this; }
    IKopState& state() override { return *this; }
    Page& page() override { return page_; }
    Outcome setAll(std::string_view quantity, const std::string& value) override;

    void UserDocument_Show() override;
    void UserDocument_Hide() override;

private:
    // IKopDrivers
    void setNumberOfDrivers(std::int32_t count) override;
    bool HasProcessedDriverChanges() override;
    void setDrivers(const DriverList& handedOver) override;
    void DriversHaveChanged() override;
    // IKopMenu
    void OnCommand(std::int32_t commandId) override;
    void OnUpdateCommandUI(std::int32_t commandId, std::int32_t& enable) override;
    // IKopMode
    void setReadOnly(bool flag) override;
    void setClientSite(const std::shared_ptr<ClientSite>& site) override;
    // IKopPrint
    void setPrintMode(std::int32_t mode) override;
    std::int32_t PrintMode() override;
    void GetPrintModeDescription(std::string& description) override;
    void DefaultPrint(const std::string& printerName, const DeviceMode& settings) override;
    // IKopState
    void OKToLeave(bool& allowed) override;
    void RecordedFilesHaveChanged() override {}
    // Actions
    void markChanged() override;
    std::int32_t updateDiskSpace() override;
    void refreshEstimate() override;
    void refreshRestored() override;
    void tellWhatFits(const LimitRefusal& refusal) override;
    void setAll(const Quantity& quantity, const std::string& value) override { setAll_.enter(quantity, value); }
    void refreshPlan() override;
    void enableTriggering(bool onTrigger) override;
    void disableTriggering(bool onTrigger) override;
    void clearTriggerSource() override;

    // Life cycle
    void UserDocument_Initialize();
    void UserDocument_Resize();
    void UserDocument_KeyDown(KeyPress& press);
    void UserDocument_Terminate();
    void showFrames();
    void prepareGrid();
    void setIntervalSeconds();
    void imgNoInst_Click();

    // Start-up from the driver list
    void initializeDocument();
    void initializeTriggering();
    void loadDynamicEditors(const Steps& step);
    void loadStaticEditors(const Steps& step);
    void followReadOnly(const Steps& step);
    void showMode();
    [[nodiscard]] std::int32_t firstDriver(const Steps& step, bool dynamic) const;

    // Editing
    /// Checks the focused entry field; when `apply` is true and the check passes, applies its value.
    bool validateActiveControl(bool apply);
    void forgetSettings();
    void noteKind(Driver* driver, const Steps& step);
    static void reportMissing(std::size_t count, const Steps& step);
    void clearTriggerLines(const Steps& step);
    void settle();

    Shared& shared_;
    Support support_;
    Triggering triggering_{support_};
    PropertyNotifySink& sink_;
    Page page_;
    DynamicEditors dynamicEditors_;
    StaticEditors staticEditors_;
    SetAll setAll_{page_, support_, dynamicEditors_, staticEditors_};
    OfferButtons offerButtons_;
    Schedule schedule_;
    TriggerChannel triggerChannel_;
    TriggerLineChoice triggerLines_;
};

} // namespace ko
