#include "support/DialogForm.h"

#include "support/ResourceUtils.h"

namespace ko {

DialogForm::DialogForm(Support& support, std::string name, int block, int caption, std::int32_t topic)
    : Form(std::move(name)), helpContextId(topic), support_(support), block_(block)
{
    setCaption(offset(caption));
    keyDown = [this](KeyPress& press) { Form_KeyDown(press); };
}

std::string DialogForm::offset(int text) const
{
    return offsetOf(text, block_);
}

void DialogForm::load(PressControl& ok, PressControl& cancel, PressControl* help)
{
    // The texts belong to the component: a failure of the host must not prevent loading them.
    Steps(support_.errors, "Form_Load")([&] { setFont(support_.platform.screen.formFont()); });
    loadFormCaption(Steps(support_.errors, "Form_Load"), support_.strings, *this, block_);
    setButtons(ok, cancel);
    const auto handler = [](const PressControl& button) { return button.name() + "_Click"; };
    ok.click = [this, name = handler(ok)] { accept(name); };
    if (&cancel != &ok)
        cancel.click = [this, name = handler(cancel)] { end(Steps(support_.errors, name), false); };
    if (help)
        help->click = [this, name = handler(*help)] { showHelp(name); };
}

bool DialogForm::show(const Steps& step, Placing place, Control& first)
{
    accepted_ = false;
    step([&] { place(*this, support_.platform.screen); });
    moveFocus(&first);
    const bool shown = step([&] { support_.platform.modalForms.showModal(*this); });
    dropFocus();
    return shown && accepted_;
}

void DialogForm::accept(std::string_view procedure)
{
    const Steps step(support_.errors, procedure);
    if (accepting)
        accepting(step);
    end(step, true);
}

void DialogForm::end(const Steps& step, bool accepted)
{
    accepted_ = accepted;
    step([&] { support_.platform.modalForms.hide(*this); });
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
