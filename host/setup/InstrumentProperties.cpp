#include "host/setup/InstrumentProperties.h"

#include "host/setup/SetupReader.h"
#include "host/setup/SetupWriter.h"
#include "interfaces/InternalParameters.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace ko {

namespace {

using Pointer = nlohmann::ordered_json::json_pointer;

constexpr std::string_view optionPrefix = "options.";

/// Converts "groups[0].name" to "/groups/0/name". The name of an option may be any text.
Pointer pointerTo(const std::string& path)
{
    if (path.starts_with(optionPrefix))
        return Pointer("/options") / path.substr(optionPrefix.size());
    std::string pointer = "/";
    for (const char c : path)
        if (c != ']')
            pointer += c == '.' || c == '[' ? '/' : c;
    return Pointer(pointer);
}

/// Returns the instrument with the default of every member that has one. Trigger parameters have none.
InstrumentSettings withDefaults(InstrumentSettings settings)
{
    settings.timebase = TimebaseSettings();
    settings.triggerLines = TriggerLineSettings();
    for (GroupSettings& group : settings.groups)
        for (ChannelSettings& channel : group.channels) {
            channel.triggerParameters.clear();
            channel.range = {};
            channel.unit = "V";
            channel.signal = SignalSettings();
        }
    return settings;
}

} // namespace

InstrumentProperties::InstrumentProperties(const InstrumentSettings& settings, Locale locale)
    : locale_(std::move(locale)), description_(std::make_unique<Json>(toJson(settings))),
      defaults_(std::make_unique<Json>(toJson(withDefaults(settings)))),
      switchedOff_(std::make_unique<Json>(Json::object()))
{
}

InstrumentProperties::~InstrumentProperties() = default;

const InstrumentProperties::Json& InstrumentProperties::held(const std::string& path) const
{
    static const Json none;
    const Pointer pointer = pointerTo(path);
    const Json& holder = description_->contains(pointer) ? *description_ : *defaults_;
    return holder.contains(pointer) ? holder.at(pointer) : none;
}

std::string InstrumentProperties::text(const std::string& path, TextForm form) const
{
    return propertyText(held(path), form, locale_);
}

void InstrumentProperties::setText(const std::string& path, TextForm form, const std::string& text)
{
    if (text == this->text(path, form))
        return;
    const Pointer pointer = pointerTo(path);
    Json member = propertyMember(text, form, locale_, held(path));
    if (!member.is_discarded())
        (*description_)[pointer] = std::move(member);
    else if (description_->contains(pointer))
        description_->at(pointer.parent_pointer()).erase(pointer.back());
}

bool InstrumentProperties::has(const std::string& view) const
{
    return description_->contains(view);
}

void InstrumentProperties::setHas(const std::string& view, bool on)
{
    if (on == has(view))
        return;
    if (on) {
        (*description_)[view] = (switchedOff_->contains(view) ? *switchedOff_ : *defaults_).at(view);
    } else {
        (*switchedOff_)[view] = description_->at(view);
        description_->erase(view);
    }
}

InstrumentProperties::Json& InstrumentProperties::parametersOf(const std::string& channel)
{
    return description_->at(pointerTo(channel) / "triggerParameters");
}

std::size_t InstrumentProperties::parameterCount(const std::string& channel) const
{
    return held(channel + ".triggerParameters").size();
}

TextForm InstrumentProperties::parameterForm(const std::string& parameter, const std::string& key) const
{
    if (key == "value")
        return valueForm(text(parameter + ".type", TextForm::Text));
    if (key == "id")
        return TextForm::Number;
    if (key == "min" || key == "max")
        return TextForm::OptionalNumber;
    if (key == "choices")
        return TextForm::Words;
    return key == "role" ? TextForm::Name : TextForm::Text;
}

void InstrumentProperties::setParameter(const std::string& parameter, const std::string& key, const std::string& text)
{
    const std::string value = this->text(parameter + ".value", parameterForm(parameter, "value"));
    setText(parameter + "." + key, parameterForm(parameter, key), text);
    if (key != "type")
        return;
    const TextForm form = parameterForm(parameter, "value");
    (*description_)[pointerTo(parameter + ".value")] = propertyMember(value, form, locale_, held(parameter + ".value"));
}

void InstrumentProperties::addParameter(const std::string& channel, const std::string& name)
{
    Json& parameters = parametersOf(channel);
    std::int32_t id = 1;
    const auto hasId = [&](const Json& parameter) { return parameter.contains("id") && parameter.at("id") == id; };
    while (isInternalParameter(id) || std::any_of(parameters.begin(), parameters.end(), hasId))
        ++id;
    parameters.push_back({{"id", id}, {"name", name}, {"type", "Float"}, {"value", 0}});
}

void InstrumentProperties::removeParameter(const std::string& channel, std::size_t index)
{
    parametersOf(channel).erase(index);
}

InstrumentSettings InstrumentProperties::settings() const
{
    const JsonValue json = parseJson(description_->dump(), "");
    try {
        return readInstrument(json);
    } catch (const JsonRefusal& refusal) {
        const std::string whole = placeOf(refusal.value(), json).path + refusal.what();
        const std::size_t colon = whole.find(": ");
        throw PropertyRefusal(whole.substr(2, colon - 2), whole.substr(colon + 2));
    }
}

std::string optionPath(const std::string& name)
{
    return std::string(optionPrefix) + name;
}

std::string channelPath(std::size_t group, std::size_t channel)
{
    return "groups[" + std::to_string(group) + "].channels[" + std::to_string(channel) + "]";
}

std::string parameterPath(const std::string& channel, std::size_t index)
{
    return channel + ".triggerParameters[" + std::to_string(index) + "]";
}

} // namespace ko
