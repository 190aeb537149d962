#pragma once

#include "host/scenario/EventLog.h"
#include "host/scenario/ScriptReader.h"
#include "platform/Services.h"

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace ko {

/// Shows forms by playing what the script says the user does in them. Blocks queue up for each form. A form that has
/// no block, or is still open when its block ends, is cancelled.
class DialogPlayer final : public ModalForms {
public:
    /// `play` runs a line of a block; it does not throw, and false stops the block.
    DialogPlayer(EventLog& log, std::function<bool(const ScriptLine&)> play) : log_(log), play_(std::move(play)) {}

    /// The user's next answer to the form of this name; `end` is its last line.
    void queue(const std::string& form, std::vector<ScriptLine> block) { blocks_[form].push_back(std::move(block)); }

    /// The form whose block is being played; null outside of every block.
    [[nodiscard]] Form* form() const { return shown_.empty() ? nullptr : shown_.back().form; }
    /// False when the block has closed its form already.
    [[nodiscard]] bool isOpen() const { return !shown_.empty() && shown_.back().open; }

    void showModal(Form& form) override;
    void hide(Form& form) override;

private:
    class Showing;
    struct Shown {
        Form* form = nullptr;
        bool open = true;
        bool unanswered = false;
    };

    std::vector<ScriptLine> nextBlock(const std::string& form);
    void cancel(Form& form);
    void tell(const Shown& shown, bool opened);
    [[nodiscard]] Shown* find(const Form& form);

    EventLog& log_;
    std::function<bool(const ScriptLine&)> play_;
    std::map<std::string, std::deque<std::vector<ScriptLine>>> blocks_;
    std::vector<Shown> shown_;
};

} // namespace ko
