#pragma once

#include "document/TimebaseEditor.h"
#include "fakes/FakeDriver.h"
#include "fakes/FakePlatform.h"

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace ko::test {

using Texts = std::vector<std::string>;

/// A component with a document, the host around it and the host's instruments. What a host and a user do goes through
/// `act`, which lets nothing escape.
class Bench {
public:
    FakePlatform host;
    std::vector<std::shared_ptr<FakeDriver>> fakes; ///< what is handed over
    Texts escaped;                                  ///< actions that ended in an exception

    Bench() { restart(); }

    /// False while a document is made or ended.
    [[nodiscard]] bool hasDocument() const { return document_ != nullptr; }
    [[nodiscard]] Document& document() const { return *document_; }
    [[nodiscard]] Page& page() const { return document_->page(); }
    /// The page and the dialogs.
    [[nodiscard]] std::vector<const Form*> forms();

    void act(const std::string& name, const std::function<void()>& action);

    // The host.
    void restart();
    FakeDriver& addDriver(std::int32_t samplingMode);
    void handOver();
    void show();
    void command(std::int32_t id);

    // The user, on the page.
    void focus(Control& control);
    void leave();
    void type(TextBox& box, const std::string& text); ///< one change a character, the old text replaced
    void replace(TextBox& box, const std::string& text);
    void choose(ComboBox& box, std::int32_t index);
    void click(PressControl& control);
    void editCell(std::int32_t row, const std::string& text);

private:
    Shared shared_{host.platform, {}};
    std::unique_ptr<Document> document_;
};

/// Everything that a user could see of the forms and a host could read from the drivers, a line each.
Texts stateOf(Bench& bench);

/// What does not hold of the page although it always must, whatever fails; a sentence each.
Texts brokenAlways(const Page& page);

/// What the page shows otherwise than the drivers hold it; for benches where nothing fails.
Texts shownWrongly(const Bench& bench);

/// Bytes of the recording as the page has to count them, the larger of its two totals.
double totalBytes(const Bench& bench);

constexpr double fileSizeLimit = 2147483647.0;

/// What a host and its user do, always the same.
struct Script {
    const char* name;
    void (*play)(Bench&);

    friend std::ostream& operator<<(std::ostream& out, const Script& script) { return out << script.name; }
};

/// Scripts that together use every handler and host member.
extern const Script scripts[8];

} // namespace ko::test
