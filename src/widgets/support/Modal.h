#pragma once

#include <QDialog>
#include <QPointer>
#include <concepts>
#include <utility>

namespace ko {

/// A dialog or message box that is waited for. It may be destroyed meanwhile, with the window that it belongs to; that
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

    /// Shows it and waits for the answer: the toolkit's code of it, `QDialog::Rejected` when it has been destroyed.
    int wait() { return dialog_->exec(); }
    /// Whether the user has accepted it.
    bool isAccepted() { return wait() == QDialog::Accepted && dialog_; }
    /// The button by which the user answers a message box; null when it has been destroyed.
    [[nodiscard]] auto* answer()
    {
        wait();
        return dialog_ ? dialog_->clickedButton() : nullptr;
    }

private:
    QPointer<Dialog> dialog_;
};

} // namespace ko
