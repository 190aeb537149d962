#include "RandomUser.h"

#include "RandomInput.h"
#include "platform/Scoped.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTimer>
#include <utility>

namespace ko::test {

namespace {

constexpr int longestUse = 12; // inputs in a dialog or menu

} // namespace

void RandomUser::act()
{
    have([this] { use(*window_); });
}

void RandomUser::have(const std::function<void()>& act)
{
    const Scoped acting(isActing_, true);
    attendSoon();
    act();
    // Twice without a dialog or list, because the input that closes one may post what was chosen.
    const auto isOpen = [] { return QApplication::activeModalWidget() || QApplication::activePopupWidget(); };
    for (int calm = 0; calm < 2; calm = isOpen() ? 0 : calm + 1)
        QApplication::processEvents();
}

/// By a timer, because a modal dialog or menu runs its own event loop inside the call that opens it.
void RandomUser::attendSoon()
{
    if (!std::exchange(isAttendingSoon_, true))
        QTimer::singleShot(0, &life_, [this] { attend(); });
}

void RandomUser::attend()
{
    isAttendingSoon_ = false;
    if (!isActing_)
        return;
    attendSoon();
    QWidget* const modal = QApplication::activeModalWidget();
    if (QWidget* popup = QApplication::activePopupWidget())
        usePopup(*popup);
    else if (modal && modal != settling_)
        useModal(*modal);
}

void RandomUser::useModal(QWidget& modal)
{
    auto* dialog = qobject_cast<QDialog*>(&modal);
    const auto* box = qobject_cast<QMessageBox*>(&modal);
    if (box)
        lastMessage_ = box->text();
    if (dialog && answer && answer(*dialog))
        return;
    if (box)
        return dialog->accept();
    if (modal_ != &modal)
        patience_ = draw.upTo(longestUse);
    modal_ = &modal;
    if (--patience_ >= 0)
        return use(modal);
    const bool isRefused = draw.oneIn(3);
    note(isRefused ? "cancel the dialog" : "accept the dialog");
    isRefused ? dialog->reject() : dialog->accept();
}

void RandomUser::use(QWidget& front)
{
    if (!front.isActiveWindow()) {
        const QPointer<QWidget> life = settling_ = &front;
        front.activateWindow();
        QApplication::processEvents();
        settling_ = nullptr;
        if (!life)
            return;
    }
    if (QWidget* popup = QApplication::activePopupWidget())
        usePopup(*popup);
    else
        makeInput(*this, front);
}

void RandomUser::usePopup(QWidget& popup)
{
    if (popup_ != &popup)
        popupPatience_ = longestUse;
    popup_ = &popup;
    if (--popupPatience_ >= 0)
        makePopupInput(*this, popup);
    else
        popup.close();
}

} // namespace ko::test
