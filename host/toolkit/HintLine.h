#pragma once

#include "widgets/support/PlainText.h"

namespace ko {

/// A line of plain text that is elided if it does not fit; the tool tip then contains the whole text. It sets no
/// minimum width for its window.
class HintLine : public PlainLabel {
public:
    explicit HintLine(QWidget* parent);

    /// Returns the text as elided to the present width.
    [[nodiscard]] QString shown() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

} // namespace ko
