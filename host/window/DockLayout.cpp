#include "host/window/DockLayout.h"

#include "widgets/support/Guarded.h"

#include <QAbstractItemView>
#include <QAction>
#include <QBoxLayout>
#include <QDockWidget>
#include <QPushButton>

namespace ko {

void layDock(QDockWidget& dock, QAbstractItemView& view)
{
    auto* content = new QWidget(&dock);
    auto* column = new QVBoxLayout(content);
    auto* buttons = new QHBoxLayout;
    const int gap = dock.fontMetrics().height() / 3;
    column->setContentsMargins(gap, 0, gap, gap);
    column->addWidget(&view);
    column->addLayout(buttons);
    buttons->addStretch();
    for (QAction* action : view.actions()) {
        auto* button = new QPushButton(action->text(), content);
        button->setObjectName(action->objectName());
        button->setToolTip(action->toolTip());
        button->setAutoDefault(false);
        button->setEnabled(action->isEnabled());
        onSignal(button, &QPushButton::clicked, action, [action] { action->trigger(); });
        onSignal(action, &QAction::enabledChanged, button, [button](bool on) { button->setEnabled(on); });
        buttons->addWidget(button);
    }
    view.setContextMenuPolicy(Qt::ActionsContextMenu);
    dock.setWidget(content);
    dock.setFocusProxy(&view);
}

} // namespace ko
