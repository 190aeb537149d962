#pragma once

#include "host/settings/HeadlessPage.h"
#include "host/settings/SettingTexts.h"

#include <functional>

namespace ko {

/// The page does not accept the user's request. The message contains the reason.
class Refusal : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The values of a setting: the choices, or the numbers in the range; with neither, whatever the page accepts.
struct AllowedValues {
    std::vector<std::string> choices;
    std::optional<Range> range;
    std::string form; ///< how to write a value, if that is not obvious
};

/// The user's input that sets a setting.
struct Request {
    std::function<void(HeadlessPage&)> act; ///< enters the input
    Value value;                            ///< the value that the setting is to have afterwards
};

/// An option of the page that must be selected before a setting can be set.
struct Need {
    const char* assignment; ///< "NAME=VALUE" that selects it
    OptionButton Page::*option;
};
using Needs = std::span<const Need>;

/// Returns the assignments still to be made; empty if the page does not allow the first of them.
std::vector<std::string> missing(Needs needs, const Page& page);

/// A setting of the page with its name on the command line.
struct Setting {
    std::string name;  ///< one line
    std::string label; ///< as on the page
    std::string unit;  ///< of a number; empty: none
    /// Returns the control that shows it at present.
    std::function<Control&(Page&)> control;
    /// Returns the present value, or none. Failures reach the caller.
    std::function<Value(const HeadlessPage&)> read;
    /// Empty if the setting accepts any value.
    std::function<AllowedValues(const HeadlessPage&)> allowed;
    /// Empty for a read-only setting. Fails with a `Refusal`.
    std::function<Request(const HeadlessPage&, const std::string&)> write;
    /// What must be set before, in this order.
    Needs needs;
    /// Names of the page's controls that show it.
    std::vector<std::string> controls;

    [[nodiscard]] AllowedValues allowedOn(const HeadlessPage& played) const
    {
        return allowed ? allowed(played) : AllowedValues{};
    }
};

/// Prefix of the names of trigger parameters.
inline constexpr const char* parameterPrefix = "trigger.";

using Settings = std::vector<Setting>;

// The list of settings, by section of the page. It may change whenever a setting is set.
void addSamplingSettings(Settings& settings, const HeadlessPage& played);
void addScheduleSettings(Settings& settings, const HeadlessPage& played);
void addTriggerSettings(Settings& settings, const HeadlessPage& played);
void addReadouts(Settings& settings, const HeadlessPage& played);
Settings settingsOf(const HeadlessPage& played);

/// Finds a setting by its name or a control's name. Fails with an `InputError` that suggests similar names, and with a
/// `Refusal` for a trigger parameter while the page shows none.
Setting settingNamed(const HeadlessPage& played, const std::string& name);

/// A setting and the text that the user sets it to.
struct Assignment {
    Setting setting;
    std::string value;
};

/// Parses "NAME=VALUE". A name may contain an equals sign; the longest name that exists is taken. Fails as
/// `settingNamed` does.
Assignment assignmentIn(const HeadlessPage& played, const std::string& text);

/// Returns the present value. Fails with a `Refusal` if the page does not show one.
Value valueOf(const Setting& setting, const HeadlessPage& played);

/// Sets a setting as a user does. Returns the messages to print, for example that the instruments kept another value.
/// Fails with a `Refusal`.
std::vector<std::string> set(const Setting& setting, HeadlessPage& played, const std::string& value);

/// Returns "needs start=time".
std::string needsText(const std::vector<std::string>& assignments);
/// Returns the same with the options to add to the command line.
std::string needsAdvice(const std::vector<std::string>& assignments);

/// Returns a caption without `&` and a final colon.
std::string labelText(const CaptionControl& control);

/// Returns the index of `value` in the choices, compared as text, as `oneLine` or as a number. Fails with a `Refusal`
/// that lists the choices.
std::size_t choiceOf(const std::vector<std::string>& choices, const std::string& value);

} // namespace ko
