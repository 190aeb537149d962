#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <gtest/gtest.h>

namespace ko::test {

/// Calls a function with the dialog that is opened next, in its event loop. Fails if it is another one or none.
template <class Dialog = QMessageBox> class InDialog {
public:
    template <class Action> explicit InDialog(Action action)
    {
        QObject::connect(&timer_, &QTimer::timeout, [this, action] {
            isOpened_ = true;
            auto* const dialog = dynamic_cast<Dialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            action(*dialog);
        });
        timer_.setSingleShot(true);
        timer_.start(0);
    }
    ~InDialog() { EXPECT_TRUE(isOpened_) << "no dialog was opened"; }
    InDialog(const InDialog&) = delete;
    InDialog& operator=(const InDialog&) = delete;

private:
    bool isOpened_ = false;
    QTimer timer_;
};

} // namespace ko::test
