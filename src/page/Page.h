#pragma once

#include "interfaces/ClientSite.h"
#include "interfaces/IKopDrivers.h"
#include "page/Drivers.h"
#include "page/Figures.h"
#include "page/LinePlan.h"
#include "page/OfferAccount.h"
#include "page/TriggerVars.h"
#include "platform/CaptionControls.h"
#include "platform/ComboBox.h"
#include "platform/Form.h"
#include "platform/Grid.h"
#include "platform/TextBox.h"
#include "platform/Timeline.h"

#include <memory>
#include <optional>

namespace ko {

/// Bits of `Page::editFlags`.
namespace editFlag {
inline constexpr std::int16_t none = 0;
inline constexpr std::int16_t copy = 1;  ///< the focused control's text can be selected and copied
inline constexpr std::int16_t paste = 2; ///< it accepts pasted and deleted text
} // namespace editFlag

/// The timebase page as data: its controls by name, in tab order, and the document's fields. Captions and hints are
/// offsets into the string table until they are loaded.
///
/// The buttons that explain an editor and those that show that drivers differ belong to no frame, so that they can be
/// used while the editor is disabled.
class Page : public Form {
public:
    Page();

    Menu mnuTimebase{*this, "mnuTimebase"};
    Menu mnuTimebaseTriggerLines{*this, "mnuTimebaseTriggerLines", &mnuTimebase};
    Image imgNoInst{*this, "imgNoInst"};
    Label lblReadOnly{*this, "lblReadOnly"};

    Frame frmDynamic{*this, "frmDynamic"};
    Label lblSampleRate{*this, "lblSampleRate", &frmDynamic};
    ComboBox cmbSampleRate{*this, "cmbSampleRate", &frmDynamic};
    TextBox txtSampleRate{*this, "txtSampleRate", &frmDynamic};
    CommandButton cmdSampleRateDiffers{*this, "cmdSampleRateDiffers"};
    CommandButton cmdSampleRateOffers{*this, "cmdSampleRateOffers"};
    Label lblSamplePeriod{*this, "lblSamplePeriod", &frmDynamic};
    ComboBox cmbSamplePeriod{*this, "cmbSamplePeriod", &frmDynamic};
    TextBox txtSamplePeriod{*this, "txtSamplePeriod", &frmDynamic};
    CommandButton cmdSamplePeriodDiffers{*this, "cmdSamplePeriodDiffers"};
    CommandButton cmdSamplePeriodOffers{*this, "cmdSamplePeriodOffers"};
    Label lblBlockSize{*this, "lblBlockSize", &frmDynamic};
    ComboBox cmbBlockSize{*this, "cmbBlockSize", &frmDynamic};
    TextBox txtBlockSize{*this, "txtBlockSize", &frmDynamic};
    CommandButton cmdBlockSizeDiffers{*this, "cmdBlockSizeDiffers"};
    CommandButton cmdBlockSizeOffers{*this, "cmdBlockSizeOffers"};
    Label lblSpan{*this, "lblSpan", &frmDynamic};
    Label lblSpanValue{*this, "lblSpanValue", &frmDynamic};
    Label lblNumSamples{*this, "lblNumSamples", &frmDynamic};
    Label lblNumSamplesValue{*this, "lblNumSamplesValue", &frmDynamic};
    Label lblNumDynamicBytes{*this, "lblNumDynamicBytes", &frmDynamic};
    LimitedLabel lblNumDynamicBytesValue{*this, "lblNumDynamicBytesValue", &frmDynamic};

    Frame frmStatic{*this, "frmStatic"};
    Label lblScanRate{*this, "lblScanRate", &frmStatic};
    ComboBox cmbScanRate{*this, "cmbScanRate", &frmStatic};
    TextBox txtScanRate{*this, "txtScanRate", &frmStatic};
    CommandButton cmdScanRateDiffers{*this, "cmdScanRateDiffers"};
    CommandButton cmdScanRateOffers{*this, "cmdScanRateOffers"};
    Label lblScanPeriod{*this, "lblScanPeriod", &frmStatic};
    ComboBox cmbScanPeriod{*this, "cmbScanPeriod", &frmStatic};
    TextBox txtScanPeriod{*this, "txtScanPeriod", &frmStatic};
    CommandButton cmdScanPeriodDiffers{*this, "cmdScanPeriodDiffers"};
    CommandButton cmdScanPeriodOffers{*this, "cmdScanPeriodOffers"};
    Label lblNumScans{*this, "lblNumScans", &frmStatic};
    Label lblNumScansValue{*this, "lblNumScansValue", &frmStatic};
    Label lblNumStaticBytes{*this, "lblNumStaticBytes", &frmStatic};
    LimitedLabel lblNumStaticBytesValue{*this, "lblNumStaticBytesValue", &frmStatic};

    Frame frmStart{*this, "frmStart"};
    OptionButton optImmediate{*this, "optImmediate", &frmStart};
    OptionButton optOnTrigger{*this, "optOnTrigger", &frmStart};
    Label lblChannel{*this, "lblChannel", &frmStart};
    TextBox txtChannel{*this, "txtChannel", &frmStart};
    CommandButton cmdChannel{*this, "cmdChannel", &frmStart};
    Grid grdParam{*this, "grdParam", &frmStart};
    Label lblChooseChannel{*this, "lblChooseChannel", &frmStart}; ///< in place of the parameters without a channel
    Label lblNoTriggerLine{*this, "lblNoTriggerLine", &frmStart};
    OptionButton optStartTime{*this, "optStartTime", &frmStart};
    TextBox txtStartTime{*this, "txtStartTime", &frmStart};
    CommandButton cmdStartTime{*this, "cmdStartTime", &frmStart};
    Label lblStartPast{*this, "lblStartPast", &frmStart};
    Label lblStartDay{*this, "lblStartDay", &frmStart}; ///< the day of the start time and how far it is

    Frame frmStop{*this, "frmStop"};
    OptionButton optAfter{*this, "optAfter", &frmStop};
    TextBox txtDuration{*this, "txtDuration", &frmStop};
    ComboBox cmbInterval{*this, "cmbInterval", &frmStop};
    OptionButton optStopTime{*this, "optStopTime", &frmStop};
    TextBox txtStopTime{*this, "txtStopTime", &frmStop};
    CommandButton cmdStopTime{*this, "cmdStopTime", &frmStop};
    Label lblStopDay{*this, "lblStopDay", &frmStop};
    Label lblDuration{*this, "lblDuration", &frmStop};
    Label lblDurationValue{*this, "lblDurationValue", &frmStop};
    Label lblStopTime{*this, "lblStopTime", &frmStop};
    Label lblStopTimeValue{*this, "lblStopTimeValue", &frmStop};

    // Settings that would fit, shown after a refusal.
    Label lblWhatFits{*this, "lblWhatFits"};
    CommandButton cmdTakeDuration{*this, "cmdTakeDuration"};
    CommandButton cmdTakeRate{*this, "cmdTakeRate"};
    Label lblPlan{*this, "lblPlan"}; ///< summary of the page in one sentence
    Timeline tmlPlan{*this, "tmlPlan"};
    /// Set by the document: updates what depends on the clock. Called by the view once a minute; calls no driver.
    std::function<void()> minutePassed;

    // Set by the host.
    std::int32_t numDrivers = 0;
    DriverList drivers;           ///< entries may be empty
    bool isRestored = false;      ///< set by a host that shows the page again after restoring what all drivers held:
                                  ///< building the page then writes no start and stop settings and no scan period
    std::uint32_t listNumber = 0; ///< of the lists handed over so far
    std::shared_ptr<StatusSite> statusSite;
    std::shared_ptr<HelpSite> helpSite;
    std::int32_t printMode = 0;
    bool readOnly = false;

    // Properties of the list of drivers.
    bool hasStaticDrivers = false;
    bool hasDynamicDrivers = false;
    bool driverChangesPending = false;
    std::int32_t dynamicDriverIndex = -1; ///< driver of the dynamic editors and start master; -1 none
    std::int32_t staticDriverIndex = -1;  ///< scan master, else the first static driver; -1 none
    std::int32_t scannedDriverIndex = -1; ///< whose scans are shown: `staticDriverIndex`, else, where that has no
                                          ///< timebase, the first static driver that has one

    bool isShown = false;
    bool isLoading = false;       ///< the document fills its controls; handlers do nothing
    bool isDurationKnown = false; ///< false while the page is being built, until the start and stop settings are loaded
    bool isDialogOpen = false;    ///< a dialog of the document is shown
    bool isUpdating = false;      ///< one editor changes another; prevents re-entry
    std::int16_t editFlags = editFlag::none;

    Figures figures; ///< of the last estimate

    std::vector<std::string> driverNames; ///< as read when the page was built; empty where that failed

    // Common offers of the drivers and how they result, and what the drivers hold.
    OfferAccount samplePeriodOffers, blockSizeOffers, scanPeriodOffers;

    std::optional<TriggerVars> triggerVars;
    bool triggerVarsAreOfFirst = false; ///< they were captured from the first driver with a timebase
    std::int32_t TriggerSlot = -1;
    std::int32_t TriggerChannel = -1;
    LinePlan lines; ///< of the start and the sync trigger

    std::string hertzText;
    std::string notApplicableText;

    /// The selected start option; null while the start mode is unknown.
    [[nodiscard]] OptionButton* startOption();

    /// The announced drivers that the host has passed.
    [[nodiscard]] Drivers currentDrivers() const;
    /// The driver with this index; null for -1, an index outside the list or an empty entry.
    [[nodiscard]] Driver* driverAt(std::int32_t index) const;
    /// The timebase of that driver; null when there is no driver or it offers none.
    [[nodiscard]] Timebase* timebaseAt(std::int32_t index) const;
};

} // namespace ko
