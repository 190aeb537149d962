#pragma once

#include "platform/Services.h"

#include <QPointer>
#include <QWidget>

namespace ko {

/// Message boxes of the toolkit, modal to the active window.
class QtMessageBox : public MessageBox {
public:
    void show(const std::string& text, const std::string& title, int style) override;
    /// Sets the parent window of boxes while no other window is active.
    void setOwner(QWidget* owner) { owner_ = owner; }
    /// If set, receives the boxes in place of the user.
    MessageBox* standIn = nullptr;

private:
    QPointer<QWidget> owner_;
};

} // namespace ko
