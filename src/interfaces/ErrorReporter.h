#pragma once

#include <cstdint>
#include <string>

namespace ko {

/// The host's error reporter. The component creates one on first use and keeps it for its lifetime.
class ErrorReporter {
public:
    virtual ~ErrorReporter() = default;

    /// `source` is the component's name, a colon and the procedure's name. The last three arguments are always
    /// 0, "" and true.
    virtual void ReportError(std::int32_t number, const std::string& source, const std::string& description,
                             std::int32_t helpContext, const std::string& helpFile, bool log) = 0;
};

} // namespace ko
