#include "host/modules/CheckLog.h"

#include "host/setup/SetupWriter.h"
#include "host/support/InputError.h"
#include "platform/NumberText.h"

#include <algorithm>
#include <cmath>

namespace ko {

namespace {

constexpr std::size_t findingsOfACall = 5;

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
}

void CheckLog::after(std::string call)
{
    const std::lock_guard lock(mutex_);
    after_ = std::move(call);
}

void CheckLog::blame(const std::string& call, const std::string& what)
{
    const std::lock_guard lock(mutex_);
    const std::string when = after_.empty() ? "" : " (after " + after_ + ")";
    const std::string line = oneLine(subject_ + ": " + call + ": " + what + when);
    auto& known = findings_[subject_ + ": " + call];
    if (known.insert(line).second && known.size() <= findingsOfACall)
        keep(line);
}

void CheckLog::keep(const std::string& finding)
{
    report_.findings.push_back(finding);
    if (options_.found)
        options_.found(finding);
}

void CheckLog::note(const std::string& what)
{
    const std::lock_guard lock(mutex_);
    auto& notes = report_.notes;
    const std::string line = oneLine(subject_ + ": " + what);
    if (std::find(notes.begin(), notes.end(), line) == notes.end())
        notes.push_back(line);
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
    for (const auto& [call, lines] : findings_)
        if (lines.size() > findingsOfACall)
            keep(oneLine(call) + ": " + std::to_string(lines.size() - findingsOfACall) + " more findings");
    return std::move(report_);
}

} // namespace ko
