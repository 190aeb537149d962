#include "widgets/bindings/MenuBinding.h"

#include "widgets/bindings/FormView.h"
#include "widgets/support/Convert.h"

namespace ko {

MenuBinding::MenuBinding(FormView& view, Menu& control, QAction& action) : menu_(control), action_(action)
{
    action.setObjectName(toQt(control.name()));
    control.view = [this](Aspect) { refresh(); };
    onSignal(&action, &QAction::triggered, this, [this, &view] { view.act([&] { menu_.userClicked(); }); });
    refresh();
}

MenuBinding::~MenuBinding()
{
    menu_.view = nullptr;
}

void MenuBinding::refresh()
{
    action_.setText(toQt(menu_.caption()));
    action_.setEnabled(menu_.enabled());
    action_.setVisible(menu_.visible());
}

} // namespace ko
