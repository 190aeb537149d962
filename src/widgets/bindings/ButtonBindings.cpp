#include "widgets/bindings/ButtonBindings.h"

#include "widgets/bindings/FormView.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/ShownText.h"

#include <QKeyEvent>
#include <QShortcutEvent>
#include <algorithm>

namespace ko {

namespace {

/// The direction of an arrow key, 0 for any other key.
int directionOf(const QKeyEvent& key)
{
    switch (key.key()) {
    case Qt::Key_Up:
    case Qt::Key_Left: return -1;
    case Qt::Key_Down:
    case Qt::Key_Right: return 1;
    default: return 0;
    }
}

} // namespace

OptionWidget::OptionWidget(QWidget* parent) : QRadioButton(parent)
{
    setAutoExclusive(false);
}

PressBinding::PressBinding(FormView& view, PressControl& control, QAbstractButton& button)
    : Binding(view, control, button), press_(control), button_(button)
{
    button.installEventFilter(this);
    onSignal(&button, &QAbstractButton::clicked, this, [this] { clicked(press_); });
}

void PressBinding::clicked(PressControl& control) const
{
    view_.act([&] { control.userClicked(); });
}

void PressBinding::refresh(Aspect aspect)
{
    if (aspect != Aspect::Text) {
        Binding::refresh(aspect);
        return;
    }
    const QString caption = toLine(press_.caption());
    button_.setText(caption);
    button_.setAccessibleName(withoutMnemonic(caption));
}

bool PressBinding::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::Shortcut)
        return false;
    // When controls share a mnemonic, each press focuses the next one without clicking it.
    if (static_cast<QShortcutEvent*>(event)->isAmbiguous())
        view_.focus().request(press_);
    else
        clicked(press_);
    return true;
}

OptionButtonBinding::OptionButtonBinding(FormView& view, OptionButton& control, QRadioButton& button)
    : PressBinding(view, control, button), option_(control), radio_(button)
{
    refreshAll();
}

void OptionButtonBinding::refresh(Aspect aspect)
{
    if (aspect != Aspect::Selection) {
        PressBinding::refresh(aspect);
        return;
    }
    radio_.setChecked(option_.value());
    if (option_.form().isForReading())
        refreshUsability();
}

void OptionButtonBinding::refreshUsability()
{
    PressBinding::refreshUsability();
    // An enabled radio button would change when it is pressed.
    radio_.setAttribute(Qt::WA_TransparentForMouseEvents, isRead());
}

void OptionButtonBinding::selectNeighbour(int direction)
{
    std::vector<OptionButton*> group;
    for (Control* control : option_.form().controls()) {
        auto* option = dynamic_cast<OptionButton*>(control);
        if (option && option->container() == option_.container() && option->isUsable())
            group.push_back(option);
    }
    const auto here = std::find(group.begin(), group.end(), &option_);
    if (group.size() < 2)
        return;
    const auto size = static_cast<std::ptrdiff_t>(group.size());
    const std::ptrdiff_t next = (here - group.begin() + direction + size) % size;
    clicked(*group[static_cast<std::size_t>(next)]);
}

bool OptionButtonBinding::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::KeyPress)
        if (const int direction = directionOf(*static_cast<QKeyEvent*>(event))) {
            selectNeighbour(direction);
            return true;
        }
    return PressBinding::eventFilter(object, event);
}

CommandButtonBinding::CommandButtonBinding(FormView& view, CommandButton& control, QPushButton& button,
                                           const Label* title)
    : PressBinding(view, control, button), button_(button), title_(title)
{
    button.setAutoDefault(false);
    refreshAll();
}

void CommandButtonBinding::refresh(Aspect aspect)
{
    PressBinding::refresh(aspect);
    if (aspect == Aspect::Text && title_)
        button_.setAccessibleName(withoutMnemonic(toQt(title_->caption())) + QStringLiteral(": ") +
                                  button_.accessibleName());
}

ImageBinding::ImageBinding(FormView& view, Image& control, QWidget& picture)
    : Binding(view, control, picture), image_(control)
{
    picture.installEventFilter(this);
    refreshAll();
}

void ImageBinding::refresh(Aspect aspect)
{
    Binding::refresh(aspect);
    if (aspect != Aspect::Text)
        return;
    widget().setProperty("picture", image_.picture());
    widget().update();
}

bool ImageBinding::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::MouseButtonRelease)
        return false;
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() == Qt::LeftButton && widget().rect().contains(mouse->position().toPoint()))
        view_.act([&] { image_.userClicked(); });
    return false;
}

FrameBinding::FrameBinding(FormView& view, Frame& control, QGroupBox& box, QLabel* heading)
    : Binding(view, control, box), frame_(control), box_(box), heading_(heading)
{
    refreshAll();
}

void FrameBinding::refreshUsability()
{
    box_.setVisible(frame_.visible());
    if (heading_)
        heading_->setEnabled(frame_.enabled() || frame_.isRead());
    for (const Control* control : frame_.form().controls())
        if (control->container() == &frame_ && control->view)
            control->view(Aspect::Usability);
}

void FrameBinding::refresh(Aspect aspect)
{
    if (aspect != Aspect::Text) {
        Binding::refresh(aspect);
        return;
    }
    const QString caption = toQt(frame_.caption());
    box_.setAccessibleName(withoutMnemonic(caption));
    if (heading_)
        heading_->setText(withoutMnemonic(caption));
    else
        box_.setTitle(caption);
}

} // namespace ko
