#include "support/Errors.h"

#include <exception>

namespace ko {

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
    if (!reporter_ && create_)
        reporter_ = create_();
    const std::string source = strings_.text(sourceText) + ":" + std::string(procedure);
    required(reporter_.get()).ReportError(number, source, description, 0, "", true);
}

} // namespace ko
