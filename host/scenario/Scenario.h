#pragma once

#include "document/ClassFactory.h"
#include "host/instruments/DriverWatch.h"
#include "host/scenario/DialogPlayer.h"
#include "host/scenario/HeadlessPlatform.h"
#include "host/scenario/ScenarioOptions.h"

#include <iosfwd>
#include <memory>
#include <string>

namespace ko {

struct Command;

/// A run of a script: the component with a machine and a host around it that exist only as events, and the state that
/// commands work on. Everything the page does on the way is written to the log.
class Scenario {
public:
    /// `output` outlives the scenario. A language that cannot be understood fails (an exception).
    Scenario(const ScenarioOptions& options, std::ostream& output);
    ~Scenario();

    /// Runs the script to its end, or to where its output cannot be written; false when an expectation failed. A line
    /// that cannot be understood ends the run with a `ScriptFault`.
    bool run(std::istream& script);

    // What commands use from here on. A fault of the line being run:
    [[noreturn]] void refuse(const std::string& what) const;

    EventLog log;
    DialogPlayer dialogs;
    LoggedMessageBox messageBox{log};
    PlainClipboard clipboard;
    SimulatedPrinters printers{log};
    SimulatedScreen screen;
    StandingClock clock;
    DriverWatch watch{[this] { return clock.now(); }};

    /// Writes are logged unless the script wants quiet; reads only where it asks for them.
    bool quiet = false;
    bool showReads = false;
    bool expectationFailed = false;

    /// Runs a host's call that may rebuild the page; see `DriverHealth::rebuild`.
    void rebuild(const std::function<void()>& call);

    [[nodiscard]] const SimulatedDrivers& drivers() const { return drivers_; }
    [[nodiscard]] DriverList driverList(std::size_t count) const;
    /// The driver of this index or name; a fault when there is none.
    [[nodiscard]] SimulatedDriver& driver(const std::string& word) const;
    [[nodiscard]] const std::string& title() const { return title_; }
    /// Takes another set-up file's instruments, title and clock.
    void loadSetup(const std::string& file);

    /// A text of the component in its language.
    [[nodiscard]] std::string text(int number) const { return component_->text(number); }

    /// The document; a fault when it has been terminated.
    [[nodiscard]] Document& document() const;
    void makeDocument();
    void terminate();
    /// Gives the machine other regional settings, and makes a document that follows them.
    void setLocale(const Locale& locale);

    /// The form that the user sees in front: the open dialog, else the page.
    [[nodiscard]] Form& form() const;
    /// False when the page is hidden or the dialog closed: the user cannot reach its controls.
    [[nodiscard]] bool isFormShown() const;
    /// The control of that form; a fault when there is none.
    [[nodiscard]] Control& control(const std::string& name) const;

    /// Where a command is given.
    enum class Place {
        Script, ///< on its own
        Dialog, ///< by the user of an open dialog
        During  ///< by the host inside a call that the page makes
    };
    /// The lines up to `end`, each checked as far as it can be before it is run.
    std::vector<ScriptLine> readBlock(Place place);
    /// Runs such a block inside a call; it does not throw.
    void playDuring(const std::vector<ScriptLine>& block);

private:
    [[nodiscard]] bool logs(Operation operation) const;
    void logCall(std::size_t index, const DriverCall& call);
    void takeSetup(const Setup& setup);
    void makeComponent();
    void execute(const ScriptLine& line);
    const Command& understood(const ScriptLine& line, Place place) const;
    bool playLine(const ScriptLine& line);

    std::string folder_;
    std::string language_;
    std::string title_;
    LoggedChanges changes_{log};
    SimulatedDrivers drivers_;
    std::unique_ptr<Platform> platform_;
    std::unique_ptr<Component> component_;
    std::unique_ptr<Document> document_;
    ScriptReader* reader_ = nullptr;
    bool isDuring_ = false; ///< a block inside a call is played
    std::optional<ScriptFault> faultInBlock_;
};

} // namespace ko
