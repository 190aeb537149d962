#pragma once

#include "host/scenario/HeadlessPlatform.h"
#include "host/scenario/ScenarioOptions.h"

#include "document/ClassFactory.h"

#include <functional>

namespace ko {

/// The page of a set-up without a window. All input goes through the `user...` members of its controls, as a user's
/// does.
class HeadlessPage {
public:
    /// The result of the user's inputs.
    struct Reaction {
        std::vector<std::string> messages; ///< messages and error reports of the page, in order
        bool inert = false;                ///< a control was disabled, hidden or locked
    };
    using Answer = std::function<void(const DialogForms&)>;

    /// Throws if the content of the language file is invalid.
    explicit HeadlessPage(const ScenarioOptions& options);
    ~HeadlessPage();
    HeadlessPage(const HeadlessPage&) = delete;
    HeadlessPage& operator=(const HeadlessPage&) = delete;

    /// Returns what was reported while the page was built.
    [[nodiscard]] const std::vector<std::string>& messagesAtStart() const { return atStart_; }

    /// Runs `act`, which enters the user's inputs by the members below, and returns the result of all of them.
    Reaction use(const std::function<void(HeadlessPage&)>& act);
    /// Records the outcome of an input.
    void give(Outcome outcome) { reaction_.inert = reaction_.inert || outcome == Outcome::Inert; }
    /// Moves the focus to the box, replaces its text and leaves the box.
    void enter(TextBox& box, const std::string& text);
    /// Presses `opener` and calls `answer` in the dialog that it opens. Cancels the dialog if it is still open
    /// afterwards.
    void answer(PressControl& opener, Answer answer);

    void setReadOnly(bool on) { document_->mode().setReadOnly(on); }

    [[nodiscard]] Page& page() const { return document_->page(); }
    [[nodiscard]] const HostInstruments& drivers() const { return drivers_; }

    /// Returns a text of the component in its language.
    [[nodiscard]] std::string text(int number) const { return component_->text(number); }

    /// Returns the time of the set-up's clock.
    [[nodiscard]] DateTime now() { return clock_.now(); }

    /// The driver whose sampling the page edits; null if there is none.
    [[nodiscard]] Driver* dynamicDriver() const { return driverAt(page().dynamicDriverIndex); }

private:
    class Machine;

    [[nodiscard]] Driver* driverAt(std::int32_t index) const;

    Reaction reaction_;
    Answer answer_;
    std::vector<std::string> atStart_;
    HostInstruments drivers_;
    StandingClock clock_;
    std::unique_ptr<Machine> machine_;
    std::unique_ptr<Component> component_;
    std::unique_ptr<Document> document_;
};

} // namespace ko
