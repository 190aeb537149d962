#include "host/scenario/DialogPlayer.h"

#include "platform/CaptionControls.h"
#include "platform/Failure.h"
#include "platform/Form.h"

#include <algorithm>

namespace ko {

/// Keeps the form in the list of shown forms. Restores the log's line number even if a handler of the form throws.
class DialogPlayer::Showing {
public:
    Showing(DialogPlayer& player, Form& form) : player_(player), line_(player.log_.line())
    {
        player.shown_.push_back({&form});
    }
    ~Showing()
    {
        player_.shown_.pop_back();
        player_.log_.setLine(line_);
    }
    Showing(const Showing&) = delete;
    Showing& operator=(const Showing&) = delete;

private:
    DialogPlayer& player_;
    int line_;
};

void DialogPlayer::showModal(Form& form)
{
    if (find(form))
        fail(failure::invalidCall);
    const Showing showing(*this, form);
    logChange(shown_.back(), true);
    for (const ScriptLine& line : nextBlock(form.name())) {
        log_.setLine(line.number);
        if (line.words.front() == "end" || !play_(line))
            break;
    }
    cancel(form);
}

void DialogPlayer::hide(Form& form)
{
    Shown* const shown = find(form);
    if (!shown || !shown->open)
        return;
    shown->open = false;
    logChange(*shown, false);
}

std::vector<ScriptLine> DialogPlayer::nextBlock(const std::string& form)
{
    auto& waiting = blocks_[form];
    if (waiting.empty())
        return {};
    std::vector<ScriptLine> block = std::move(waiting.front());
    waiting.pop_front();
    return block;
}

void DialogPlayer::cancel(Form& form)
{
    if (!isOpen())
        return;
    shown_.back().unanswered = true;
    if (form.cancelButton())
        form.cancelButton()->userClicked();
    hide(form);
}

void DialogPlayer::logChange(const Shown& shown, bool opened)
{
    const Bounds& bounds = shown.form->bounds();
    std::vector<EventMember> members{{"form", shown.form->name()},
                                     {"action", opened ? "opened" : "closed"},
                                     {"left", bounds.left},
                                     {"top", bounds.top}};
    if (shown.unanswered)
        members.push_back({"unanswered", true});
    log_.event("dialog", members);
}

DialogPlayer::Shown* DialogPlayer::find(const Form& form)
{
    const auto found = std::find_if(shown_.begin(), shown_.end(), [&](const Shown& s) { return s.form == &form; });
    return found == shown_.end() ? nullptr : &*found;
}

} // namespace ko
