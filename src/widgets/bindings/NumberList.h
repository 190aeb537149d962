#pragma once

#include <QComboBox>

namespace ko {

/// A drop-down list whose entries are numbers: they stand at the right, as in the text boxes beside it.
class NumberList : public QComboBox {
public:
    using QComboBox::QComboBox;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace ko
