#pragma once

#include "platform/CaptionControls.h"
#include "widgets/bindings/Binding.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace ko {

/// A radio button that changes only when its control does.
class OptionWidget : public QRadioButton {
public:
    explicit OptionWidget(QWidget* parent);

protected:
    void nextCheckState() override {}
};

/// What option and command buttons share: caption, click, mnemonic.
class PressBinding : public Binding {
public:
    PressBinding(FormView& view, PressControl& control, QAbstractButton& button);

    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    void refresh(Aspect aspect) override;
    void clicked(PressControl& control) const;

private:
    PressControl& press_;
    QAbstractButton& button_;
};

/// An option button. The arrow keys select the frame's previous and next option.
class OptionButtonBinding : public PressBinding {
public:
    OptionButtonBinding(FormView& view, OptionButton& control, QRadioButton& button);

    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    void refresh(Aspect aspect) override;

private:
    void selectNeighbour(int direction);

    OptionButton& option_;
    QRadioButton& radio_;
};

class CommandButtonBinding : public PressBinding {
public:
    CommandButtonBinding(FormView& view, CommandButton& control, QPushButton& button);
};

/// An image, shown by a widget that draws the picture of the number in its property `picture`; a click anywhere on
/// it is a click.
class ImageBinding : public Binding {
public:
    ImageBinding(FormView& view, Image& control, QWidget& picture);

    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    void refresh(Aspect aspect) override;
    /// The picture says itself what it is.
    void refreshHint() override {}

private:
    Image& image_;
};

/// A frame in a group box, with its caption as title or in a label of its own. The box is never switched off: the
/// frame's controls are, each by itself, for what else stands in the box is usable at any time.
class FrameBinding : public Binding {
public:
    FrameBinding(FormView& view, Frame& control, QGroupBox& box, QLabel* heading);

protected:
    void refresh(Aspect aspect) override;
    void refreshUsability() override;

private:
    Frame& frame_;
    QGroupBox& box_;
    QLabel* heading_;
};

} // namespace ko
