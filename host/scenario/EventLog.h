#pragma once

#include "host/instruments/CallValue.h"

#include <iosfwd>
#include <nlohmann/json_fwd.hpp>
#include <string_view>
#include <vector>

namespace ko {

using Json = nlohmann::ordered_json;

/// A member of an event, as `toJson` writes values.
struct EventMember {
    std::string_view key;
    CallValue value;
};

/// Writes events, one JSON object per line, each flushed at once.
class EventLog {
public:
    /// `output` outlives the log.
    explicit EventLog(std::ostream& output) : output_(output) {}

    /// Sets the script's line number that later events carry.
    void setLine(int line) { line_ = line; }
    [[nodiscard]] int line() const { return line_; }

    /// Drops all later events.
    void mute() { muted_ = true; }

    /// Returns false once an event could not be written.
    [[nodiscard]] bool isWritten() const;

    void event(std::string_view name, const std::vector<EventMember>& members = {});
    /// The same with members of any shape.
    void jsonEvent(std::string_view name, const Json& members);

private:
    std::ostream& output_;
    int line_ = 0;
    bool muted_ = false;
};

} // namespace ko
