#pragma once

#include "platform/Services.h"

#include <QDialog>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <map>

namespace ko {

/// Shows forms as dialogs. Each form must have been registered with a way to make its widget. Enter, Escape and the
/// close button press the form's buttons for them, so that they end it as its buttons do. A dialog that is destroyed
/// with its window has not been accepted.
class QtModalForms : public ModalForms {
public:
    /// Makes the widget that shows a form; the dialog owns it.
    using Build = std::function<QWidget*()>;

    /// Registers a form, which takes the size that its widget asks for when it is first placed. The form
    /// outlives this object.
    void add(Form& form, Build build);
    /// The window that dialogs belong to while no other window is active.
    void setOwner(QWidget* owner) { owner_ = owner; }

    /// Failure 5 for a form that is not registered or is shown already.
    void showModal(Form& form) override;
    void hide(Form& form) override;

    /// A dialog is about to be shown; it has been left, in the reverse order.
    std::function<void(const Form& form)> opened;
    std::function<void()> closed;

private:
    std::map<const Form*, Build> builds_;
    std::map<const Form*, QPointer<QDialog>> open_;
    QPointer<QWidget> owner_;
};

} // namespace ko
