#pragma once

#include "host/scenario/ScenarioWriter.h"
#include "host/support/FileWriter.h"
#include "interfaces/Values.h"
#include "platform/Form.h"
#include "platform/Locale.h"

#include <functional>
#include <optional>

namespace ko {

/// What a capture listens to. Everything outlives it.
struct Captured {
    Form& page;
    std::vector<Form*> dialogs;
    /// The present time, at which the page's clock stands until it is asked for again: a replay has one time an input.
    std::function<DateTime()> tick;
    const Locale& locale;
};

/// Writes what the user does in the forms, and what the host says it does, as a scenario. Each line is in the file
/// before what it says takes effect, so that a program that dies leaves a scenario that leads there.
class ScenarioCapture {
public:
    /// The scenario begins with the machine's settings and a page without instruments. Fails with an `InputError` where
    /// the file cannot be written; a file that was there is then as it was.
    ScenarioCapture(const std::string& file, const Captured& captured);
    ~ScenarioCapture();
    ScenarioCapture(const ScenarioCapture&) = delete;
    ScenarioCapture& operator=(const ScenarioCapture&) = delete;

    /// What the host is about to do, in the words of a scenario.
    void host(const ScenarioWriter::Words& words);
    /// The host is about to take the page off the screen, to hand over a set-up's instruments and to show them. `file`
    /// is empty for the instruments that the replay has already: at first those that it starts with.
    void setup(const std::string& file = {});
    void dialogOpened(const Form& form);
    void dialogClosed();

    [[nodiscard]] const std::string& file() const { return file_; }
    /// A line could not be written: nothing is captured any more. The capture must outlive this.
    std::function<void()> failed;

private:
    void acts(const Form& form, const ScenarioWriter::Words& words);
    void begin();
    void line(const ScenarioWriter::Words& words);
    /// Writes, unless that has failed before.
    void attempt(const std::function<void()>& write);

    std::string file_;
    Captured captured_;
    FileWriter output_;
    ScenarioWriter writer_{[this](const std::string& text, std::size_t at) { output_.write(text, at); }};
    std::optional<DateTime> time_; ///< what the replay's clock shows
    bool hasFailed_ = false;
};

} // namespace ko
