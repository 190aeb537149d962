#pragma once

#include "platform/PictureBox.h"
#include "widgets/bindings/Binding.h"

#include <QWidget>

namespace ko {

/// Paints the drawing of a picture box, in the palette's colours.
class PictureWidget : public QWidget {
public:
    PictureWidget(PictureBox& picture, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    PictureBox& picture_;
};

class PictureBinding : public Binding {
public:
    PictureBinding(FormView& view, PictureBox& control, PictureWidget& widget);

protected:
    void refresh(Aspect aspect) override;
};

} // namespace ko
