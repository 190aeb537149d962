#include "widgets/bindings/Accessibility.h"

#include "widgets/bindings/ButtonBindings.h"
#include "widgets/bindings/ChannelBrowser.h"
#include "widgets/bindings/EntryMark.h"
#include "widgets/bindings/NoInstrumentPicture.h"
#include "widgets/bindings/PictureBinding.h"
#include "widgets/bindings/TimelineBinding.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeySequence>

namespace ko {

namespace {

QAccessible::Role roleOf(QObject* object)
{
    const bool isPicture = dynamic_cast<PictureWidget*>(object) || dynamic_cast<NoInstrumentPicture*>(object) ||
                           dynamic_cast<EntryMark*>(object) || dynamic_cast<TimelineWidget*>(object);
    if (isPicture)
        return QAccessible::Graphic;
    return dynamic_cast<ChannelBrowser*>(object) ? QAccessible::Grouping : QAccessible::NoRole;
}

/// The toolkit reports a radio button outside a button group as a check box.
class OptionInterface : public QAccessibleWidget {
public:
    explicit OptionInterface(OptionWidget& option)
        : QAccessibleWidget(&option, QAccessible::RadioButton), option_(option)
    {
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = option_.isChecked();
        return state;
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Accelerator)
            return QKeySequence::mnemonic(option_.text()).toString(QKeySequence::NativeText);
        return QAccessibleWidget::text(kind);
    }
    [[nodiscard]] QStringList actionNames() const override
    {
        return QStringList{toggleAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override
    {
        if (action == toggleAction())
            option_.click();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    OptionWidget& option_;
};

/// The toolkit calls this for each of a widget's classes; the roles apply to plain widgets.
QAccessibleInterface* interfaceOf(const QString& className, QObject* object)
{
    if (auto* option = dynamic_cast<OptionWidget*>(object))
        return new OptionInterface(*option);
    if (className != QStringLiteral("QWidget"))
        return nullptr;
    const QAccessible::Role role = roleOf(object);
    return role == QAccessible::NoRole ? nullptr : new QAccessibleWidget(static_cast<QWidget*>(object), role);
}

} // namespace

void describeOwnWidgets()
{
    // The toolkit ignores a function that is already installed.
    QAccessible::installFactory(interfaceOf);
}

} // namespace ko
