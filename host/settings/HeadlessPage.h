#pragma once

#include "host/scenario/HeadlessPlatform.h"
#include "host/scenario/ScenarioOptions.h"

#include "document/ClassFactory.h"

#include <functional>

namespace ko {

/// The page, shown on the instruments of a set-up without a window, and used as its user does: every input goes to the
/// `user...` members of its controls.
class HeadlessPage {
public:
    /// What came of the user's inputs.
    struct Reaction {
        std::vector<std::string> messages; ///< what the page or an instrument reported, in order
        bool inert = false;                ///< a control could not be used
    };
    using Answer = std::function<void(const DialogForms&)>;

    /// A language that cannot be understood fails (an exception).
    explicit HeadlessPage(const ScenarioOptions& options);
    ~HeadlessPage();
    HeadlessPage(const HeadlessPage&) = delete;
    HeadlessPage& operator=(const HeadlessPage&) = delete;

    /// What was reported while the page was built.
    [[nodiscard]] const std::vector<std::string>& messagesAtStart() const { return atStart_; }

    /// Runs `act`, which gives the user's inputs by the members below.
    Reaction use(const std::function<void(HeadlessPage&)>& act);
    /// Notes what became of an input.
    void give(Outcome outcome) { reaction_.inert = reaction_.inert || outcome == Outcome::Inert; }
    /// Moves the focus to the box, replaces its text and leaves it.
    void enter(TextBox& box, const std::string& text);
    /// Presses `opener` and answers the dialog that it opens. A dialog that is then still open is cancelled.
    void answer(PressControl& opener, Answer answer);

    [[nodiscard]] Page& page() const { return document_->page(); }
    [[nodiscard]] const SimulatedDrivers& drivers() const { return drivers_; }

    /// A text of the component in its language.
    [[nodiscard]] std::string text(int number) const { return component_->text(number); }

    /// The time of the set-up's clock.
    [[nodiscard]] DateTime now() { return clock_.now(); }

    /// The driver whose sampling the page edits, whose scanning it edits; null where there is none.
    [[nodiscard]] Driver* dynamicDriver() const { return driverAt(page().dynamicDriverIndex); }
    [[nodiscard]] Driver* staticDriver() const { return driverAt(page().staticDriverIndex); }

private:
    class Machine;

    [[nodiscard]] Driver* driverAt(std::int32_t index) const;

    Reaction reaction_;
    Answer answer_;
    std::vector<std::string> atStart_;
    SimulatedDrivers drivers_;
    StandingClock clock_;
    std::unique_ptr<Machine> machine_;
    std::unique_ptr<Component> component_;
    std::unique_ptr<Document> document_;
};

} // namespace ko
