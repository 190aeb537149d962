#pragma once

#include "interfaces/ErrorReporter.h"
#include "interfaces/IKopDrivers.h"
#include "platform/Failure.h"
#include "support/StringTable.h"
#include "support/TextNumbers.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace ko {

class Steps;

/// Numbers of the module names in the string table.
namespace errorSource = textNumber::errorSource;

/// The events in progress of one document. A host may replace the list of drivers, or end the document, from inside any
/// call that an event makes; this ends the event.
class Events {
public:
    /// The list of drivers has been replaced: ends the events in progress. The old list is kept alive until the
    /// outermost of them has returned; then `settle` runs once.
    void supersede(DriverList old);
    /// The document has ended: its events do nothing any more.
    void end(DriverList old);

    /// Updates the page to the list that superseded an event. Must not throw.
    std::function<void()> settle;

    [[nodiscard]] bool areInProgress() const { return innermost_ != nullptr; }

private:
    friend class Steps;

    void keep(DriverList old);

    const Steps* innermost_ = nullptr;
    std::uint64_t generation_ = 0;
    bool isEnded_ = false;
    bool isInStatement_ = false; ///< a step of the innermost `Steps` is running
    bool isUnsettled_ = false;
    std::vector<DriverList> kept_;
};

/// Reports failures to the host's error reporter, which it creates on first use and keeps.
class Errors {
public:
    using CreateReporter = std::function<std::shared_ptr<ErrorReporter>()>;

    Errors(const StringTable& strings, CreateReporter create);
    /// Shares the reporter of `other`, but not its events.
    Errors(const Errors& other) : strings_(other.strings_), reporter_(other.reporter_) {}
    Errors& operator=(const Errors&) = delete;
    ~Errors() = default;

    /// Reports the exception being handled under "<text of sourceText>:<procedure>". Returns false when the reporter
    /// fails or cannot be created.
    bool reportCurrent(int sourceText, std::string_view procedure) noexcept;

    Events events;

private:
    struct Reporter {
        CreateReporter create;
        std::shared_ptr<ErrorReporter> made;
    };

    void report(std::int32_t number, int sourceText, std::string_view procedure, const char* description);

    const StringTable& strings_;
    std::shared_ptr<Reporter> reporter_;
};

} // namespace ko
