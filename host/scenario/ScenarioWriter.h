#pragma once

#include <functional>
#include <string>
#include <vector>

namespace ko {

/// Writes a scenario line by line. The output is a complete scenario at any time: the block of a dialog is written with
/// its `end` as soon as the dialog opens, before the command that opened it, and is rewritten as it grows.
class ScenarioWriter {
public:
    using Words = std::vector<std::string>;

    /// Writes `text` at byte offset `at` up to the end of the scenario, over what is there, which is never longer. Its
    /// failures reach the caller of the writer's members.
    using Output = std::function<void(const std::string& text, std::size_t at)>;

    explicit ScenarioWriter(Output output) : output_(std::move(output)) {}

    void comment(const std::string& text);
    /// Appends to the block of the open dialog, or to the end.
    void line(const Words& words);

    /// The command written last has opened this dialog. Dialogs close in reverse order.
    void dialogOpened(const std::string& form);
    void dialogClosed();
    /// Returns the name of the dialog in front; empty if none is open.
    [[nodiscard]] std::string dialog() const;

private:
    struct Block {
        std::string form;
        std::string lines;
    };

    void append(const std::string& text);
    void write();

    Output output_;
    std::size_t start_ = 0; ///< where `blocks_` and `opener_` begin
    std::size_t end_ = 0;
    std::vector<Block> blocks_;     ///< of the dialogs that `opener_` has opened so far
    std::vector<std::size_t> open_; ///< indices of blocks whose dialogs are still open
    std::string opener_;
};

} // namespace ko
