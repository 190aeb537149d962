#include "host/modules/CheckLog.h"

#include "host/setup/SetupWriter.h"
#include "host/support/InputError.h"
#include "platform/NumberText.h"

#include <algorithm>
#include <cmath>

namespace ko {

namespace {

constexpr int findingsOfACall = 3;

std::string checkedText(const CallValue& value)
{
    const auto* const number = std::get_if<double>(&value);
    return number ? checkedNumber(*number) : jsonText(value);
}

} // namespace

std::string checkedNumber(double number)
{
    return std::isfinite(number) ? jsonText(number) : numberText(number, Locale{});
}

void CheckLog::lookAt(std::string subject)
{
    const std::lock_guard lock(mutex_);
    subject_ = std::move(subject);
    after_.clear();
}

void CheckLog::after(std::string call)
{
    const std::lock_guard lock(mutex_);
    after_ = std::move(call);
}

void CheckLog::blame(const std::string& call, const std::string& what)
{
    const std::lock_guard lock(mutex_);
    if (++findings_[{subject_, call}] > findingsOfACall)
        return;
    const std::string when = after_.empty() ? "" : " (after " + after_ + ")";
    keep(subject_ + ": " + call + ": " + what + when);
}

/// A finding of the second opening is often that of the first one.
void CheckLog::keep(const std::string& finding)
{
    auto& lines = report_.findings;
    const std::string line = oneLine(finding);
    if (std::find(lines.begin(), lines.end(), line) != lines.end())
        return;
    lines.push_back(line);
    if (options_.found)
        options_.found(line);
}

void CheckLog::note(const std::string& what)
{
    const std::lock_guard lock(mutex_);
    report_.notes.push_back(oneLine(subject_ + ": " + what));
}

void CheckLog::begin(const std::string& call)
{
    std::string whole;
    {
        const std::lock_guard lock(mutex_);
        ++report_.calls;
        whole = subject_ + ": " + call;
    }
    if (options_.beforeCall)
        options_.beforeCall(whole);
}

void CheckLog::failed(const std::string& call, const std::string& reason, Expected expected)
{
    if (reason.empty())
        blame(call, "fails without a text");
    else if (expected == Expected::Success)
        blame(call, "fails: " + reason);
}

void CheckLog::blameDifference(const std::string& call, const CallValue& answer, const CallValue& held)
{
    blame(call, "answers " + checkedText(answer) + ", and held() has " + checkedText(held));
}

ModuleReport CheckLog::finish()
{
    const std::lock_guard lock(mutex_);
    for (const auto& [call, count] : findings_)
        if (count > findingsOfACall)
            keep(call.first + ": " + call.second + ": " + std::to_string(count - findingsOfACall) +
                 " more of the same kind");
    return std::move(report_);
}

} // namespace ko
