#include "host/docks/FailedSetting.h"

#include "host/sheet/SheetTexts.h"
#include "host/support/HostTexts.h"
#include "widgets/support/PageTexts.h"

#include <array>

namespace ko {

namespace {

/// What an operation reads or sets, as the number of its name.
struct Named {
    Operation operation;
    int setting;
};

// In the order of `Operation`.
constexpr std::array settings{
    Named{Operation::GroupCount, failedText::channelGroups},
    Named{Operation::ChannelCount, pageText::channels},
    Named{Operation::ChannelAttribute, pageText::channels},
    Named{Operation::MeasurementMode, failedText::measurementKind},
    Named{Operation::SamplingMode, failedText::measurementKind},
    Named{Operation::DriverName, failedText::instrumentName},
    Named{Operation::GroupName, failedText::channelGroups},
    Named{Operation::SamplePeriodSet, hostText::samplePeriod},
    Named{Operation::SamplePeriodGet, hostText::samplePeriod},
    Named{Operation::BlockSizeSet, hostText::blockSize},
    Named{Operation::BlockSizeGet, hostText::blockSize},
    Named{Operation::ScanPeriodSet, hostText::scanPeriod},
    Named{Operation::ScanPeriodGet, hostText::scanPeriod},
    Named{Operation::SampleChoiceList, failedText::samplePeriods},
    Named{Operation::BlockSizeChoiceList, failedText::blockSizes},
    Named{Operation::BlockSizeRange, failedText::blockSizes},
    Named{Operation::ScanChoiceList, failedText::scanPeriods},
    Named{Operation::ChoiceRange, failedText::periodRange},
    Named{Operation::StartTimeGet, hostText::startTime},
    Named{Operation::StartTimeSet, hostText::startTime},
    Named{Operation::DurationGet, hostText::duration},
    Named{Operation::DurationSet, hostText::duration},
    Named{Operation::StopModeGet, hostText::stopMode},
    Named{Operation::StopModeSet, hostText::stopMode},
    Named{Operation::StartModeGet, hostText::startMode},
    Named{Operation::StartModeSet, hostText::startMode},
    Named{Operation::GetTriggerParamCount, sheetText::parameters},
    Named{Operation::GetTriggerParamId, sheetText::parameters},
    Named{Operation::GetTriggerParamName, sheetText::parameters},
    Named{Operation::GetTriggerParamType, sheetText::parameters},
    Named{Operation::GetTriggerParamValue, sheetText::parameters},
    Named{Operation::GetTriggerParamChoices, sheetText::parameters},
    Named{Operation::GetTriggerParamMin, sheetText::parameters},
    Named{Operation::GetTriggerParamMax, sheetText::parameters},
    Named{Operation::SetTriggerParamValue, sheetText::parameters},
    Named{Operation::TriggerEnabledGet, hostText::triggerSource},
    Named{Operation::TriggerEnabledSet, hostText::triggerSource},
    Named{Operation::CanTrigger, failedText::triggerChannels},
    Named{Operation::GetTriggerGroupName, failedText::triggerChannels},
    Named{Operation::StartMasterRank, hostText::startMasterRank},
    Named{Operation::StartTriggerLineGet, hostText::startLine},
    Named{Operation::StartTriggerLineSet, hostText::startLine},
    Named{Operation::StartTriggerInput, hostText::startInput},
    Named{Operation::ScanMasterRank, hostText::syncMasterRank},
    Named{Operation::ScanTriggerLineGet, hostText::syncLine},
    Named{Operation::ScanTriggerLineSet, hostText::syncLine},
    Named{Operation::ScanTriggerInput, hostText::syncInput},
    Named{Operation::StartLinesAsMaster, hostText::triggerLines},
    Named{Operation::ScanLinesAsListener, hostText::triggerLines},
    Named{Operation::ScanLinesAsMaster, hostText::triggerLines},
    Named{Operation::StartLinesAsListener, hostText::triggerLines},
    Named{Operation::NumberOfScans, failedText::scanCount},
    Named{Operation::DynamicBytes, failedText::diskSpace},
};

constexpr bool isInOrder()
{
    for (std::size_t i = 0; i < settings.size(); ++i)
        if (settings[i].operation != static_cast<Operation>(i))
            return false;
    return true;
}
static_assert(isInOrder() && settings.size() == operationCount);

} // namespace

QString failedSetting(Operation operation, const Texts& texts)
{
    const int setting = settings[static_cast<std::size_t>(operation)].setting;
    return texts(isWrite(operation) ? failedText::notSet : failedText::notRead).arg(texts(setting));
}

} // namespace ko
