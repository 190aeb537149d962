#pragma once

#include "host/setup/HistoryState.h"
#include "host/setup/InstrumentEdits.h"
#include "host/setup/StepText.h"

#include <functional>
#include <string>

namespace ko {

/// The edits of a set-up as steps that can be undone and redone. A step is one edit of the user: everything
/// typed in a box from the focus to the leaving, one choice, one dialog, one cell, one instrument switched. A state is
/// what all instruments hold and what the page stores; a step leads from one state to the next. It depends on no
/// window.
class History {
public:
    /// Maximum number of steps; older ones are dropped.
    static constexpr std::size_t maximumSteps = 500;

    explicit History(StepWords words) : words_(std::move(words)) {}

    /// Begins with the present state of these instruments, which is the saved one if it `isSaved`, and no steps. `page`
    /// outlives the history or the next call of `begin` or `end`.
    void begin(const HostInstruments& drivers, Page& page, bool isSaved = true);
    /// Forgets the page and all steps.
    void end();

    /// Called after each action of the user: what has changed since the last step becomes a step. An entry in progress,
    /// a text box that Escape would change, is not finished, and waits for its end.
    void settle();
    /// Called when the focus of the page may have moved, which ends an entry in progress.
    void focusMoved();
    /// As `settle`, with an entry in progress, too. Returns whether there is a new step.
    bool finish();

    /// Changes the instruments as one step: brings each of `to` to its settings, calls `handOver` if the list differs
    /// and `rebuild` otherwise. If an instrument refuses, acts as `moveTo`. Returns whether the instruments are
    /// changed.
    bool edit(const HeldState& to);

    /// Called after the host has made the page write to the instruments, which is no edit: the present state becomes
    /// that of the present position.
    void absorb();

    /// Undoes or redoes steps until `position` steps are done: restores the settings of all instruments and what the
    /// page stores, calls `handOver` if the list differs, then calls `rebuild`. If an instrument refuses its settings,
    /// restores those that all had before and calls `refused`; nothing changes then. Returns whether the position is
    /// reached. `finish` must be called before.
    bool moveTo(std::size_t position);

    /// The texts of all steps, oldest first, and the number of steps that are done.
    [[nodiscard]] const std::vector<std::string>& steps() const { return steps_; }
    [[nodiscard]] std::size_t position() const { return position_; }

    /// Whether the user has typed in the text box that has the focus; the entry is no step yet.
    [[nodiscard]] bool hasEntryInProgress() const;

    /// Whether the present state is the saved one.
    [[nodiscard]] bool isClean() const { return clean_ == position_; }
    /// The position of the saved state; none if no step leads there.
    [[nodiscard]] std::optional<std::size_t> cleanPosition() const { return clean_; }
    /// Called when the present state has been saved, after `finish`.
    void setClean();
    /// Called after a change that is saved but is no step: only saving makes the state clean again.
    void setUnclean();

    /// How another list reaches the page.
    enum class HandOver {
        Edited,  ///< to the visible page, which clears the trigger lines
        Restored ///< to the hidden page, which is shown afterwards and writes nothing
    };
    /// Makes the host and the page take this list.
    std::function<void(const HostInstruments& drivers, HandOver how)> handOver;
    /// Called after the settings of instruments have been changed by the history, before the page reads them.
    std::function<void()> restored;
    /// Makes the page read its instruments again, keeping their trigger lines; called if it is shown. The focus is then
    /// restored.
    std::function<void()> rebuild;
    /// Called with the instrument that did not take its settings, and the reason.
    std::function<void(const std::string& instrument, const std::string& reason)> refused;
    /// Called when steps, position or the clean state may have changed.
    std::function<void()> changed;

private:
    void push(HistoryState state);
    [[nodiscard]] HistoryState presentOf(const HostInstruments& drivers) const;
    bool take(HistoryState now);
    bool restore(const HeldState& state) const;
    void showRestored(const HistoryState& target, const std::weak_ptr<int>& run);
    [[nodiscard]] const HostInstrument* startMaster(const HostInstruments& drivers) const;
    [[nodiscard]] ChannelPlace triggerAfter(const HeldState& to) const;
    bool showEdited(const HeldState& to, const std::weak_ptr<int>& run);

    StepWords words_;
    Page* page_ = nullptr;
    std::vector<HistoryState> states_; ///< one more than steps
    std::vector<std::string> steps_;
    std::size_t position_ = 0;
    std::optional<std::size_t> clean_;
    HistoryState present_;     ///< what the instruments held when last looked at
    bool isMoving_ = false;    ///< `moveTo` is in progress
    bool isTyping_ = false;    ///< an entry was in progress after the last action
    std::shared_ptr<int> run_; ///< replaced when a history begins
};

} // namespace ko
