#pragma once

#include "interfaces/ErrorReporter.h"
#include "platform/Failure.h"
#include "support/StringTable.h"

#include <functional>
#include <memory>
#include <string_view>
#include <utility>

namespace ko {

/// Where a module's error source stands in the string table.
namespace errorSource {
inline constexpr int page = 1101;
inline constexpr int triggering = 1351;
} // namespace errorSource

/// Gives failures to the host's error reporter, which it creates on first use and keeps.
class Errors {
public:
    using CreateReporter = std::function<std::shared_ptr<ErrorReporter>()>;

    Errors(const StringTable& strings, CreateReporter create) : strings_(strings), create_(std::move(create)) {}

    /// Reports the exception being handled under "<text of sourceText>:<procedure>". False when the reporter itself
    /// fails or cannot be created; nothing is thrown.
    bool reportCurrent(int sourceText, std::string_view procedure) noexcept;

private:
    void report(std::int32_t number, int sourceText, std::string_view procedure, const char* description);

    const StringTable& strings_;
    CreateReporter create_;
    std::shared_ptr<ErrorReporter> reporter_;
};

} // namespace ko
