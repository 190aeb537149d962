#include "widgets/bindings/Binding.h"

#include "widgets/bindings/FormView.h"
#include "widgets/support/Convert.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/ShownText.h"

#include <QWidget>

namespace ko {

namespace {

/// Includes the frames around the control, because their group boxes are never disabled.
bool isEnabled(const Control& control)
{
    return control.enabled() && (!control.container() || isEnabled(*control.container()));
}

} // namespace

Binding::Binding(FormView& view, Control& control, QWidget& widget) : view_(view), control_(control), widget_(widget)
{
    widget.setObjectName(toQt(control.name()));
    control.view = [this](Aspect aspect) { refresh(aspect); };
}

Binding::~Binding()
{
    control_.view = nullptr;
}

void Binding::refreshAll()
{
    for (const Aspect aspect :
         {Aspect::Font, Aspect::Items, Aspect::Text, Aspect::Selection, Aspect::Hint, Aspect::Mark, Aspect::Usability})
        refresh(aspect);
}

void Binding::refresh(Aspect aspect)
{
    switch (aspect) {
    case Aspect::Usability: refreshUsability(); break;
    case Aspect::Hint: refreshHint(); break;
    case Aspect::Font:
        if (control_.hasFont())
            applyFont(widget_, control_.font(), control_.form().font());
        break;
    default: break;
    }
}

void Binding::refreshHint()
{
    const QString toolTip = control_.hasToolTip() ? toShown(control_.toolTipText()) : QString();
    widget_.setToolTip(plainTip(toolTip));
    QString hint = toolTip.isEmpty() ? toShown(control_.tag()) : toolTip;
    // A number is the offset of a text for the loader, not a hint.
    bool isNumber = false;
    hint.toInt(&isNumber);
    if (isNumber)
        hint.clear();
    widget_.setStatusTip(hint);
    widget_.setAccessibleDescription(hint);
}

void Binding::refreshUsability()
{
    // The toolkit moves the focus from a widget that is disabled or hidden to another one.
    const FocusKeeper::Hold hold(view_.focus());
    widget_.setEnabled(isEnabled(control_) || isRead());
    widget_.setVisible(control_.visible());
    view_.focus().followLater();
}

} // namespace ko
