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

namespace {

/// Options show their value, but contain no text to select.
bool isReadable(const Control& control)
{
    if (const auto* box = dynamic_cast<const TextBox*>(&control); box && box->text().empty())
        return false;
    return control.isRead() && !dynamic_cast<const PressControl*>(&control);
}

} // namespace

FocusKeeper::FocusKeeper(Form& form, QWidget& surface, const UserActions& actions)
    : form_(form), surface_(surface), actions_(actions)
{
    surface.installEventFilter(this);
    onSignal(&later_, &QTimer::timeout, this, [this] {
        // The focus may have moved to a dock in the meantime.
        const QWidget* focused = surface_.window()->focusWidget();
        if (!focused || focused == &surface_ || surface_.isAncestorOf(focused))
            form_.activeControl() ? follow() : park();
    });
}

void FocusKeeper::watch(Control& control, QWidget& widget, QWidget& pressed)
{
    watched_.push_back({&control, &widget});
    // With a click policy the toolkit would move the focus before the form could refuse.
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
        // A message box shown by the control that is left makes the toolkit's focus leave and return.
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

Control* FocusKeeper::readControl() const
{
    const QWidget* focused = surface_.window()->focusWidget();
    Control* control = controlOf(focused);
    return control && control->isRead() ? control : nullptr;
}

/// Returns whether the view still exists.
bool FocusKeeper::read(Control& control, Qt::FocusReason reason)
{
    const Hold hold(*this);
    if (!actions_.run([&] { form_.userMovedFocus(nullptr); }))
        return false;
    QWidget* target = widgetOf(&control);
    target->setFocus(reason);
    if (moved)
        moved(*target);
    return true;
}

void FocusKeeper::park()
{
    QWidget* focused = surface_.window()->focusWidget();
    if (readControl())
        return;
    if (focused != &surface_ && (!focused || surface_.isAncestorOf(focused)))
        surface_.setFocus(Qt::OtherFocusReason);
}

std::vector<Control*> FocusKeeper::tabStops() const
{
    std::vector<Control*> stops;
    for (Control* control : form_.controls()) {
        const bool active = control == form_.activeControl();
        if (!control->takesFocus() || !widgetOf(control) || (!control->isUsable() && !active && !isReadable(*control)))
            continue;
        // Controls on a hidden tab are reached through the tab.
        if (!active && !widgetOf(control)->isVisibleTo(&surface_))
            continue;
        // Only the selected option of a frame is a tab stop.
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
    Control* const reading = readControl();
    const auto here = std::find(stops.begin(), stops.end(), reading ? reading : form_.activeControl());
    auto next = here == stops.end() ? stops.begin() : here + 1;
    if (next == stops.end()) {
        if (stepOutside(forward))
            return true;
        next = stops.begin();
    }
    if (next != stops.end() && next != here) {
        // Styles draw the focus of buttons only after a focus change by keyboard.
        surface_.window()->setAttribute(Qt::WA_KeyboardFocusChange);
        isReadable(**next) ? read(**next, Qt::TabFocusReason) : request(**next);
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
    if (control.isRead())
        return !isReadable(control) || !read(control, Qt::MouseFocusReason);
    if (form_.activeControl() == &control) {
        follow();
        return false;
    }
    if (!request(control))
        return true;
    // The press that focuses a box would clear the selection that the box makes when it gets the focus.
    const auto* box = dynamic_cast<TextBox*>(&control);
    return box && box->selLength() > 0;
}

bool FocusKeeper::focusCame(QObject* object, QEvent* event)
{
    Control* control = controlOf(object);
    if (held_ > 0 || !control || control == form_.activeControl() || control->isRead())
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
    // Shift states have no Meta key; a key with it is a different key.
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
        // A key that a control ignores arrives at the surface a second time.
        if (static_cast<QWidget*>(object)->hasFocus())
            return keyPressed(*static_cast<const QKeyEvent*>(event));
        return false;
    default: return false;
    }
}

} // namespace ko
