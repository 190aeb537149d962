#include "support/Errors.h"

#include <exception>

namespace ko {

void Events::supersede(DriverList old)
{
    ++generation_;
    isUnsettled_ = areInProgress();
    keep(std::move(old));
}

void Events::end(DriverList old)
{
    isEnded_ = true;
    keep(std::move(old));
}

void Events::keep(DriverList old)
{
    if (areInProgress())
        kept_.push_back(std::move(old));
}

Errors::Errors(const StringTable& strings, CreateReporter create)
    : strings_(strings), reporter_(std::make_shared<Reporter>())
{
    reporter_->create = std::move(create);
}

bool Errors::reportCurrent(int sourceText, std::string_view procedure) noexcept
{
    try {
        try {
            throw;
        } catch (const Failure& failure) {
            report(failure.number(), sourceText, procedure, failure.what());
        } catch (const std::exception& exception) {
            report(failure::unspecified, sourceText, procedure, exception.what());
        } catch (...) {
            report(failure::unspecified, sourceText, procedure, "Unspecified error");
        }
        return true;
    } catch (...) {
        return false;
    }
}

void Errors::report(std::int32_t number, int sourceText, std::string_view procedure, const char* description)
{
    if (!reporter_->made && reporter_->create)
        reporter_->made = reporter_->create();
    const std::string source = strings_.text(sourceText) + ":" + std::string(procedure);
    required(reporter_->made.get()).ReportError(number, source, description, 0, "", true);
}

} // namespace ko
