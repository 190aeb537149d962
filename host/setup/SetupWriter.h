#pragma once

#include "host/instruments/CallValue.h"
#include "host/instruments/InstrumentSettings.h"

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace ko {

struct Setup;

/// The content of a set-up file, laid out to be read by people; reading it gives the same set-up. Fails (an exception)
/// for text that is not UTF-8.
std::string setupText(const Setup& setup);

/// An instrument in the shape of a set-up file; reading it gives the same instrument.
nlohmann::ordered_json toJson(const InstrumentSettings& instrument);

/// A value as events show it: times as day numbers, a range as its two bounds, the empty value as null. A double reads
/// back as the same double; a number that is not finite becomes null.
nlohmann::ordered_json toJson(const CallValue& value);
/// The same in a line of text. What is not UTF-8 is replaced.
std::string jsonText(const CallValue& value);

} // namespace ko
