#pragma once

#include "platform/Form.h"
#include "widgets/support/Delay.h"
#include "widgets/support/UserActions.h"

#include <QObject>
#include <QPointer>
#include <functional>
#include <vector>

class QEvent;
class QKeyEvent;
class QWidget;

namespace ko {

/// Keeps the toolkit's focus in line with the form's focus. The form decides: a press on a control, or a Tab to it,
/// first requests the focus from the form, which validates the focused control once; the toolkit's focus then follows.
/// Moving to a menu, a popup, another window or a dock does not change the form's focus. On a form that is only read,
/// the toolkit's focus moves through the disabled controls with a value, too, and none has the form's.
class FocusKeeper : public QObject {
public:
    /// During its lifetime, focus changes by the toolkit are not treated as the user's.
    class Hold {
    public:
        explicit Hold(FocusKeeper& keeper) : keeper_(&keeper) { ++keeper.held_; }
        ~Hold()
        {
            if (keeper_)
                --keeper_->held_;
        }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        QPointer<FocusKeeper> keeper_;
    };

    /// `surface` contains the form's widgets and has the toolkit's focus while no control of the form has it.
    FocusKeeper(Form& form, QWidget& surface, const UserActions& actions);

    /// `widget` shows `control`; a press on `pressed` (the widget or its viewport) requests the focus.
    void watch(Control& control, QWidget& widget, QWidget& pressed);

    /// The user moves the focus to `control`; returns false when it stays where it was or the view has been destroyed.
    bool request(Control& control);
    /// The user tabs to the next or the previous control; after the last one, to the window's widgets outside the form
    /// or, if there are none, to the first one.
    bool step(bool forward);
    /// Moves the toolkit's focus to the form's focused control.
    void follow();
    /// As `follow`, after the toolkit's current event.
    void followLater();

    /// Called for each widget that gets the focus, so that it can be scrolled into view.
    std::function<void(QWidget&)> moved;

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    struct Watched {
        Control* control;
        QWidget* widget;
    };

    [[nodiscard]] QWidget* widgetOf(const Control* control) const;
    [[nodiscard]] Control* controlOf(const QObject* object) const;
    /// The control that has the toolkit's focus for reading, if any.
    [[nodiscard]] Control* readControl() const;
    bool read(Control& control, Qt::FocusReason reason);
    bool pressed(Control& control);
    bool focusCame(QObject* object, QEvent* event);
    [[nodiscard]] bool keyPressed(const QKeyEvent& event) const;
    [[nodiscard]] std::vector<Control*> tabStops() const;
    bool stepOutside(bool forward);
    void park();

    Form& form_;
    QWidget& surface_;
    const UserActions& actions_;
    std::vector<Watched> watched_;
    Delay later_;
    int held_ = 0;
};

} // namespace ko
