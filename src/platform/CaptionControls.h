#pragma once

#include "platform/Control.h"

namespace ko {

/// A control whose text is its caption. An ampersand marks the mnemonic; two ampersands show one.
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

/// A label that shows a figure with a limit.
class LimitedLabel : public Label {
public:
    using Label::Label;

    /// The fraction of the limit that the figure uses, 0 to 1; 0 while the figure is unknown.
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

/// A menu or a menu item; an item's container is its menu.
class Menu : public PressControl {
public:
    using PressControl::PressControl;
    [[nodiscard]] std::string_view typeName() const override { return "Menu"; }
    [[nodiscard]] bool hasFont() const override { return false; }
    [[nodiscard]] bool hasToolTip() const override { return false; }
};

/// A picture, identified by its resource number (0: none). It has no caption.
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

/// One of the options in its frame: selecting it deselects the others. An option that becomes selected raises its
/// click, whether the program or the user selects it.
class OptionButton : public PressControl {
public:
    using PressControl::PressControl;
    [[nodiscard]] std::string_view typeName() const override { return "OptionButton"; }
    [[nodiscard]] bool takesFocus() const override { return true; }

    [[nodiscard]] bool value() const { return value_; }
    void select();
    /// Selects this option without raising its click, to restore or show a selection.
    void showSelected();
    /// Clears the frame's selection without raising a click.
    void deselect();
    Outcome userClicked() override;

    /// The user clicked the option that was already selected.
    std::function<void()> clickAgain;

private:
    bool take();

    bool value_ = false;
};

} // namespace ko
