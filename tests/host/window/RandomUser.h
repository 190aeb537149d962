#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <random>

namespace ko::test {

/// Someone who uses whatever window is in front by mouse and keyboard, without a plan but alike for the same seed.
class RandomUser {
public:
    explicit RandomUser(QWidget& window, unsigned seed) : window_(window), random_(seed) {}

    /// Does one thing, and what it takes to be back in the window: dialogs are used for a while and closed, message
    /// boxes answered.
    void act();
    /// Has something else done, and does the same about it.
    void have(const std::function<void()>& done);

    /// The text of the message box that was answered last.
    [[nodiscard]] const QString& told() const { return told_; }
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
    QString told_;
    QPointer<QWidget> modal_; ///< the dialog that is used
    int patience_ = 0;        ///< how often it will be used
    bool isActing_ = false;
    bool isSettling_ = false;
};

} // namespace ko::test
