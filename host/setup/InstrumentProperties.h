#pragma once

#include "host/instruments/InstrumentSettings.h"
#include "host/setup/PropertyText.h"

#include <memory>
#include <stdexcept>

namespace ko {

/// Thrown for properties that a set-up file could not have. Its text is that of the file's refusal: "must be a number".
class PropertyRefusal : public std::runtime_error {
public:
    PropertyRefusal(std::string path, const std::string& what) : std::runtime_error(what), path_(std::move(path)) {}

    /// The member's path in its instrument: "timebase.samplePeriod.choices[2]".
    [[nodiscard]] const std::string& path() const { return path_; }

private:
    std::string path_;
};

/// The description of a simulated instrument as texts that the user edits, each under the path of its member in set-up
/// files: "groups[0].channels[1].signal.frequency". What is not edited stays exactly as it is, and what is missing
/// stays missing. It depends on no window.
class InstrumentProperties {
public:
    InstrumentProperties(const InstrumentSettings& settings, Locale locale);
    ~InstrumentProperties();
    InstrumentProperties(const InstrumentProperties&) = delete;
    InstrumentProperties& operator=(const InstrumentProperties&) = delete;

    /// Returns the text of a member; of a missing one that of its default, if it has one.
    [[nodiscard]] std::string text(const std::string& path, TextForm form) const;
    /// Takes any text; `settings` refuses those that mean nothing. Changes nothing if it is the text that is shown.
    void setText(const std::string& path, TextForm form, const std::string& text);

    [[nodiscard]] bool flag(const std::string& path) const { return text(path, TextForm::Flag) == "true"; }
    void setFlag(const std::string& path, bool on) { setText(path, TextForm::Flag, on ? "true" : "false"); }

    /// Whether the instrument has this view, "timebase" or "triggerLines". A view that is switched on again is as it
    /// was before.
    [[nodiscard]] bool has(const std::string& view) const;
    void setHas(const std::string& view, bool on);

    /// The trigger parameters of the channel with this path. The value of a parameter has the form of its type.
    [[nodiscard]] std::size_t parameterCount(const std::string& channel) const;
    [[nodiscard]] TextForm parameterForm(const std::string& parameter, const std::string& key) const;
    /// As `setText`; a value means what it means in a new type.
    void setParameter(const std::string& parameter, const std::string& key, const std::string& text);
    /// Adds a number with an id that no other parameter of the channel has.
    void addParameter(const std::string& channel, const std::string& name);
    void removeParameter(const std::string& channel, std::size_t index);

    /// Returns the instrument, read as from a set-up file. Throws a `PropertyRefusal` for the first invalid member.
    [[nodiscard]] InstrumentSettings settings() const;

private:
    using Json = nlohmann::ordered_json;

    [[nodiscard]] const Json& held(const std::string& path) const;
    [[nodiscard]] Json& parametersOf(const std::string& channel);

    Locale locale_;
    std::unique_ptr<Json> description_; ///< in the form of set-up files, with what was typed
    std::unique_ptr<Json> defaults_;    ///< of what may be missing
    std::unique_ptr<Json> switchedOff_; ///< views, by their keys
};

/// Returns the path of a channel in its instrument.
/// Returns the path of an option of a device.
std::string optionPath(const std::string& name);

std::string channelPath(std::size_t group, std::size_t channel);
/// Returns the path of a trigger parameter of the channel with this path.
std::string parameterPath(const std::string& channel, std::size_t index);

} // namespace ko
