#include "widgets/bindings/TabControlBinding.h"

#include "widgets/bindings/FormView.h"
#include "widgets/support/Guarded.h"

#include <QTabBar>
#include <QVBoxLayout>

namespace ko {

TabControlBinding::TabControlBinding(FormView& view, TabControl& control, QTabWidget& tabs)
    : Binding(view, control, tabs), control_(control), tabs_(tabs)
{
    // There are few tabs, so all of them stay visible.
    tabs.setUsesScrollButtons(false);
    for (std::size_t i = 0; i < control.tabs().size(); ++i) {
        auto* page = new QWidget;
        auto* layout = new QVBoxLayout(page);
        layout->addWidget(view.widget(control.frame(static_cast<std::int32_t>(i))));
        tabs.addTab(page, QString());
    }
    refreshAll();
    onSignal(&tabs, &QTabWidget::currentChanged, this, [this](int index) { chosen(index); });
}

void TabControlBinding::refresh(Aspect aspect)
{
    switch (aspect) {
    case Aspect::Items: showTabs(); break;
    case Aspect::Selection: tabs_.setCurrentIndex(control_.tab()); break;
    default: Binding::refresh(aspect);
    }
}

void TabControlBinding::showTabs()
{
    const QSignalBlocker quiet(tabs_);
    for (int i = 0; i < tabs_.count(); ++i) {
        const TabControl::Tab& tab = control_.tabs()[static_cast<std::size_t>(i)];
        tabs_.setTabText(i, toQt(tab.caption));
        tabs_.setTabEnabled(i, tab.enabled);
        view_.widget(control_.frame(i))->setAccessibleName(withoutMnemonic(toQt(tab.caption)));
    }
    tabs_.tabBar()->setAccessibleName(toQt(control_.form().caption()));
    tabs_.setCurrentIndex(control_.tab());
}

void TabControlBinding::chosen(int index)
{
    if (index == control_.tab())
        return;
    if (view_.act([&] { control_.userChoseTab(index); }))
        tabs_.setCurrentIndex(control_.tab());
}

} // namespace ko
