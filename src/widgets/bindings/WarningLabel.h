#pragma once

#include "widgets/support/PlainText.h"

namespace ko {

/// A label with a warning sign before its text.
class WarningLabel : public PlainLabel {
public:
    explicit WarningLabel(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void reserveRoom();
};

} // namespace ko
