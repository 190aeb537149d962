#pragma once

#include "host/scenario/ScenarioWriter.h"
#include "host/support/FileWriter.h"
#include "interfaces/Values.h"
#include "platform/Form.h"
#include "platform/Locale.h"

#include <functional>
#include <optional>

namespace ko {

struct Setup;

/// What a capture observes. Everything referred to outlives the capture.
struct Captured {
    Form& page;
    std::vector<Form*> dialogs;
    /// Returns the present time and fixes the page's clock at it until the next call, because a replay has one time for
    /// each input.
    std::function<DateTime()> tick;
    const Locale& locale;
};

/// Writes the user's input to the forms, and the host's actions passed to it, as a scenario. Each line is in the file
/// before it takes effect, so that a program that crashes leaves a scenario that reproduces the crash.
class ScenarioCapture {
public:
    /// The scenario begins with the machine's settings and a page without instruments. Fails with an `InputError` if
    /// the file cannot be written; an existing file is then unchanged.
    ScenarioCapture(const std::string& file, const Captured& captured);
    ~ScenarioCapture();
    ScenarioCapture(const ScenarioCapture&) = delete;
    ScenarioCapture& operator=(const ScenarioCapture&) = delete;

    /// Writes what the host is about to do, as a scenario command.
    void host(const ScenarioWriter::Words& words);
    /// Writes that the host is about to hide the page, to hand over a set-up's instruments and to show the page. Empty
    /// `file`: the instruments that the replay has loaded last, initially those of the set-up it starts with.
    void setup(const std::string& file = {});
    /// Writes that the host is about to change the instruments to these, which are saved beside the scenario. Throws an
    /// `InputError` if they cannot be.
    void instruments(const Setup& setup);
    void dialogOpened(const Form& form);
    void dialogClosed();

    [[nodiscard]] const std::string& file() const { return file_; }
    /// Called after a line could not be written; capturing has ended then. Must not destroy the capture.
    std::function<void()> failed;

private:
    void acts(const Form& form, const ScenarioWriter::Words& words);
    void begin();
    void line(const ScenarioWriter::Words& words);
    /// Calls `write` unless an earlier write has failed.
    void attempt(const std::function<void()>& write);

    std::string file_;
    Captured captured_;
    FileWriter output_;
    ScenarioWriter writer_{[this](const std::string& text, std::size_t at) { output_.write(text, at); }};
    std::optional<DateTime> time_; ///< the time of the replay's clock
    int edits_ = 0;                ///< number of files beside the scenario
    bool hasFailed_ = false;
};

} // namespace ko
