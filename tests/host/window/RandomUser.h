#pragma once

#include "fakes/Draw.h"

#include <QPointer>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

class QDialog;

namespace ko::test {

/// Uses the window in front with random mouse and keyboard input, reproducible by seed.
class RandomUser {
public:
    RandomUser(QWidget& window, unsigned seed) : draw(seed), window_(&window) {}

    /// Performs one input and what is needed to return to the window: uses dialogs and menus for a while and closes
    /// them, answers message boxes.
    void act();
    /// Calls `act` in place of a random input, and handles dialogs, menus and message boxes in the same way.
    void have(const std::function<void()>& act);
    /// Uses another window from now on.
    void useWindow(QWidget& window) { window_ = &window; }

    /// Called for an open dialog or message box before it is used; returns whether that has been done. Otherwise a
    /// message box is accepted, and a dialog is used.
    std::function<bool(QDialog& dialog)> answer;
    /// Whether toolbars are used: while a monitor runs the page takes no input.
    bool usesToolBars = false;

    /// What has been done, a line each.
    std::vector<std::string> done;
    void note(std::string what) { done.push_back(std::move(what)); }
    /// Returns the text of the message box answered last.
    [[nodiscard]] const QString& lastMessage() const { return lastMessage_; }
    Draw draw;

private:
    void attend();
    void attendSoon();
    void useModal(QWidget& modal);
    void use(QWidget& front);
    void usePopup(QWidget& popup);

    QPointer<QWidget> window_;
    QObject life_;
    QString lastMessage_;
    QPointer<QWidget> modal_; ///< the dialog in use
    int patience_ = 0;        ///< remaining inputs in it
    QPointer<QWidget> popup_; ///< the menu or list in use
    int popupPatience_ = 0;
    bool isActing_ = false;
    QPointer<QWidget> settling_; ///< the window that is becoming the active one
    bool isAttendingSoon_ = false;
};

} // namespace ko::test
