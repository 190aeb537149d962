#pragma once

#include "document/TimebaseEditor.h"
#include "fakes/FakeDriver.h"
#include "fakes/FakePlatform.h"

#include <memory>
#include <ostream>

namespace ko::test {

using Texts = std::vector<std::string>;

/// A component with a document, its host and the host's instruments. All actions of host and user go through `act`,
/// which catches exceptions.
class Bench {
public:
    FakePlatform host;
    std::vector<std::shared_ptr<FakeDriver>> fakes; ///< the drivers to hand over
    Texts escaped;                                  ///< actions that threw an exception

    Bench() { restart(); }

    /// Returns false while the document is being created or destroyed.
    [[nodiscard]] bool hasDocument() const { return document_ != nullptr; }
    [[nodiscard]] Document& document() const { return *document_; }
    [[nodiscard]] Page& page() const { return document_->page(); }
    /// Returns the page and the dialogs.
    [[nodiscard]] std::vector<const Form*> forms();

    void act(const std::string& name, const std::function<void()>& action);

    // Actions of the host.
    void restart();
    FakeDriver& addDriver(std::int32_t samplingMode);
    void handOver();
    void show();
    void command(std::int32_t id);

    // Actions of the user on the page.
    void focus(Control& control);
    void leave();
    void type(TextBox& box, const std::string& text); ///< replaces the text, one change per character
    void replace(TextBox& box, const std::string& text);
    void choose(ComboBox& box, std::int32_t index);
    void click(PressControl& control);
    void editCell(std::int32_t row, const std::string& text);

private:
    Shared shared_{host.platform, {}};
    std::unique_ptr<Document> document_;
};

/// Returns everything that a user can see of the forms and a host can read from the drivers, one item per line.
Texts stateOf(Bench& bench);
/// Returns what a host can read from the drivers, one line for each.
Texts heldBy(const Bench& bench);

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
