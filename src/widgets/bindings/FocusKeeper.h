#pragma once

#include "platform/Form.h"
#include "widgets/support/UserActions.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <vector>

class QEvent;
class QKeyEvent;
class QWidget;

namespace ko {

/// Keeps the toolkit's focus where the form's focus is. The form decides: a user who presses or tabs to a control
/// asks the form first, which validates the control left once, and the toolkit's focus follows the answer. Going to
/// a menu, a popup, another window or a dock leaves the form's focus alone.
class FocusKeeper : public QObject {
public:
    /// While it lives, what the toolkit does with the focus is none of the user's doing.
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

    /// `surface` holds the form's widgets and has the toolkit's focus while no control of the form has it.
    FocusKeeper(Form& form, QWidget& surface, const UserActions& actions);

    /// `widget` shows `control`; a press on `pressed` (the widget, or its viewport) asks for the focus.
    void watch(Control& control, QWidget& widget, QWidget& pressed);

    /// The user wants the focus on `control`; false when it stays where it was, or the view is gone.
    bool request(Control& control);
    /// The user tabs to the next or the previous control; after the last one to the window's widgets outside the
    /// form, or round to the first.
    bool step(bool forward);
    /// Brings the toolkit's focus to where the form's is.
    void follow();
    /// The same once the toolkit has done what it is about to do.
    void followLater();

    /// Told of each widget that gets the focus, so that it can be scrolled into sight.
    std::function<void(QWidget&)> moved;

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    struct Watched {
        Control* control;
        QWidget* widget;
    };

    [[nodiscard]] QWidget* widgetOf(const Control* control) const;
    [[nodiscard]] Control* controlOf(const QObject* object) const;
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
    QTimer later_;
    int held_ = 0;
};

} // namespace ko
