#pragma once

#include "platform/Services.h"

#include <QPointer>
#include <QWidget>
#include <functional>
#include <map>

class QDialog;

namespace ko {

/// Shows forms as dialogs. Each form's name must have been registered with a way to make its widget. Enter, Escape
/// and the close button press buttons of the form, so that they end it as its buttons do.
class QtModalForms : public ModalForms {
public:
    struct Kind {
        /// Makes the widget that shows the form; the dialog owns it.
        std::function<QWidget*(Form& form)> build;
        std::string okButton;
        std::string cancelButton;
    };

    void add(const std::string& formName, Kind kind) { kinds_[formName] = std::move(kind); }
    /// The same for this form, which takes the size that its widget asks for when it is first placed.
    void addMeasured(Form& form, Kind kind);
    /// The window that dialogs belong to while no other window is active.
    void setOwner(QWidget* owner) { owner_ = owner; }

    /// Failure 5 for a form of no registered name.
    void showModal(Form& form) override;
    void hide(Form& form) override;

    /// A dialog is about to be shown; it has been left, in the reverse order.
    std::function<void(const Form& form)> opened;
    std::function<void()> closed;

private:
    std::map<std::string, Kind> kinds_;
    std::map<const Form*, QDialog*> open_;
    QPointer<QWidget> owner_;
};

} // namespace ko
