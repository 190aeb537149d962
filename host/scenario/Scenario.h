#pragma once

#include "host/scenario/DialogPlayer.h"
#include "host/scenario/HeadlessPlatform.h"
#include "host/scenario/ScenarioOptions.h"
#include "host/scenario/ScenarioStage.h"

#include <iosfwd>
#include <memory>
#include <string>

namespace ko {

struct Command;

/// Runs a script on a stage: has the simulated machine and the log, and the state that commands change. Everything that
/// a page without a window does is written to the log.
class Scenario {
public:
    /// Makes a page without a window. `output` outlives the scenario. Throws if the content of the language file is
    /// invalid.
    Scenario(const ScenarioOptions& options, std::ostream& output);
    /// Acts on this page. `folder` is the base of the script's relative paths. `stage` and `output` outlive the
    /// scenario.
    Scenario(ScenarioStage& stage, std::string folder, std::ostream& output);
    ~Scenario();

    /// Runs the script to its end, until the stage ends it, or until its output cannot be written. Returns false if an
    /// expectation failed. Throws a `ScriptFault` at the first invalid line.
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

    /// Writes to drivers are logged unless `quiet` is set; reads only if `showReads` is.
    bool quiet = false;
    bool showReads = false;
    bool expectationFailed = false;
    bool mayRecord = true;                                  ///< see `ScenarioOptions`
    std::function<void(const std::string& file)> refuseOwn; ///< see `ScenarioOptions`
    bool skipsRecordings = false;                           ///< `record` has no effect

    /// Runs a call of the host that may rebuild the page; see `DriverHealth::rebuild`. What the page then writes is no
    /// edit.
    void rebuild(const std::function<void()>& call);

    [[nodiscard]] ScenarioStage& stage() const { return *stage_; }
    /// The edits of the script's user.
    [[nodiscard]] History& history() const { return stage_->history(); }
    [[nodiscard]] DriverHealth& health() const { return stage_->health(); }
    [[nodiscard]] const HostInstruments& drivers() const { return stage_->drivers(); }
    [[nodiscard]] DriverList driverList(std::size_t count) const;
    /// Returns the driver with this index or name; a fault if there is none.
    [[nodiscard]] HostInstrument& driver(const std::string& word) const;
    [[nodiscard]] const std::string& title() const { return stage_->title(); }
    /// Returns the path of a file that the script names.
    [[nodiscard]] std::string path(const std::string& file) const;

    /// Returns a text of the component in its language.
    [[nodiscard]] std::string text(int number) const { return stage_->text(number); }

    /// Returns the document; a fault after `terminate`.
    [[nodiscard]] Document& document() const;

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

    /// Expires with the scenario.
    [[nodiscard]] std::weak_ptr<const int> life() const { return life_; }

private:
    void join();
    void execute(const ScriptLine& line);
    void tellNotRestored(const std::string& instrument, const std::string& reason);
    const Command& understood(const ScriptLine& line, Place place) const;
    bool playLine(const ScriptLine& line);

    std::string folder_;
    std::unique_ptr<ScenarioStage> own_; ///< unless the scenario acts on another's
    ScenarioStage* stage_;
    ScriptReader* reader_ = nullptr;
    bool isDuring_ = false; ///< a block is running inside a call
    bool isEnded_ = false;  ///< by the stage
    std::optional<ScriptFault> faultInBlock_;
    std::shared_ptr<const int> life_ = std::make_shared<int>();
};

} // namespace ko
