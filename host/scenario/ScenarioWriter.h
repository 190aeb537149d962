#pragma once

#include <functional>
#include <string>
#include <vector>

namespace ko {

/// Writes a scenario line by line. What it has written can be played at any time, whatever becomes of the writer: the
/// block of a dialog is ended at once, before the command that opened the dialog, and grows where it stands.
class ScenarioWriter {
public:
    using Words = std::vector<std::string>;

    /// Writes a text from a byte of the scenario on to its end, over what is there, which is never longer. Its failures
    /// reach the caller of what has been written.
    using Output = std::function<void(const std::string& text, std::size_t at)>;

    explicit ScenarioWriter(Output output) : output_(std::move(output)) {}

    void comment(const std::string& text);
    /// Into the block of the dialog that is open, else to the end.
    void line(const Words& words);

    /// What the line written last has opened. Dialogs close in the reverse order.
    void dialogOpened(const std::string& form);
    void dialogClosed();
    /// The name of the dialog in front, empty when none is open.
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
    std::vector<std::size_t> open_; ///< those that are still open
    std::string opener_;
};

} // namespace ko
