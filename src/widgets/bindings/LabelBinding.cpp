#include "widgets/bindings/LabelBinding.h"

#include "widgets/bindings/FormView.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PageTexts.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/ShownText.h"

#include <QKeyEvent>
#include <QLocale>

namespace ko {

LabelBinding::LabelBinding(FormView& view, Label& control, QLabel& label, std::vector<Field> fields)
    : Binding(view, control, label), caption_(control), label_(label), fields_(std::move(fields))
{
    label.installEventFilter(this);
    for (const Field& field : fields_)
        field.widget->installEventFilter(this);
    refreshAll();
}

const LabelBinding::Field* LabelBinding::shownField() const
{
    for (const Field& field : fields_)
        if (field.control->visible())
            return &field;
    return fields_.empty() ? nullptr : &fields_.front();
}

void LabelBinding::refresh(Aspect aspect)
{
    if (aspect != Aspect::Text) {
        Binding::refresh(aspect);
        return;
    }
    const QString caption = toShown(caption_.caption());
    label_.setText(fields_.empty() ? withoutMnemonic(caption) : view_.withMnemonic(caption));
    for (const Field& field : fields_)
        field.widget->setAccessibleName(withoutMnemonic(caption));
    showBuddy();
}

void LabelBinding::showBuddy()
{
    const Field* shown = shownField();
    label_.setBuddy(shown ? shown->widget.data() : nullptr);
    label_.setAccessibleName(withoutMnemonic(toShown(caption_.caption())));
}

void LabelBinding::refreshHint()
{
    // A label's tag is the number of its caption, so it takes its hint from the field that it names.
    if (const Field* shown = shownField())
        label_.setStatusTip(toShown(shown->control->tag()));
}

bool LabelBinding::eventFilter(QObject* object, QEvent* event)
{
    const Field* shown = shownField();
    if (object == &label_ && event->type() == QEvent::Shortcut && shown) {
        view_.focus().request(*shown->control);
        return true;
    }
    if (object != &label_ && (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)) {
        showBuddy();
        refreshHint();
    }
    return false;
}

ValueBinding::ValueBinding(FormView& view, Label& control, QLabel& label, Label& title)
    : Binding(view, control, label), value_(control), label_(label), title_(title)
{
    label.setTextInteractionFlags(Qt::TextSelectableByMouse);
    label.setFocusPolicy(Qt::NoFocus);
    refreshAll();
}

void ValueBinding::refresh(Aspect aspect)
{
    if (aspect != Aspect::Text) {
        Binding::refresh(aspect);
        return;
    }
    const QString value = toShown(value_.caption());
    label_.setText(value);
    const QString spoken = isKnown() ? value : view_.text(pageText::notAvailable);
    label_.setAccessibleName(withoutMnemonic(toShown(title_.caption())) + QStringLiteral(": ") + spoken);
}

bool ValueBinding::isKnown() const
{
    return toShown(value_.caption()) != view_.text(pageText::notApplicable);
}

LimitedValueBinding::LimitedValueBinding(FormView& view, LimitedLabel& control, QLabel& label, Label& title,
                                         QProgressBar& bar)
    : ValueBinding(view, control, label, title), limited_(control), bar_(bar)
{
    constexpr int steps = 100;
    bar.setObjectName(toQt(control.name()) + QStringLiteral("Share"));
    bar.setRange(0, steps);
    bar.setTextVisible(false);
    bar.setAccessibleName(withoutMnemonic(toShown(title.caption())) + QStringLiteral(": ") +
                          view.text(pageText::shareOfLimit));
    showShare();
}

void LimitedValueBinding::refresh(Aspect aspect)
{
    ValueBinding::refresh(aspect);
    if (aspect == Aspect::Text)
        showShare();
}

void LimitedValueBinding::showShare()
{
    const double share = limited_.share();
    bar_.setValue(qRound(share * bar_.maximum()));
    const QString percent = isKnown() ? bar_.locale().toString(share * 100.0, 'f', 1) + QStringLiteral(" %")
                                      : view_.text(pageText::notAvailable);
    bar_.setToolTip(plainTip(view_.text(pageText::shareOfLimit) + QStringLiteral(": ") + percent));
    bar_.setAccessibleDescription(percent);
}

SentenceBinding::SentenceBinding(FormView& view, Label& control, QLabel& label)
    : Binding(view, control, label), sentence_(control), label_(label)
{
    constexpr int moment = 400; // milliseconds
    label.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label.setFocusPolicy(Qt::StrongFocus);
    label.setWordWrap(true);
    label.installEventFilter(this);
    pause_.setInterval(moment);
    // Assistive technology is notified only when the accessible name changes.
    onSignal(&pause_, &QTimer::timeout, &label, [&label] { label.setAccessibleName(label.text()); });
    // A name without a blank in it must not widen the window.
    label_.setMinimumWidth(1);
    refreshAll();
}

bool SentenceBinding::eventFilter(QObject*, QEvent* event)
{
    // The window's command copies from the form's focused control.
    const bool copies =
        event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy);
    event->setAccepted(copies || event->isAccepted());
    return copies;
}

void SentenceBinding::refresh(Aspect aspect)
{
    if (aspect != Aspect::Text) {
        Binding::refresh(aspect);
        return;
    }
    label_.setText(toShown(sentence_.caption()));
    if (label_.accessibleName().isEmpty())
        label_.setAccessibleName(label_.text());
    else
        pause_.start();
}

} // namespace ko
