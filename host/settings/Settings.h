#pragma once

#include "host/settings/PlayedPage.h"

#include <functional>

namespace ko {

/// The user asked for what the page does not take. The message says why.
class Refusal : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What a setting can be set to: one of the choices, or a number of the range; neither: what the page takes.
struct Offer {
    std::vector<std::string> choices;
    std::optional<Range> range;
};

/// How the user sets a setting.
struct Request {
    std::vector<std::string> script;
    Value value; ///< what the setting then reads
};

/// A setting of the page under a name that the command line knows.
struct Setting {
    std::string name;  ///< one line
    std::string label; ///< as on the page
    std::string unit;  ///< of numbers; empty: none
    /// The control that shows it now.
    std::function<Control&(Page&)> control;
    /// None where there is nothing to read. Failures reach the caller.
    std::function<Value(const PlayedPage&)> read;
    /// Empty where everything goes.
    std::function<Offer(const PlayedPage&)> offer;
    /// Empty for a setting that can only be read. Fails with a `Refusal`.
    std::function<Request(const PlayedPage&, const std::string&)> write;
    /// The page's own names for it.
    std::vector<std::string> controls;

    [[nodiscard]] Offer offered(const PlayedPage& played) const { return offer ? offer(played) : Offer{}; }
};

/// What the names of trigger parameters begin with.
inline constexpr const char* parameterPrefix = "trigger.";

using Settings = std::vector<Setting>;

// The table, section by section. What it holds may change with every setting that is set.
void addSamplingSettings(Settings& settings, const PlayedPage& played);
void addScheduleSettings(Settings& settings, const PlayedPage& played);
void addTriggerSettings(Settings& settings, const PlayedPage& played);
void addReadouts(Settings& settings, const PlayedPage& played);
Settings settingsOf(const PlayedPage& played);

/// The setting of this name, or of this control's name. Fails with an `InputError` that suggests other names, and with
/// a `Refusal` for a trigger parameter while none is shown.
Setting settingNamed(const PlayedPage& played, const std::string& name);

/// A setting and what the user wants it to be.
struct Assignment {
    Setting setting;
    std::string value;
};

/// Takes "NAME=VALUE" apart. Of several names that fit, one of which holds an equals sign, the longest counts. Fails
/// as `settingNamed` does.
Assignment assignmentIn(const PlayedPage& played, const std::string& text);

/// The present value. Fails with a `Refusal` where the page does not show one.
Value valueOf(const Setting& setting, const PlayedPage& played);

/// Sets a setting as the user does. Answers what there is to tell of it: that another value than the one asked for was
/// kept, say. Fails with a `Refusal`.
std::vector<std::string> set(const Setting& setting, PlayedPage& played, const std::string& value);

/// A caption without its mnemonic mark and colon.
std::string labelText(const CaptionControl& control);

/// The place of `value` among the choices, as they are or as they are listed. Fails with a `Refusal` that names them.
std::size_t choiceOf(const std::vector<std::string>& choices, const std::string& value);

} // namespace ko
