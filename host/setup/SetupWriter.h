#pragma once

#include "host/instruments/CallValue.h"
#include "host/instruments/InstrumentSettings.h"

#include <nlohmann/json.hpp>
#include <string>

namespace ko {

struct Setup;

/// The content of a set-up file, laid out to be read by people; reading it gives the same set-up. Failure (an
/// `nlohmann::json::exception`) for text that is not UTF-8.
std::string setupText(const Setup& setup);

/// An instrument in the shape of a set-up file; reading it gives the same instrument.
nlohmann::ordered_json toJson(const InstrumentSettings& instrument);

/// Values as events show them: times as day numbers, a range as its two bounds, the empty value as null. A double reads
/// back as the same double; a number that is not finite becomes null.
nlohmann::ordered_json toJson(const CallValue& value);
nlohmann::ordered_json toJson(const Value& value);
nlohmann::ordered_json toJson(const Range& range);
nlohmann::ordered_json toJson(const DateTime& time);

/// Everything that JSON has of its own.
template <class T> nlohmann::ordered_json toJson(const T& value)
{
    return value;
}

} // namespace ko
