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

/// The numbers of the modules' names in the string table.
namespace errorSource = textNumber::errorSource;

/// The events of one document that are in progress. A host may hand over another list of drivers, or end the document,
/// from inside any call that an event makes: the event is over then.
class Events {
public:
    /// The list of drivers is another from now on: events in progress are over. The old list lives until the outermost
    /// of them has returned, and then `settle` runs, once.
    void supersede(DriverList old);
    /// The document has ended: no event of it does anything any more.
    void end(DriverList old);

    /// Brings the page in line with the list that superseded an event. Throws nothing.
    std::function<void()> settle;

    [[nodiscard]] bool areInProgress() const { return innermost_ != nullptr; }

private:
    friend class Steps;

    void keep(DriverList old);

    const Steps* innermost_ = nullptr;
    std::uint64_t generation_ = 0;
    bool isEnded_ = false;
    bool isInStatement_ = false; ///< a statement of a step is running since the innermost steps began
    bool isUnsettled_ = false;
    std::vector<DriverList> kept_;
};

/// Gives failures to the host's error reporter, which it creates on first use and keeps.
class Errors {
public:
    using CreateReporter = std::function<std::shared_ptr<ErrorReporter>()>;

    Errors(const StringTable& strings, CreateReporter create);
    /// Shares the reporter of `other`; the events are its own.
    Errors(const Errors& other) : strings_(other.strings_), reporter_(other.reporter_) {}
    Errors& operator=(const Errors&) = delete;
    ~Errors() = default;

    /// Reports the exception being handled under "<text of sourceText>:<procedure>". False when the reporter itself
    /// fails or cannot be created; nothing is thrown.
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
