#include "host/properties/PropertyTabs.h"
#include "host/support/HostTexts.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/ShownText.h"

#include <QFormLayout>
#include <QLineEdit>

namespace ko {

QWidget* makeDeviceTab(const PropertyContext& context, const InstrumentSettings& settings, QWidget* parent)
{
    auto* const content = new QWidget(parent);
    auto* const form = new QFormLayout(content);
    for (const auto& [name, value] : settings.options)
        context.fields.addBox(*form, toLine(name), optionPath(name), TextForm::Text);
    if (settings.options.empty())
        form->addRow(new PlainLabel(context.texts(textNumber::device::noOptions), content));
    return scrolledTab(*content, parent);
}

} // namespace ko
