#pragma once

#include "platform/Services.h"

#include <QDialog>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <map>

namespace ko {

/// Shows forms as dialogs. Each form must be registered with a function that creates its widget. Enter, Escape and the
/// close button press the form's OK and cancel buttons. A dialog that is destroyed with its window counts as cancelled.
class QtModalForms : public ModalForms {
public:
    /// Creates the widget that shows a form; the dialog owns it.
    using Build = std::function<QWidget*()>;

    /// Registers a form, which takes its widget's preferred size when it is first placed. The form must outlive this
    /// object.
    void add(Form& form, Build build);
    /// Sets the parent window of dialogs while no other window is active.
    void setOwner(QWidget* owner) { owner_ = owner; }

    /// Failure 5 for a form that is not registered or already shown.
    void showModal(Form& form) override;
    void hide(Form& form) override;

    /// Called before a dialog is shown and after it is closed; calls nest.
    std::function<void(const Form& form)> opened;
    std::function<void()> closed;
    /// If set, shows the form in place of the user, while its dialog is visible, and is called when it is hidden. The
    /// dialog is closed afterwards.
    ModalForms* standIn = nullptr;
    /// Called after each action of the user in a dialog.
    std::function<void()> actionDone;

private:
    void wait(Form& form, QDialog& dialog) const;

    std::map<const Form*, Build> builds_;
    std::map<const Form*, QPointer<QDialog>> open_;
    QPointer<QWidget> owner_;
};

} // namespace ko
