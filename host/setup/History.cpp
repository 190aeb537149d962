#include "host/setup/History.h"

#include <algorithm>
#include <unordered_map>

namespace ko {

namespace {

/// Returns to settings that the instrument had before a restore that failed.
void putBack(HostInstrument& driver, const InstrumentSettings& settings)
{
    try {
        driver.restore(settings);
    } catch (const Failure&) {
        // Only the failure of the step is shown to the user.
        return;
    }
}

} // namespace

HeldState HeldState::present(const HostInstruments& drivers, const HeldState& like)
{
    const bool isSameList = drivers == like.drivers;
    std::unordered_map<const HostInstrument*, Settings> known;
    for (std::size_t i = 0; i < like.drivers.size() && !isSameList; ++i)
        known.emplace(like.drivers[i].get(), like.settings[i]);
    HeldState state{drivers, {}};
    state.settings.reserve(drivers.size());
    for (std::size_t i = 0; i < drivers.size(); ++i) {
        const InstrumentSettings& held = drivers[i]->held();
        const Settings before = isSameList ? like.settings[i] : known[drivers[i].get()];
        state.settings.push_back(before && *before == held ? before : std::make_shared<const InstrumentSettings>(held));
    }
    return state;
}

void History::begin(const HostInstruments& drivers, Page& page, bool isSaved)
{
    page_ = &page;
    present_ = {HeldState::present(drivers, {}), StoredSettings::of(page)};
    states_ = {present_};
    steps_.clear();
    position_ = 0;
    clean_ = isSaved ? std::optional<std::size_t>(0) : std::nullopt;
    run_ = std::make_shared<int>();
    isTyping_ = isMoving_ = page.isRestored = false;
    raise(changed);
}

void History::end()
{
    page_ = nullptr;
    run_.reset();
    present_ = {};
    states_.clear();
    steps_.clear();
    position_ = 0;
    clean_.reset();
    isTyping_ = isMoving_ = false;
}

void History::absorb()
{
    if (!page_ || isMoving_)
        return;
    HistoryState now = presentOf(present_.drivers);
    if (clean_ == position_ && !now.hasSameInstruments(states_[position_]))
        clean_.reset();
    present_ = states_[position_] = std::move(now);
    raise(changed);
}

bool History::hasEntryInProgress() const
{
    const auto* const box = page_ ? dynamic_cast<const TextBox*>(page_->activeControl()) : nullptr;
    return box && box->isEdited();
}

void History::settle()
{
    isTyping_ = hasEntryInProgress();
    if (!isTyping_)
        finish();
}

/// An action may leave the box and then do something else, which is another step.
void History::focusMoved()
{
    if (isTyping_ && page_ && !page_->isLoading && !hasEntryInProgress())
        settle();
}

bool History::finish()
{
    return page_ && !isMoving_ && take(presentOf(present_.drivers));
}

HistoryState History::presentOf(const HostInstruments& drivers) const
{
    return {HeldState::present(drivers, present_), StoredSettings::of(*page_)};
}

/// What differs from the state last looked at is a step. Returns whether anything does.
bool History::take(HistoryState now)
{
    const bool isChannelChosen = now.stored.triggerSlot != present_.stored.triggerSlot ||
                                 now.stored.triggerChannel != present_.stored.triggerChannel;
    const bool isStep = !now.hasSameInstruments(present_) || isChannelChosen;
    if (isStep)
        push(std::move(now));
    else
        states_[position_].stored = now.stored;
    raise(changed);
    return isStep;
}

/// Steps that were undone cannot be redone after another edit.
void History::push(HistoryState state)
{
    const auto done = static_cast<std::ptrdiff_t>(position_);
    steps_.erase(steps_.begin() + done, steps_.end());
    states_.erase(states_.begin() + done + 1, states_.end());
    if (clean_ && *clean_ > position_)
        clean_.reset();
    steps_.push_back(stepText(present_, state, words_));
    present_ = state;
    states_.push_back(std::move(state));
    ++position_;
    if (steps_.size() <= maximumSteps)
        return;
    steps_.erase(steps_.begin());
    states_.erase(states_.begin());
    --position_;
    if (clean_)
        clean_ = *clean_ > 0 ? std::optional(*clean_ - 1) : std::nullopt;
}

/// Calls of drivers and messages of the page may end the document or open another set-up, and so the history.
bool History::moveTo(std::size_t position)
{
    if (!page_ || isMoving_ || position > steps_.size())
        return false;
    const std::weak_ptr<int> run = run_;
    isMoving_ = true;
    const HistoryState target = states_[position];
    const bool isRestored = restore(target);
    if (run.expired())
        return false;
    if (isRestored) {
        position_ = position;
        showRestored(target, run);
        if (run.expired())
            return false;
        present_ = {HeldState::present(target.drivers, target), StoredSettings::of(*page_)};
        if (clean_ == position_ && !present_.hasSameInstruments(target))
            clean_.reset();
    }
    isMoving_ = false;
    raise(changed);
    return isRestored;
}

void History::showRestored(const HistoryState& target, const std::weak_ptr<int>& run)
{
    Control* const focused = page_->activeControl();
    const bool isShown = page_->isShown;
    if (target.drivers != present_.drivers)
        handOver(target.drivers, HandOver::Restored);
    else
        raise(restored);
    if (run.expired())
        return;
    target.stored.putOn(*page_);
    if (!isShown)
        return;
    page_->isRestored = true;
    raise(rebuild);
    if (run.expired())
        return;
    page_->isRestored = false;
    if (focused && page_->activeControl() != focused)
        page_->moveFocus(focused);
}

bool History::restore(const HeldState& state) const
{
    std::vector<std::pair<HostInstrument*, InstrumentSettings>> before;
    for (std::size_t i = 0; i < state.drivers.size(); ++i) {
        HostInstrument& driver = *state.drivers[i];
        if (driver.held() == *state.settings[i])
            continue;
        before.emplace_back(&driver, driver.held());
        try {
            driver.restore(*state.settings[i]);
        } catch (const Failure& failure) {
            for (const auto& [other, held] : before)
                putBack(*other, held);
            if (run_ && refused)
                refused(driver.name(), failure.what());
            return false;
        }
    }
    return true;
}

void History::setClean()
{
    clean_ = position_;
    raise(changed);
}

void History::setUnclean()
{
    clean_.reset();
    raise(changed);
}

} // namespace ko
