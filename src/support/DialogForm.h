#pragma once

#include "interfaces/ClientSite.h"
#include "platform/CaptionControls.h"
#include "platform/Form.h"
#include "support/Geometry.h"
#include "support/Steps.h"
#include "support/Support.h"

namespace ko {

/// Base of the component's dialogs: how they load texts, are placed, shown and ended, and open the host's help on a
/// help button and F1. Each dialog has one instance, created on first use.
class DialogForm : public Form {
public:
    /// `block` is the number in the string table at which the form's texts begin, `caption` the number of its caption.
    DialogForm(Support& support, std::string name, int block, int caption, std::int32_t topic);

    /// The host's help; may be empty.
    std::shared_ptr<HelpSite> IHelp;
    /// The help topic to open.
    std::int32_t helpContextId;

protected:
    /// A function that places the dialog, such as `placeAtCursor`.
    using Placing = void (*)(Form&, Screen&);

    /// The design-time text of a control: the offset of the text in the form's block.
    [[nodiscard]] std::string offset(int text) const;
    /// Called after the controls are created: loads their texts and fonts, and handles the buttons. `ok` accepts the
    /// dialog, `cancel` ends it (the same button when there is nothing to accept).
    void load(PressControl& ok, PressControl& cancel, PressControl* help = nullptr);
    /// Places the dialog, moves the focus to `first`, shows the dialog and waits until the user ends it. Returns
    /// whether the user accepted it.
    bool show(const Steps& step, Placing place, Control& first);
    /// Accepts the dialog; failures are reported under the handler's name.
    void accept(std::string_view procedure);

    /// Set by a dialog that reads its result from its controls when it is accepted.
    std::function<void(const Steps&)> accepting;

    Support& support() { return support_; }

private:
    void end(const Steps& step, bool accepted);
    void showHelp(std::string_view procedure);
    void Form_KeyDown(KeyPress& press);

    Support& support_;
    int block_;
    bool accepted_ = false;
};

} // namespace ko
