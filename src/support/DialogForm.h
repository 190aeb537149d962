#pragma once

#include "interfaces/ClientSite.h"
#include "platform/CaptionControls.h"
#include "platform/Form.h"
#include "support/Support.h"

namespace ko {

/// What the component's dialogs have in common: one instance each, made on first use; the host's help behind
/// a help button and F1.
class DialogForm : public Form {
public:
    /// `caption` is the offset of the form's caption in its block of the string table.
    DialogForm(Support& support, std::string name, int caption, std::int32_t topic);

    /// The host's help; may be empty.
    std::shared_ptr<HelpSite> IHelp;
    /// The topic that help opens at.
    std::int32_t helpContextId;

protected:
    /// Loads the texts and fonts from the block that begins at `base`, once the controls are there.
    void load(int base);
    /// Shows the help under the handler's name.
    void showHelp(std::string_view procedure);

    Support& support() { return support_; }

private:
    void Form_KeyDown(KeyPress& press);

    Support& support_;
};

} // namespace ko
