#pragma once

#include "widgets/support/PlainText.h"

namespace ko {

/// A line of plain text that ends in dots where it is longer than its room; its tool tip then says all of it. It asks
/// for no width.
class HintLine : public PlainLabel {
public:
    explicit HintLine(QWidget* parent);

    /// As much of the text as there is room for.
    [[nodiscard]] QString shown() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

} // namespace ko
