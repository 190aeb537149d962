#pragma once

#include "document/ClassFactory.h"
#include "host/instruments/DriverWatch.h"
#include "host/scenario/DialogPlayer.h"
#include "host/scenario/HeadlessPlatform.h"
#include "host/scenario/ScenarioOptions.h"
#include "host/setup/History.h"

#include <iosfwd>
#include <memory>
#include <string>

namespace ko {

struct Command;

/// Runs a script: owns the component, a simulated machine and host that log events, and the state that commands change.
/// Everything that the page does is written to the log.
class Scenario {
public:
    /// `output` outlives the scenario. Throws if the content of the language file is invalid.
    Scenario(const ScenarioOptions& options, std::ostream& output);
    ~Scenario();

    /// Runs the script to its end, or until its output cannot be written. Returns false if an expectation failed.
    /// Throws a `ScriptFault` at the first invalid line.
    bool run(std::istream& script);

    // The members below are for commands.

    /// Throws a `ScriptFault` with the line that is being run.
    [[noreturn]] void refuse(const std::string& what) const;

    EventLog log;
    DialogPlayer dialogs;
    LoggedMessageBox messageBox{log};
    PlainClipboard clipboard;
    SimulatedPrinters printers{log};
    SimulatedScreen screen;
    StandingClock clock;
    DriverWatch watch{[this] { return clock.now(); }};

    /// The edits of the script's user.
    History history{
        {[this](int number) { return text(number); }, [this]() -> const Locale& { return platform_->locale; }}};

    /// Writes to drivers are logged unless `quiet` is set; reads only if `showReads` is.
    bool quiet = false;
    bool showReads = false;
    bool expectationFailed = false;
    bool mayRecord = true; ///< see `ScenarioOptions`

    /// Runs a call of the host that may rebuild the page; see `DriverHealth::rebuild`. What the page then writes is no
    /// edit.
    void rebuild(const std::function<void()>& call);

    [[nodiscard]] const SimulatedDrivers& drivers() const { return drivers_; }
    [[nodiscard]] DriverList driverList(std::size_t count) const;
    /// Returns the driver with this index or name; a fault if there is none.
    [[nodiscard]] SimulatedDriver& driver(const std::string& word) const;
    [[nodiscard]] const std::string& title() const { return title_; }
    /// Returns the path of a file that the script names.
    [[nodiscard]] std::string path(const std::string& file) const;
    /// Loads the instruments, title and clock of another set-up file.
    void loadSetup(const std::string& file);

    /// Returns a text of the component in its language.
    [[nodiscard]] std::string text(int number) const { return component_->text(number); }

    /// Returns the document; a fault after `terminate`.
    [[nodiscard]] Document& document() const;
    void makeDocument();
    void terminate();
    /// Changes the machine's regional settings and makes a new document with them.
    void setLocale(const Locale& locale);

    /// Returns the form in front of the user: the open dialog, or the page.
    [[nodiscard]] Form& form() const;
    /// Returns false if the page is hidden or the dialog closed, so that the user cannot reach its controls.
    [[nodiscard]] bool isFormShown() const;
    /// Returns the control of `form()` with this name; a fault if there is none.
    [[nodiscard]] Control& control(const std::string& name) const;

    /// Where a command appears.
    enum class Place {
        Script, ///< outside of blocks
        Dialog, ///< in the block of a dialog
        During  ///< in a block that runs inside a call of the page
    };
    /// Reads the lines up to `end` and checks each as far as possible before it is run.
    std::vector<ScriptLine> readBlock(Place place);
    /// Runs such a block inside a call. Does not throw.
    void playDuring(const std::vector<ScriptLine>& block);

private:
    [[nodiscard]] bool logs(Operation operation) const;
    void logCall(std::size_t index, const DriverCall& call);
    void takeSetup(const Setup& setup);
    void makeComponent();
    void execute(const ScriptLine& line);
    void tellNotRestored(const std::string& instrument, const std::string& reason);
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
    bool isDuring_ = false; ///< a block is running inside a call
    std::optional<ScriptFault> faultInBlock_;
};

} // namespace ko
