#pragma once

#include "host/setup/UnsavedSetup.h"

#include <functional>
#include <memory>
#include <string>

namespace ko {

/// The user's decision about unsaved changes.
enum class Unsaved { Save, Discard, Cancel };

/// The user's decision about a file that another program has changed since it was read.
enum class Conflict { Overwrite, SaveElsewhere, Reload, Cancel };

/// The questions and messages of a session to its user.
class SessionQuestions {
public:
    virtual ~SessionQuestions() = default;

    virtual Unsaved keepChanges() = 0;
    /// Returns the file to save as; empty if the user cancels.
    virtual std::string fileToSave() = 0;
    /// Asks what to do if the file to be saved to has changed since it was read.
    virtual Conflict settleConflict() = 0;
    /// Returns whether to reload a file that another program has changed; there are no unsaved changes.
    virtual bool reload() = 0;
    virtual void tellNotSaved(const std::string& reason) = 0;
    virtual void tellNotOpened(const std::string& reason) = 0;
};

/// The open set-up: its file, its instruments, and whether anything has changed since it was saved. It depends on
/// neither a window nor the page. If another set-up is opened, or the session destroyed, while it asks, it does
/// nothing.
class SetupSession {
public:
    /// Opens a file in place of the open one, without asking. Throws an `InputError` and changes nothing if the file is
    /// refused.
    void load(const std::string& file);

    /// Begins a set-up with a template in place of the open one, without asking. It has no file until it is saved.
    /// Throws an `InputError` and changes nothing if there is no such template.
    void begin(const std::string& templateName);

    /// Shows a set-up with unsaved changes in place of the open one, without asking.
    void restore(const UnsavedSetup& unsaved);
    /// The set-up with its changes.
    [[nodiscard]] UnsavedSetup unsaved() const;

    /// As `load` and `begin`, after asking. Return false if the user cancels, or if the file is refused, after a
    /// message.
    bool open(const std::string& file, SessionQuestions& questions);
    bool beginNew(const std::string& templateName, SessionQuestions& questions);
    /// Closes the set-up after asking, so that none is open. Returns false if the user cancels.
    bool close(SessionQuestions& questions);
    /// Saves to the set-up's own file or, if it has none, to one that the user names; asks if another program has
    /// changed the file. Returns false if nothing was saved; file and changed mark are then unchanged, unless the user
    /// has chosen to reload.
    bool save(SessionQuestions& questions);
    bool saveAs(SessionQuestions& questions);
    /// Returns whether the set-up may be closed, after saving its changes if the user wants that.
    bool mayLeave(SessionQuestions& questions);
    /// Offers to reload the file if another program has changed it to another set-up and there are no unsaved changes,
    /// once for each content.
    void offerReload(SessionQuestions& questions);

    /// Whether another program has changed or deleted the file since it was read or written.
    [[nodiscard]] bool hasChangedOnDisk() const;
    /// Reads the file again, without asking about changes. Shows the user the reason if it is refused.
    void reload(SessionQuestions& questions);

    /// Throws an `InputError` if the file is that of the set-up.
    void refuseOwn(const std::string& file) const;

    /// The absolute path of the set-up's own file; empty without one.
    [[nodiscard]] const std::string& file() const { return file_; }
    /// The file that the user has opened or saved last: the set-up's own or a recording; empty for a template.
    [[nodiscard]] std::string opened() const;
    /// The file's name without its folder; without a file, the template's name.
    [[nodiscard]] std::string name() const;
    /// The file from which the set-up was read: its own, a recording, or a template.
    [[nodiscard]] const std::string& source() const { return source_; }
    [[nodiscard]] const std::string& title() const { return setup_->title; }
    [[nodiscard]] const HostInstruments& drivers() const { return drivers_; }
    /// The set-up with the present values of the instruments.
    [[nodiscard]] Setup presentSetup() const;
    /// Replaces the list of instruments by an edit, which its caller marks as a change.
    void setDrivers(HostInstruments drivers) { exchange(drivers_, std::move(drivers)); }
    /// The fixed time of the set-up's clock, if it has one.
    [[nodiscard]] std::optional<DateTime> clock() const { return setup_->clock; }
    /// Whether the set-up has a file.
    [[nodiscard]] bool isOpen() const { return !file_.empty(); }
    /// Whether there is a set-up, with a file or without.
    [[nodiscard]] bool hasSetup() const { return !source_.empty() || !drivers_.empty() || changed_; }

    /// Expires when another set-up is opened or this one is closed.
    [[nodiscard]] std::weak_ptr<const void> presence() const { return setup_; }

    [[nodiscard]] bool isChanged() const { return changed_; }
    void setChanged(bool changed);

    /// Opens the devices of instruments; empty: there are none.
    std::shared_ptr<DeviceSource> devices;
    /// Returns the set-up that a file of another kind contains; none for a set-up file. The set-up then has no file
    /// until it is saved.
    std::function<std::optional<std::string>(const std::string& file)> setupInside;
    /// Returns whether another set-up may replace this one, before anything else is asked.
    std::function<bool()> mayReplace;
    /// Returns whether the page may be left as it is; shows the reason if not.
    std::function<bool()> mayLeavePage;
    /// Throws an `InputError` for a file that the program is writing as something else.
    std::function<void(const std::string& file)> checkFree;
    /// Called after the instruments of a file have replaced the others.
    std::function<void()> loaded;
    /// Called after the set-up has been saved.
    std::function<void()> saved;
    /// Called when the file's name or the changed mark may have changed.
    std::function<void()> titleChanged;

private:
    /// Returns the answer, or `none` if another set-up has been opened since the question was asked.
    template <class Ask, class Answer> Answer asked(Ask&& ask, Answer none) const
    {
        const std::weak_ptr<const Setup> about = setup_;
        Answer answer = ask();
        return about.expired() ? none : answer;
    }
    [[nodiscard]] bool pageAllows() const;
    /// Replaces the set-up by this content of a file, which is the template of this name, if one is given.
    void replace(std::string content, const std::string& source, const std::string& templateName);
    void take(const UnsavedSetup& set, bool isChanged);
    /// Loads or begins a set-up; shows the reason if that fails.
    static bool attempt(const std::function<void()>& load, const std::string& what, SessionQuestions& questions);
    bool tryLoad(const std::string& file, SessionQuestions& questions);
    bool saveElsewhere(SessionQuestions& questions);
    bool write(const std::string& file, SessionQuestions& questions);
    void writeText(const std::string& file, std::string text);

    std::string file_; ///< absolute
    std::string source_;
    std::string template_; ///< of a set-up without a file
    std::string content_;  ///< of the file, as it was read or written last
    std::string declined_; ///< a later content that the user declined to reload
    std::shared_ptr<const Setup> setup_ = std::make_shared<Setup>();
    HostInstruments drivers_;
    bool changed_ = false;
};

} // namespace ko
