#pragma once

#include "platform/CaptionControls.h"
#include "widgets/bindings/Binding.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace ko {

/// A radio button that is checked only by its control.
class OptionWidget : public QRadioButton {
public:
    explicit OptionWidget(QWidget* parent);

protected:
    void nextCheckState() override {}
};

/// Common parts of option and command buttons: caption, click, mnemonic.
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
    void refreshUsability() override;
    [[nodiscard]] bool showsValue() const override { return option_.value(); }

private:
    void selectNeighbour(int direction);

    OptionButton& option_;
    QRadioButton& radio_;
};

class CommandButtonBinding : public PressBinding {
public:
    /// `title`, unless null, precedes the caption in the accessible name.
    CommandButtonBinding(FormView& view, CommandButton& control, QPushButton& button, const Label* title = nullptr);

protected:
    void refresh(Aspect aspect) override;

private:
    QPushButton& button_;
    const Label* title_;
};

/// An image, shown by a widget that draws the picture whose number is in its property `picture`; a click anywhere on
/// the widget clicks the image.
class ImageBinding : public Binding {
public:
    ImageBinding(FormView& view, Image& control, QWidget& picture);

    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    void refresh(Aspect aspect) override;
    /// The picture has its own accessible name.
    void refreshHint() override {}

private:
    Image& image_;
};

/// A frame in a group box, with its caption as title or in a separate label. The box is never disabled; the frame's
/// controls are disabled individually, because other widgets in the box remain usable.
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
