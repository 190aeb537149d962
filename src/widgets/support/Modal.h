#pragma once

#include <QDialog>
#include <QPointer>
#include <concepts>
#include <utility>

namespace ko {

/// A dialog or message box that is shown modally. If it is destroyed while it is shown, together with its window, it
/// counts as cancelled.
template <std::derived_from<QDialog> Dialog> class Modal {
public:
    template <class... Arguments>
    explicit Modal(Arguments&&... arguments) : dialog_(new Dialog(std::forward<Arguments>(arguments)...))
    {
    }
    ~Modal() { delete dialog_; }
    Modal(const Modal&) = delete;
    Modal& operator=(const Modal&) = delete;

    /// Null once it has been destroyed.
    [[nodiscard]] Dialog* get() const { return dialog_; }
    [[nodiscard]] Dialog* operator->() const { return dialog_; }

    /// Shows the dialog until it is closed. Returns the toolkit's result code, `QDialog::Rejected` when it has been
    /// destroyed.
    int wait() { return dialog_->exec(); }
    /// Shows the dialog; returns whether the user accepted it.
    bool isAccepted() { return wait() == QDialog::Accepted && dialog_; }
    /// Shows a message box; returns the button that the user clicked, or null when the box has been destroyed.
    [[nodiscard]] auto* answer()
    {
        wait();
        return dialog_ ? dialog_->clickedButton() : nullptr;
    }

private:
    QPointer<Dialog> dialog_;
};

} // namespace ko
