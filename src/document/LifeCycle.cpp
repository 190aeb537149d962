#include "document/TimebaseEditor.h"
#include "platform/DateTimes.h"
#include "platform/Scoped.h"
#include "support/ResourceUtils.h"
#include "support/TextNumbers.h"

namespace ko {

namespace {

constexpr int noInstrumentPicture = 101;

} // namespace

void TimebaseEditor::UserDocument_Initialize()
{
    // A failure of the host, above, must not prevent the rest, which belongs to the component.
    Steps(support_.errors, "UserDocument_Initialize")([&] { page_.setFont(support_.platform.screen.formFont()); });
    const Steps step(support_.errors, "UserDocument_Initialize");
    page_.isShown = false;
    step([&] { support_.readTimeSettings(); });
    loadFormStrings(step, support_.strings, page_, page_.font(), textNumber::page::block);
    step([&] { setIntervalSeconds(); });
    page_.hertzText = step.value([&] { return support_.text(textNumber::page::hertz); });
    page_.notApplicableText = step.value([&] { return support_.text(textNumber::page::notApplicable); });
    page_.imgNoInst.setPicture(noInstrumentPicture);
    page_.imgNoInst.setVisible(false);
    moveToolTipsToTags(page_);
    step([&] { prepareGrid(); });
    page_.readOnly = false;
    page_.mnuTimebaseTriggerLines.setEnabled(false);
    page_.TriggerSlot = -1;
    page_.TriggerChannel = -1;
    step([&] {
        shared_.dialogs.selectChannel().FilterCanTrigger(true);
        shared_.dialogs.selectChannel().FilterDirection(ChannelSelector::inputs);
    });
}

/// The item data is the text offset until the texts are loaded, and then each unit's length in seconds.
void TimebaseEditor::setIntervalSeconds()
{
    auto items = page_.cmbInterval.items();
    for (std::size_t i = 0; i < items.size(); ++i)
        items[i].itemData = secondsPerUnit(static_cast<TimeUnit>(i));
    page_.cmbInterval.setItems(std::move(items));
}

void TimebaseEditor::prepareGrid()
{
    Grid& grid = page_.grdParam;
    CellStyle style = grid.standardStyle();
    style.font = page_.font();
    grid.setStandardStyle(style);
    CellStyle header = grid.colHeaderStyle();
    header.enabled = false;
    header.interior = SystemColor::buttonFace;
    header.wrapText = false;
    grid.setCell(0, 0, {support_.text(textNumber::page::parameterName), header});
    grid.setCell(0, 1, {support_.text(textNumber::page::parameterValue), header});
    const std::int32_t width = grid.innerWidth();
    grid.setColumnWidth(0, width / 2);
    grid.setColumnWidth(1, width - width / 2);
    grid.setColumnWidth(2, 0);
}

void TimebaseEditor::UserDocument_Show()
{
    const Steps step(support_.errors, "UserDocument_Show", Steps::Begin::Anew);
    // The value that `loading` restores on return.
    page_.isLoading = false;
    const Scoped loading(page_.isLoading, true);
    page_.isShown = true;
    showFrames();
    if (page_.numDrivers <= 0) {
        page_.mnuTimebaseTriggerLines.setEnabled(false);
        schedule_.whatFits().withdraw();
        schedule_.plan().show();
        return;
    }
    initializeDocument();
    UserDocument_Resize();
    if (page_.readOnly || step.isSuperseded())
        return;
    step([&] {
        OptionButton* selected = page_.startOption();
        page_.moveFocus(selected ? selected : &page_.optImmediate);
    });
}

void TimebaseEditor::showFrames()
{
    const bool any = page_.numDrivers > 0;
    page_.frmStart.setVisible(any);
    page_.frmStop.setVisible(any);
    page_.frmDynamic.setVisible(any && page_.hasDynamicDrivers);
    page_.frmStatic.setVisible(any && page_.hasStaticDrivers);
    page_.imgNoInst.setVisible(!any);
    offerButtons_.follow();
}

void TimebaseEditor::UserDocument_Hide()
{
    const Steps step(support_.errors, "UserDocument_Hide", Steps::Begin::Anew);
    page_.dropFocus();
    page_.isShown = false;
}

void TimebaseEditor::UserDocument_Resize()
{
    // The view lays out the controls.
}

void TimebaseEditor::UserDocument_KeyDown(KeyPress& press)
{
    if (press.keyCode != key::f1 || press.shift != 0)
        return;
    OnCommand(command::help);
    press.keyCode = 0;
}

void TimebaseEditor::UserDocument_Terminate()
{
    shared_.dialogs.setHelp(nullptr);
}

void TimebaseEditor::imgNoInst_Click()
{
    const Steps step(support_.errors, "imgNoInst_Click");
    step([&] {
        support_.platform.messageBox.show(support_.text(textNumber::page::noInstrumentMessage),
                                          support_.text(textNumber::page::componentTitle), messageStyle::information);
    });
}

} // namespace ko
