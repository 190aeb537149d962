#pragma once

#include "platform/TabControl.h"
#include "widgets/bindings/Binding.h"

#include <QTabWidget>

namespace ko {

/// Tabs, with the frame of each on a page of its own.
class TabControlBinding : public Binding {
public:
    /// The frames' widgets must exist already.
    TabControlBinding(FormView& view, TabControl& control, QTabWidget& tabs);

protected:
    void refresh(Aspect aspect) override;

private:
    void showTabs();
    void chosen(int index);

    TabControl& control_;
    QTabWidget& tabs_;
};

} // namespace ko
