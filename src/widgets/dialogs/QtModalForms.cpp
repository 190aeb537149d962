#include "widgets/dialogs/QtModalForms.h"

#include "platform/CaptionControls.h"
#include "platform/Failure.h"
#include "widgets/bindings/FormView.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/Modal.h"

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

namespace ko {

namespace {

class FormDialog : public QDialog {
public:
    FormDialog(Form& form, QWidget* content, QWidget* parent) : QDialog(parent), form_(form)
    {
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(content);
        // Enter presses it wherever the focus is, except on another button.
        const PressControl* okButton = form.okButton();
        if (auto* ok = okButton ? findChild<QPushButton*>(toQt(okButton->name())) : nullptr)
            ok->setDefault(true);
        // The toolkit's default limit is two thirds of the screen.
        resize(sizeHint().boundedTo(screen()->availableSize() * 9 / 10));
        follow();
    }

    /// Updates caption and position from the form.
    void follow()
    {
        setWindowTitle(toQt(form_.caption()));
        const QPoint place(toPixels(*this, form_.bounds().left), toPixels(*this, form_.bounds().top));
        // Keep the position to which the user moved the dialog.
        if (place_ != place)
            move(insideWorkArea(place));
        place_ = place;
    }

    void accept() override { press(form_.okButton()); }
    void reject() override { press(form_.cancelButton()); }

private:
    /// The form does not include the window frame, which is assumed to be as thick as the owner window's.
    [[nodiscard]] QPoint insideWorkArea(const QPoint& place) const
    {
        const QScreen* there = QGuiApplication::screenAt(place);
        const QRect area = (there ? there : screen())->availableGeometry();
        const QWidget* below = parentWidget() ? parentWidget()->window() : this;
        const QSize outer = size() + below->frameGeometry().size() - below->size();
        return {std::max(area.left(), std::min(place.x(), area.left() + area.width() - outer.width())),
                std::max(area.top(), std::min(place.y(), area.top() + area.height() - outer.height()))};
    }

    void press(PressControl* button)
    {
        if (button)
            guarded([&] { button->userClicked(); });
        else
            done(Rejected);
    }

    Form& form_;
    std::optional<QPoint> place_;
};

} // namespace

void QtModalForms::add(Form& form, Build build)
{
    form.measure = [&form, build, measured = false]() mutable {
        if (std::exchange(measured, true))
            return;
        const std::unique_ptr<QWidget> view(build());
        view->ensurePolished();
        const QSize size = view->sizeHint();
        form.resize(toTwips(*view, size.width()), toTwips(*view, size.height()));
    };
    builds_[&form] = std::move(build);
}

void QtModalForms::showModal(Form& form)
{
    const auto build = builds_.find(&form);
    if (build == builds_.end() || open_[&form])
        fail(failure::invalidCall);
    QWidget* top = QApplication::activeModalWidget();
    Modal<FormDialog> dialog(form, build->second(), top ? top : owner_.data());
    if (auto* view = dynamic_cast<FormView*>(dialog->findChild<QWidget*>(toQt(form.name())))) {
        view->formChanged = [shown = dialog.get()] { shown->follow(); };
        view->actions().whenDone([this] { ko::raise(actionDone); });
        view->focus().follow();
    }
    open_[&form] = dialog.get();
    if (opened)
        opened(form);
    wait(form, *dialog.get());
    if (closed)
        closed();
    open_.erase(&form);
}

void QtModalForms::wait(Form& form, QDialog& dialog) const
{
    if (!standIn) {
        dialog.exec();
        return;
    }
    const QPointer<QDialog> shown = &dialog;
    dialog.setModal(true);
    dialog.show();
    guarded([&] { standIn->showModal(form); });
    if (shown)
        shown->done(QDialog::Rejected);
}

void QtModalForms::hide(Form& form)
{
    if (standIn)
        standIn->hide(form);
    const auto dialog = open_.find(&form);
    if (dialog != open_.end() && dialog->second)
        dialog->second->done(QDialog::Accepted);
}

} // namespace ko
