#include "widgets/bindings/FocusKeeper.h"

#include "platform/CaptionControls.h"
#include "platform/TextBox.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/KeyCodes.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QWidget>
#include <algorithm>

namespace ko {

FocusKeeper::FocusKeeper(Form& form, QWidget& surface, const UserActions& actions)
    : form_(form), surface_(surface), actions_(actions)
{
    surface.installEventFilter(this);
    later_.setSingleShot(true);
    onSignal(&later_, &QTimer::timeout, this, [this] {
        // By then the user may be in a dock.
        const QWidget* focused = surface_.window()->focusWidget();
        if (!focused || focused == &surface_ || surface_.isAncestorOf(focused))
            form_.activeControl() ? follow() : park();
    });
}

void FocusKeeper::watch(Control& control, QWidget& widget, QWidget& pressed)
{
    watched_.push_back({&control, &widget});
    // Without the click the toolkit would take the focus before the form has been asked.
    widget.setFocusPolicy(Qt::TabFocus);
    widget.installEventFilter(this);
    if (&pressed != &widget) {
        watched_.push_back({&control, &pressed});
        pressed.installEventFilter(this);
    }
}

QWidget* FocusKeeper::widgetOf(const Control* control) const
{
    const auto found =
        std::find_if(watched_.begin(), watched_.end(), [&](const Watched& w) { return w.control == control; });
    return found == watched_.end() ? nullptr : found->widget;
}

Control* FocusKeeper::controlOf(const QObject* object) const
{
    const auto found =
        std::find_if(watched_.begin(), watched_.end(), [&](const Watched& w) { return w.widget == object; });
    return found == watched_.end() ? nullptr : found->control;
}

bool FocusKeeper::request(Control& control)
{
    bool came = false;
    {
        // A message box that the control left shows makes the toolkit's focus come and go.
        const Hold hold(*this);
        if (!actions_.run([&] { came = form_.userMovedFocus(&control); }))
            return false;
    }
    follow();
    return came;
}

void FocusKeeper::follow()
{
    QWidget* target = widgetOf(form_.activeControl());
    if (!target) {
        followLater();
        return;
    }
    if (surface_.window()->focusWidget() == target)
        return;
    const Hold hold(*this);
    target->setFocus(Qt::OtherFocusReason);
    if (moved)
        moved(*target);
}

void FocusKeeper::followLater()
{
    later_.start();
}

void FocusKeeper::park()
{
    QWidget* focused = surface_.window()->focusWidget();
    if (focused != &surface_ && (!focused || surface_.isAncestorOf(focused)))
        surface_.setFocus(Qt::OtherFocusReason);
}

std::vector<Control*> FocusKeeper::tabStops() const
{
    std::vector<Control*> stops;
    for (Control* control : form_.controls()) {
        const bool active = control == form_.activeControl();
        if (!control->takesFocus() || !widgetOf(control) || (!control->isUsable() && !active))
            continue;
        // What stands behind another tab is reached by its tab.
        if (!active && !widgetOf(control)->isVisibleTo(&surface_))
            continue;
        // Of a frame's options the selected one stands for all.
        const auto* option = dynamic_cast<OptionButton*>(control);
        if (!option || option->value() || active)
            stops.push_back(control);
    }
    return stops;
}

bool FocusKeeper::step(bool forward)
{
    if (held_ > 0)
        return false;
    std::vector<Control*> stops = tabStops();
    if (!forward)
        std::reverse(stops.begin(), stops.end());
    const auto here = std::find(stops.begin(), stops.end(), form_.activeControl());
    auto next = here == stops.end() ? stops.begin() : here + 1;
    if (next == stops.end()) {
        if (stepOutside(forward))
            return true;
        next = stops.begin();
    }
    if (next != stops.end() && next != here) {
        // The style draws the focus of buttons only for the keyboard.
        surface_.window()->setAttribute(Qt::WA_KeyboardFocusChange);
        request(**next);
    }
    return true;
}

bool FocusKeeper::stepOutside(bool forward)
{
    QWidget* widget = &surface_;
    do {
        widget = forward ? widget->nextInFocusChain() : widget->previousInFocusChain();
        const bool stops = widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) != 0;
        if (stops && widget->window() == surface_.window() && !surface_.isAncestorOf(widget)) {
            widget->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    } while (widget != &surface_);
    return false;
}

bool FocusKeeper::pressed(Control& control)
{
    if (form_.activeControl() == &control) {
        follow();
        return false;
    }
    if (!request(control))
        return true;
    // The press that enters a box would undo the selection that the box makes on entering.
    const auto* box = dynamic_cast<TextBox*>(&control);
    return box && box->selLength() > 0;
}

bool FocusKeeper::focusCame(QObject* object, QEvent* event)
{
    Control* control = controlOf(object);
    if (held_ > 0 || !control || control == form_.activeControl())
        return false;
    switch (static_cast<QFocusEvent*>(event)->reason()) {
    case Qt::PopupFocusReason:
    case Qt::ActiveWindowFocusReason:
    case Qt::MenuBarFocusReason: followLater(); return false;
    default: return !request(*control);
    }
}

bool FocusKeeper::keyPressed(const QKeyEvent& event) const
{
    KeyPress press{keyCodeOf(event), shiftStateOf(event)};
    // The platform knows no fourth key to hold: with it, every key is another one.
    if (press.keyCode == 0 || !form_.keyDown || event.modifiers().testFlag(Qt::MetaModifier))
        return false;
    return !actions_.run([&] { form_.userPressedKey(press); }) || press.keyCode == 0;
}

bool FocusKeeper::eventFilter(QObject* object, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (Control* control = controlOf(object))
            return pressed(*control);
        return false;
    case QEvent::FocusIn: return focusCame(object, event);
    case QEvent::KeyPress:
        // A key that a control leaves alone comes to the surface a second time.
        if (static_cast<QWidget*>(object)->hasFocus())
            return keyPressed(*static_cast<const QKeyEvent*>(event));
        return false;
    default: return false;
    }
}

} // namespace ko
