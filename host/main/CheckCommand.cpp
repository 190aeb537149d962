#include "host/main/CheckCommand.h"

#include "host/modules/ModuleCheck.h"
#include "host/modules/Modules.h"
#include "host/support/InputError.h"
#include "host/support/StandardStreams.h"
#include "platform/Failure.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <mutex>
#include <thread>
#include <unistd.h>

namespace ko {

namespace {

constexpr int broken = 1; // exit status
constexpr std::chrono::seconds longestCall(60);

/// The call that is being made, for a signal's handler, which must not allocate.
std::array<char, 512> callNow;

[[noreturn]] void endWith(const char* what)
{
    for (const char* const text : {static_cast<const char*>(callNow.data()), what, "\n"})
        static_cast<void>(!::write(STDOUT_FILENO, text, std::strlen(text)));
    ::_exit(broken);
}

extern "C" void crashed(int /*signal*/)
{
    endWith(": crashes the program");
}

/// Ends the program when a call crashes or does not return.
class CallWatch {
public:
    CallWatch()
    {
        for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT})
            static_cast<void>(std::signal(signal, crashed));
    }
    ~CallWatch()
    {
        for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT})
            static_cast<void>(std::signal(signal, SIG_DFL));
    }
    CallWatch(const CallWatch&) = delete;
    CallWatch& operator=(const CallWatch&) = delete;

    void next(const std::string& call)
    {
        const std::lock_guard lock(mutex_);
        ++count_;
        const std::size_t size = std::min(call.size(), callNow.size() - 1);
        std::copy_n(call.begin(), size, callNow.begin());
        callNow.at(size) = '\0';
    }

private:
    void watch(const std::stop_token& stop)
    {
        std::unique_lock lock(mutex_);
        while (!stop.stop_requested()) {
            const std::int64_t before = count_;
            wake_.wait_for(lock, stop, longestCall, [] { return false; });
            if (!stop.stop_requested() && count_ == before)
                endWith(": does not return");
        }
    }

    std::mutex mutex_;
    std::condition_variable_any wake_;
    std::int64_t count_ = 0;
    std::jthread thread_{[this](const std::stop_token& stop) { watch(stop); }};
};

InstrumentModule& loadedFrom(const std::string& file)
{
    try {
        return loadModule(std::filesystem::absolute(file));
    } catch (const Failure& failure) {
        throw InputError(file + ": " + failure.what());
    }
}

} // namespace

bool checkModuleFile(const std::string& file)
{
    InstrumentModule& module = loadedFrom(file);
    ModuleReport report;
    {
        CallWatch watch;
        ModuleCheckOptions options;
        options.beforeCall = [&](const std::string& call) { watch.next(oneLine(call)); };
        options.found = [](const std::string& line) { std::cout << line << std::endl; };
        report = checkModule(module, options);
    }
    for (const std::string& note : report.notes)
        complain("note: " + note);
    std::cout << report.calls << " calls, " << report.findings.size() << " findings\n";
    return report.findings.empty();
}

} // namespace ko
