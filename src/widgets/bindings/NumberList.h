#pragma once

#include <QComboBox>

namespace ko {

/// A drop-down list of numbers, right-aligned as in the text boxes beside it.
class NumberList : public QComboBox {
public:
    using QComboBox::QComboBox;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace ko
