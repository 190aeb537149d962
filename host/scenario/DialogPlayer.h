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

/// Shows a form by playing the script's next block for it, which holds the user's input. Blocks queue up by form. A
/// form without a block, or still open at the end of its block, is cancelled.
class DialogPlayer final : public ModalForms {
public:
    /// `play` runs one line of a block; it must not throw, and returns false to stop the block. `log` outlives the
    /// player.
    DialogPlayer(EventLog& log, std::function<bool(const ScriptLine&)> play) : log_(log), play_(std::move(play)) {}

    /// Queues a block for the form with this name. The last line of the block is `end`.
    void queue(const std::string& form, std::vector<ScriptLine> block) { blocks_[form].push_back(std::move(block)); }

    /// Returns the form whose block is being played, or null.
    [[nodiscard]] Form* form() const { return shown_.empty() ? nullptr : shown_.back().form; }
    /// Returns whether a form is shown that its block has not closed.
    [[nodiscard]] bool isOpen() const { return !shown_.empty() && shown_.back().open; }

    void showModal(Form& form) override;
    void hide(Form& form) override;

private:
    class Showing;
    struct Shown {
        Form* form = nullptr;
        bool open = true;
        bool unanswered = false; ///< cancelled by the player, not by its block
    };

    std::vector<ScriptLine> nextBlock(const std::string& form);
    void cancel(Form& form);
    void logChange(const Shown& shown, bool opened);
    [[nodiscard]] Shown* find(const Form& form);

    EventLog& log_;
    std::function<bool(const ScriptLine&)> play_;
    std::map<std::string, std::deque<std::vector<ScriptLine>>> blocks_;
    std::vector<Shown> shown_;
};

} // namespace ko
