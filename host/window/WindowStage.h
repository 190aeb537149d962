#pragma once

#include "host/scenario/ScenarioStage.h"
#include "widgets/support/UserActions.h"

class QMainWindow;

namespace ko {

class FrameDocks;
class FrameFiles;
class FrameHistory;
class PageHost;
struct FrameParts;

/// The parts of the window that a replay uses. All of them must outlive it, except that the window may be destroyed
/// while a scenario is played.
struct ReplayFrame {
    QMainWindow& window;
    const UserActions& actions;
    std::shared_ptr<FrameParts> parts;
    FrameFiles& files;
    PageHost& page;
    FrameDocks& docks;
    FrameHistory& history;
    std::function<void()> setupLoaded;  ///< shows the set-up, but does not hand its instruments over to the page
    std::function<void()> showReadOnly; ///< shows in the menu whether the page is read-only
};

/// The page of a window as the stage of a scenario. It ends the script if another set-up is opened, the page replaced,
/// or the window destroyed.
class WindowStage final : public ScenarioStage {
public:
    /// Called after each line with its number, and whether it is an action that the user watches. Returns false to end
    /// the script. May wait.
    using Proceed = std::function<bool(int line, bool isWatched)>;

    WindowStage(const ReplayFrame& frame, Proceed proceed);
    /// Shows the window's set-up on the page again if the script has left another list there.
    ~WindowStage() override;

    Document* document() override;
    [[nodiscard]] const HostInstruments& drivers() const override;
    [[nodiscard]] std::shared_ptr<DeviceSource> devices() const override;
    [[nodiscard]] const std::string& title() const override;
    [[nodiscard]] std::string text(int number) const override;
    History& history() override;
    DriverHealth& health() override;

    /// Opens the file as the user does, without asking.
    void loadSetup(const std::string& file) override;
    void setupShown() override;
    /// The window's site stays.
    void setSite(const std::shared_ptr<ClientSite>&) override {}
    // A window keeps its document, and plays only scripts for its own regional settings.
    void makeDocument() override {}
    void terminate() override {}
    [[nodiscard]] const Locale& locale() const override;
    void setLocale(const Locale&) override {}

    bool lineDone(const ScriptLine& line) override;
    [[nodiscard]] bool isOver() const override;

private:
    void follow(const ScriptLine& line);
    void showWhole();

    const ReplayFrame& frame_;
    Proceed proceed_;
    UserActions::Action action_;
    const Document* document_;
    std::weak_ptr<const void> setup_;
    std::function<void(const std::string&, const std::string&)> refused_; ///< the window's own
    std::optional<DateTime> clock_;                                       ///< set by the script
    bool isLoaded_ = false; ///< a file has been loaded and not been shown yet
};

} // namespace ko
