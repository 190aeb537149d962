#pragma once

#include "platform/Control.h"

namespace ko {

/// A control whose text is its caption. An ampersand marks the mnemonic, two stand for one.
class CaptionControl : public Control {
public:
    using Control::Control;

    [[nodiscard]] const std::string& caption() const { return caption_; }
    void setCaption(const std::string& caption);

private:
    std::string caption_;
};

class Label : public CaptionControl {
public:
    using CaptionControl::CaptionControl;
    [[nodiscard]] std::string_view typeName() const override { return "Label"; }
};

/// A label whose figure has a limit.
class LimitedLabel : public Label {
public:
    using Label::Label;

    /// How much of its limit the figure takes, 0 to 1; 0 while the figure is not known.
    [[nodiscard]] double share() const { return share_; }
    void setShare(double share);

private:
    double share_ = 0.0;
};

class Frame : public CaptionControl {
public:
    using CaptionControl::CaptionControl;
    [[nodiscard]] std::string_view typeName() const override { return "Frame"; }
};

/// A control that the user presses.
class PressControl : public CaptionControl {
public:
    using CaptionControl::CaptionControl;

    virtual Outcome userClicked();

    std::function<void()> click;
};

class CommandButton : public PressControl {
public:
    using PressControl::PressControl;
    [[nodiscard]] std::string_view typeName() const override { return "CommandButton"; }
    [[nodiscard]] bool takesFocus() const override { return true; }
};

/// A menu or one of its items: an item's container is the menu it stands in.
class Menu : public PressControl {
public:
    using PressControl::PressControl;
    [[nodiscard]] std::string_view typeName() const override { return "Menu"; }
    [[nodiscard]] bool hasFont() const override { return false; }
    [[nodiscard]] bool hasToolTip() const override { return false; }
};

/// A picture, named by the number of the resource that holds it (0: none). It has no caption of its own.
class Image : public PressControl {
public:
    using PressControl::PressControl;
    [[nodiscard]] std::string_view typeName() const override { return "Image"; }
    [[nodiscard]] bool hasFont() const override { return false; }

    [[nodiscard]] int picture() const { return picture_; }
    void setPicture(int resource);

private:
    int picture_ = 0;
};

/// One of the options of its frame: selecting it deselects the others. An option that becomes selected raises its
/// click, whether the program or the user selects it.
class OptionButton : public PressControl {
public:
    using PressControl::PressControl;
    [[nodiscard]] std::string_view typeName() const override { return "OptionButton"; }
    [[nodiscard]] bool takesFocus() const override { return true; }

    [[nodiscard]] bool value() const { return value_; }
    void select();
    /// Moves the selection here without a click, for putting an option back or showing one.
    void showSelected();
    /// No option of the frame is selected any more; no click.
    void deselect();
    Outcome userClicked() override;

    /// The user clicked the option that is selected already.
    std::function<void()> clickAgain;

private:
    bool take();

    bool value_ = false;
};

} // namespace ko
