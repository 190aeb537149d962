#include "modules/sigrok/Attempt.h"

#include "modules/sigrok/ConfigText.h"

#include <cstdio>

namespace ko::sigrok {

namespace {

thread_local std::string logged;

int keepError(void* /*unused*/, int level, const char* format, va_list arguments)
{
    if (level != SR_LOG_ERR)
        return SR_OK;
    char text[256] = "";
    std::vsnprintf(text, sizeof text, format, arguments);
    logged = utf8(text);
    while (!logged.empty() && logged.back() == '\n')
        logged.pop_back();
    return SR_OK;
}

} // namespace

void collectErrors()
{
    sr_log_loglevel_set(SR_LOG_ERR);
    sr_log_callback_set(keepError, nullptr);
}

const std::string& lastError()
{
    return logged;
}

void forgetErrors()
{
    logged.clear();
}

void failWith(int code, const std::string& doing)
{
    std::string text = doing + ": " + sr_strerror(code);
    if (!logged.empty())
        text += " (" + logged + ")";
    throw Failure(failure::unspecified, text);
}

} // namespace ko::sigrok
