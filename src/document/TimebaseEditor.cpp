#include "document/TimebaseEditor.h"

#include "page/NumberEntry.h"
#include "page/Quantities.h"
#include "schedule/DiskSpace.h"

#include <algorithm>

namespace ko {

TimebaseEditor::TimebaseEditor(Shared& shared, PropertyNotifySink& sink)
    : shared_(shared), support_(shared.support), sink_(sink), dynamicEditors_(page_, support_, *this),
      staticEditors_(page_, support_, *this),
      offerButtons_(page_, support_, *this, setAll_,
                    [&shared]() -> ShowOffers& { return shared.dialogs.showOffers(); }),
      schedule_(page_, support_, *this, [&shared]() -> SetDateTime& { return shared.dialogs.setDateTime(); }),
      triggerChannel_(page_, support_, *this, [&shared]() -> SelectChannel& { return shared.dialogs.selectChannel(); }),
      triggerLines_(page_, support_, *this, triggering_,
                    [&shared]() -> AdvancedTrig& { return shared.dialogs.advancedTrig(); })
{
    page_.imgNoInst.click = [this] { imgNoInst_Click(); };
    page_.keyDown = [this](KeyPress& press) { UserDocument_KeyDown(press); };
    support_.errors.events.settle = [this] { settle(); };
    UserDocument_Initialize();
}

void TimebaseEditor::end()
{
    UserDocument_Terminate();
    page_.isShown = false;
    support_.errors.events.end(std::exchange(page_.drivers, {}));
}

/// Runs after the event during which the list was replaced has returned.
void TimebaseEditor::settle()
{
    if (page_.isShown)
        UserDocument_Show();
}

void TimebaseEditor::markChanged()
{
    if (!page_.isLoading)
        sink_.OnChanged();
}

std::int32_t TimebaseEditor::updateDiskSpace()
{
    const std::int32_t code = schedule_.estimate().updateDiskSpace();
    const Steps step(support_.errors, "updateDiskSpace");
    dynamicEditors_.follow(step, page_.figures.samplePeriod, page_.figures.blockSize);
    staticEditors_.follow(step);
    offerButtons_.follow();
    // A recording that does not fit is about to be undone, so the plan does not show it.
    if (code == diskSpace::fits) {
        schedule_.plan().show();
        schedule_.whatFits().withdraw();
    }
    return code;
}

void TimebaseEditor::tellWhatFits(const LimitRefusal& refusal)
{
    const bool isStatic = refusal.code == diskSpace::staticTooLarge;
    schedule_.whatFits().tell(refusal, isStatic ? staticEditors_.periods() : dynamicEditors_.periods());
}

void TimebaseEditor::refreshEstimate()
{
    if (updateDiskSpace() != diskSpace::fits)
        schedule_.plan().show();
}

void TimebaseEditor::refreshRestored()
{
    const Steps step(support_.errors, "updateDiskSpace");
    const std::int32_t code = updateDiskSpace();
    if (code == diskSpace::fits || step.isSuperseded())
        return;
    schedule_.estimate().showBeyondLimit();
    schedule_.plan().show();
    schedule_.whatFits().withdraw();
    tellWhatFits({.code = code});
}

void TimebaseEditor::refreshPlan()
{
    if (!page_.isLoading)
        schedule_.plan().show();
}

void TimebaseEditor::enableTriggering(bool onTrigger)
{
    triggerChannel_.enableTriggering(onTrigger);
}

void TimebaseEditor::disableTriggering(bool onTrigger)
{
    triggerChannel_.disableTriggering(onTrigger);
}

void TimebaseEditor::clearTriggerSource()
{
    triggerChannel_.clearTriggerSource();
}

Outcome TimebaseEditor::setAll(std::string_view quantity, const std::string& value)
{
    const auto* found =
        std::find_if(quantities.begin(), quantities.end(), [&](const Quantity& it) { return it.name == quantity; });
    if (found == quantities.end() || page_.isDialogOpen)
        return Outcome::Inert;
    // What is being typed is an entry of its own.
    return page_.moveFocus(nullptr) ? setAll_.enter(*found, value) : Outcome::Refused;
}

bool TimebaseEditor::validateActiveControl(bool apply)
{
    const auto passes = [apply](NumberEntry& entry) { return entry.check(true) && (!apply || entry.leave()); };
    for (const auto* entries : {&dynamicEditors_.entries(), &staticEditors_.entries()})
        for (const auto& entry : *entries)
            if (entry->box().hasFocus())
                return passes(*entry);
    if (page_.grdParam.hasFocus())
        return apply ? page_.grdParam.endEdit() : page_.grdParam.checkEdit();
    return !schedule_.duration().box().hasFocus() || passes(schedule_.duration());
}

namespace {

/// The host's handle; the document itself outlives it while its events are in progress.
class DocumentHandle final : public Document {
public:
    DocumentHandle(Shared& shared, PropertyNotifySink& sink)
        : shared_(shared), editor_(std::make_shared<TimebaseEditor>(shared, sink))
    {
    }
    ~DocumentHandle() override
    {
        editor_->end();
        shared_.ended.push_back(std::move(editor_));
    }
    DocumentHandle(const DocumentHandle&) = delete;
    DocumentHandle& operator=(const DocumentHandle&) = delete;

    IKopDrivers& drivers() override { return editor_->drivers(); }
    IKopMenu& menu() override { return editor_->menu(); }
    IKopMode& mode() override { return editor_->mode(); }
    IKopPrint& print() override { return editor_->print(); }
    IKopState& state() override { return editor_->state(); }
    void UserDocument_Show() override { editor_->UserDocument_Show(); }
    void UserDocument_Hide() override { editor_->UserDocument_Hide(); }
    Page& page() override { return editor_->page(); }
    Outcome setAll(std::string_view quantity, const std::string& value) override
    {
        return editor_->setAll(quantity, value);
    }

private:
    Shared& shared_;
    std::shared_ptr<TimebaseEditor> editor_;
};

} // namespace

std::unique_ptr<Document> makeDocument(Shared& shared, PropertyNotifySink& sink)
{
    std::erase_if(shared.ended, [](const auto& editor) { return !editor->hasEvents(); });
    return std::make_unique<DocumentHandle>(shared, sink);
}

} // namespace ko
