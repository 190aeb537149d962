#pragma once

#include "host/scenario/Scenario.h"
#include "host/settings/SettingTexts.h"

#include <sstream>

namespace ko {

/// The page, shown on the instruments of a set-up without a window, and used by its user's doors: what the user does
/// are commands of the scenario language.
class PlayedPage {
public:
    /// What came of it.
    struct Outcome {
        std::vector<std::string> told; ///< what the page or an instrument said, in order
        bool inert = false;            ///< a control could not be used
    };

    /// A language that cannot be understood fails (an exception).
    explicit PlayedPage(const ScenarioOptions& options);

    /// What was said while the page was built.
    [[nodiscard]] const std::vector<std::string>& toldAtStart() const { return start_.told; }

    Outcome play(const std::vector<std::string>& lines);

    [[nodiscard]] Page& page() const { return scenario_.document().page(); }
    [[nodiscard]] const SimulatedDrivers& drivers() const { return scenario_.drivers(); }

    /// A text of the component in its language.
    [[nodiscard]] std::string text(int number) const { return scenario_.text(number); }

    /// The time of the set-up's clock.
    [[nodiscard]] DateTime now() { return scenario_.clock.now(); }

    /// The driver whose sampling the page edits, whose scanning it edits; null where there is none.
    [[nodiscard]] Driver* dynamicDriver() const { return driverAt(page().dynamicDriverIndex); }
    [[nodiscard]] Driver* staticDriver() const { return driverAt(page().staticDriverIndex); }

private:
    [[nodiscard]] Driver* driverAt(std::int32_t index) const;

    std::ostringstream events_;
    Scenario scenario_;
    Outcome start_;
};

} // namespace ko
