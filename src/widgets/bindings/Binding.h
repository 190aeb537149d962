#pragma once

#include "platform/Control.h"
#include "widgets/support/Convert.h"

#include <QObject>

namespace ko {

class FormView;

/// Shows one control model in one widget and passes the user's input to the model. Contains no rules of the form: after
/// each input the widget shows the state of the model.
///
/// The control must outlive its binding. The binding is the control's only view during its lifetime.
class Binding : public QObject {
public:
    Binding(FormView& view, Control& control, QWidget& widget);
    ~Binding() override;

    [[nodiscard]] QWidget& widget() const { return widget_; }

protected:
    /// Updates the widget from one aspect of the control.
    virtual void refresh(Aspect aspect);
    /// Must be called at the end of each binding's constructor.
    void refreshAll();
    /// Updates the widget's texts for assistive technology and the status line.
    virtual void refreshHint();
    virtual void refreshUsability();
    /// Whether the widget shows a value, which stays readable on a form that is only read.
    [[nodiscard]] virtual bool showsValue() const { return false; }
    [[nodiscard]] bool isRead() const { return showsValue() && control_.isRead(); }

    FormView& view_;

private:
    Control& control_;
    QWidget& widget_;
};

} // namespace ko
