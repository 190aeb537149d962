#pragma once

#include "platform/Control.h"
#include "widgets/support/Convert.h"

#include <QObject>

namespace ko {

class FormView;

/// Shows one control model in one widget and hands the user's input on to the model. No rule of the form lives
/// here: after each input the widget shows what the model has made of it.
///
/// The control outlives its binding. The binding is the control's one view while it lives.
class Binding : public QObject {
public:
    Binding(FormView& view, Control& control, QWidget& widget);
    ~Binding() override;

    [[nodiscard]] QWidget& widget() const { return widget_; }

protected:
    /// Brings the widget in line with one aspect of the control.
    virtual void refresh(Aspect aspect);
    /// To be called at the end of each binding's constructor.
    void refreshAll();
    /// What the assistive technology and the status line say about the widget.
    virtual void refreshHint();
    virtual void refreshUsability();

    FormView& view_;

private:
    Control& control_;
    QWidget& widget_;
};

} // namespace ko
