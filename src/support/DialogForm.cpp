#include "support/DialogForm.h"

#include "support/ResourceUtils.h"
#include "support/Steps.h"

namespace ko {

DialogForm::DialogForm(Support& support, std::string name, int caption, std::int32_t topic)
    : Form(std::move(name)), helpContextId(topic), support_(support)
{
    setCaption(std::to_string(caption));
    keyDown = [this](KeyPress& press) { Form_KeyDown(press); };
}

void DialogForm::load(int base)
{
    // The texts are the component's own: nothing that fails in the host may keep them away.
    Steps(support_.errors, "Form_Load")([&] { setFont(support_.platform.screen.formFont()); });
    loadFormCaption(Steps(support_.errors, "Form_Load"), support_.strings, *this, base);
}

void DialogForm::showHelp(std::string_view procedure)
{
    const Steps step(support_.errors, procedure);
    if (IHelp)
        step([&] { IHelp->ShowHelpTopic(helpContextId); });
}

void DialogForm::Form_KeyDown(KeyPress& press)
{
    if (press.keyCode != key::f1 || press.shift != 0)
        return;
    showHelp("Form_KeyDown");
    press.keyCode = 0;
}

} // namespace ko
