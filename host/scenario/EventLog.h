#pragma once

#include <iosfwd>
#include <nlohmann/json.hpp>
#include <string_view>

namespace ko {

using Json = nlohmann::ordered_json;

/// What happened, one JSON object a line, each written out at once.
class EventLog {
public:
    /// `output` outlives the log.
    explicit EventLog(std::ostream& output) : output_(output) {}

    /// The script's line that what happens from now on belongs to.
    void setLine(int line) { line_ = line; }
    [[nodiscard]] int line() const { return line_; }

    /// From now on nothing is written any more.
    void mute() { muted_ = true; }

    /// False once a line could not be written.
    [[nodiscard]] bool isWritten() const;

    void event(std::string_view name, const Json& members = Json::object());

private:
    std::ostream& output_;
    int line_ = 0;
    bool muted_ = false;
};

} // namespace ko
