#pragma once

#include "interfaces/ClientSite.h"
#include "platform/CaptionControls.h"
#include "platform/Form.h"
#include "support/Geometry.h"
#include "support/Steps.h"
#include "support/Support.h"

namespace ko {

/// What the component's dialogs have in common: one instance each, made on first use; placed, shown and ended in one
/// way; the host's help on a help button and F1.
class DialogForm : public Form {
public:
    /// The form's texts are in the block of the string table that begins at `block`; `caption` is among them.
    DialogForm(Support& support, std::string name, int block, int caption, std::int32_t topic);

    /// The host's help; may be empty.
    std::shared_ptr<HelpSite> IHelp;
    /// The topic that help opens at.
    std::int32_t helpContextId;

protected:
    /// How the dialog is placed, such as `placeAtCursor`.
    using Placing = void (*)(Form&, Screen&);

    /// How a control names its text until that is loaded.
    [[nodiscard]] std::string offset(int text) const;
    /// Once the controls are there: loads their texts and fonts, and takes over the buttons. `ok` accepts the dialog,
    /// `cancel` ends it (the same button where there is nothing to accept).
    void load(PressControl& ok, PressControl& cancel, PressControl* help = nullptr);
    /// Places the dialog, gives `first` the focus, shows the dialog and waits until the user has ended it. Whether the
    /// user has accepted it.
    bool show(const Steps& step, Placing place, Control& first);
    /// The user accepts the dialog; failures are reported under the handler's name.
    void accept(std::string_view procedure);

    /// Set by a dialog that takes its result from its controls when it is accepted.
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
