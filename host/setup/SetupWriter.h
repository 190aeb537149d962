#pragma once

#include "host/instruments/CallValue.h"
#include "host/instruments/InstrumentSettings.h"

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace ko {

struct Setup;

/// Returns the content of a set-up file in a readable layout; parsing it returns the same set-up. Throws for text that
/// is not UTF-8.
std::string setupText(const Setup& setup);

/// How a JSON text is laid out.
struct JsonLayout {
    std::string margin;      ///< blanks at the beginning of the line on which the text begins
    std::string unit = "  "; ///< blanks by which the content of a list or object is indented
    std::string lineBreak = "\n";
};

/// Returns the value as text: on one line if it fits, else with one member per line.
std::string laidOut(const nlohmann::ordered_json& json, const JsonLayout& layout = {});

/// Converts a set-up to the form of a set-up file.
nlohmann::ordered_json toJson(const Setup& setup);
/// Converts an instrument to the form of a set-up file; parsing it returns the same instrument.
nlohmann::ordered_json toJson(const InstrumentSettings& instrument);

/// Converts a value to the form of events: times as day numbers, a range as its two bounds, the empty value as null. A
/// finite double parses back to the same double; any other becomes null.
nlohmann::ordered_json toJson(const CallValue& value);
/// As `toJson`, as one line of text. Replaces bytes that are not UTF-8.
std::string jsonText(const CallValue& value);

} // namespace ko
