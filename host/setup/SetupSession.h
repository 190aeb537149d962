#pragma once

#include "host/setup/SetupFile.h"

#include <functional>
#include <memory>
#include <string>

namespace ko {

/// What becomes of changes that were not saved.
enum class Unsaved { Save, Discard, Cancel };

/// What becomes of a file that another program has changed since it was read.
enum class Conflict { Overwrite, SaveElsewhere, Reload, Cancel };

/// What a session asks of the user.
class SessionQuestions {
public:
    virtual ~SessionQuestions() = default;

    virtual Unsaved keepChanges() = 0;
    /// The file to save as; empty when the user wants none.
    virtual std::string fileToSave() = 0;
    /// The file to be saved to is not what was read.
    virtual Conflict settleConflict() = 0;
    /// Whether to read a file anew that is not what was read; nothing has changed here.
    virtual bool reload() = 0;
    virtual void tellNotSaved(const std::string& reason) = 0;
    virtual void tellNotOpened(const std::string& reason) = 0;
};

/// The set-up that is open: its file, its instruments, and whether anything has changed since it was saved. It knows
/// neither windows nor the page. While it asks, another set-up may be opened, or the session destroyed: then nothing is
/// done.
class SetupSession {
public:
    /// Opens a file in place of what is open, without asking. Fails with an `InputError`, which leaves everything as
    /// it is.
    void load(const std::string& file);

    /// The same after asking: false when the user stays with what is open or the file is refused, of which the user
    /// has been told.
    bool open(const std::string& file, SessionQuestions& questions);
    /// Saves to the set-up's own file, or, where it has none, to one that is asked for; asks when another program has
    /// changed the file. False when nothing was saved; file and changed mark are then as they were, unless the user
    /// wanted the file read anew.
    bool save(SessionQuestions& questions);
    bool saveAs(SessionQuestions& questions);
    /// Whether the set-up may be put away; its changes are saved first where the user wants that.
    bool mayLeave(SessionQuestions& questions);
    /// Offers to read the file anew when another program has changed it to another set-up and nothing has changed here,
    /// once for each such content.
    void offerReload(SessionQuestions& questions);

    /// Fails with an `InputError` when the file is that of the set-up.
    void refuseOwn(const std::string& file) const;

    [[nodiscard]] const std::string& file() const { return file_; }
    /// The file's name without its folder.
    [[nodiscard]] std::string name() const;
    [[nodiscard]] const std::string& title() const { return setup_->title; }
    [[nodiscard]] const SimulatedDrivers& drivers() const { return drivers_; }
    /// The time at which the set-up's clock stands, if it does.
    [[nodiscard]] std::optional<DateTime> clock() const { return setup_->clock; }
    [[nodiscard]] bool isOpen() const { return !file_.empty(); }

    [[nodiscard]] bool isChanged() const { return changed_; }
    void setChanged(bool changed);

    /// Whether the page that shows the instruments may be left as it stands; when it may not, it has said why.
    std::function<bool()> mayLeavePage;
    /// Fails with an `InputError` for a file that the program is writing as something else.
    std::function<void(const std::string& file)> checkFree;
    /// Called after the instruments of a file have replaced the others.
    std::function<void()> loaded;
    /// Told when the file's name or the changed mark may have become another.
    std::function<void()> titleChanged;

private:
    /// An answer counts for the set-up that was open when the question was asked, and is `none` for any other.
    template <class Ask, class Answer> Answer asked(Ask&& ask, Answer none) const
    {
        const std::weak_ptr<const Setup> about = setup_;
        Answer answer = ask();
        return about.expired() ? none : answer;
    }
    [[nodiscard]] bool pageAllows() const;
    bool tryLoad(const std::string& file, SessionQuestions& questions);
    bool saveElsewhere(SessionQuestions& questions);
    bool write(const std::string& file, SessionQuestions& questions);

    std::string file_;
    std::string content_;  ///< of the file, as it was read or written last
    std::string declined_; ///< a later one that the user did not want
    std::shared_ptr<const Setup> setup_ = std::make_shared<Setup>();
    SimulatedDrivers drivers_;
    bool changed_ = false;
};

} // namespace ko
