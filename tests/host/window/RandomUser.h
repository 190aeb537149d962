#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <random>

namespace ko::test {

/// Uses the window in front with random mouse and keyboard input, reproducible by seed.
class RandomUser {
public:
    explicit RandomUser(QWidget& window, unsigned seed) : window_(window), random_(seed) {}

    /// Performs one action and what is needed to return to the window: uses dialogs for a while and closes them,
    /// answers message boxes.
    void act();
    /// Calls `done` in place of a random action, and handles dialogs and message boxes in the same way.
    void have(const std::function<void()>& done);

    /// Returns the text of the message box answered last.
    [[nodiscard]] const QString& lastMessage() const { return lastMessage_; }
    /// A number from 0 to `count` - 1.
    int upTo(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

private:
    void attend();
    void attendSoon();
    void useModal(QWidget& modal);
    void use(QWidget& front);
    void usePopup(QWidget& popup);
    void click(QWidget& front);
    void press(QWidget& front);
    void type(QWidget& front);
    void enter(QWidget& front);

    QWidget& window_;
    std::minstd_rand random_;
    QString lastMessage_;
    QPointer<QWidget> modal_; ///< the dialog in use
    int patience_ = 0;        ///< remaining actions in it
    bool isActing_ = false;
    bool isSettling_ = false;
};

} // namespace ko::test
