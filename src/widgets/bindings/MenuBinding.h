#pragma once

#include "platform/CaptionControls.h"

#include <QAction>

namespace ko {

class FormView;

/// A menu, by its menu action, or one of its items.
class MenuBinding : public QObject {
public:
    MenuBinding(FormView& view, Menu& control, QAction& action);
    ~MenuBinding() override;

private:
    void refresh();

    Menu& menu_;
    QAction& action_;
};

} // namespace ko
