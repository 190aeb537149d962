#include "host/toolkit/DockLayout.h"

#include "host/toolkit/Later.h"
#include "widgets/support/Delay.h"
#include "widgets/support/Guarded.h"

#include <QAbstractItemView>
#include <QAction>
#include <QBoxLayout>
#include <QDockWidget>
#include <QEvent>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>
#include <QTreeView>
#include <utility>

namespace ko {

namespace {

constexpr int widestColumn = 48; ///< letters

/// Owned by its view. Fits the columns once after several changes, and only while the view is visible.
class ColumnFitter : public QObject {
public:
    explicit ColumnFitter(QTreeView& view) : QObject(&view), view_(view)
    {
        onSignal(&idle_, &QTimer::timeout, this, [this] { fit(); });
        const auto fitLater = [this] { idle_.start(0); };
        const QAbstractItemModel* const model = view.model();
        onSignal(model, &QAbstractItemModel::rowsInserted, this, fitLater);
        onSignal(model, &QAbstractItemModel::modelReset, this, fitLater);
        onSignal(&view, &QTreeView::expanded, this, fitLater);
        view.header()->setResizeContentsPrecision(0);
        view.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show)
            idle_.start(0);
        return QObject::eventFilter(watched, event);
    }

private:
    void fit()
    {
        if (!view_.isVisible())
            return;
        const int last = view_.model()->columnCount() - 1;
        widest_.resize(last);
        for (int column = 0; column < last; ++column) {
            const int content = std::max(static_cast<const QAbstractItemView&>(view_).sizeHintForColumn(column),
                                         view_.header()->sectionSizeHint(column));
            const int width = std::min(content, widestColumn * view_.fontMetrics().averageCharWidth());
            if (width > std::exchange(widest_[column], std::max(widest_[column], width)))
                view_.header()->resizeSection(column, width);
        }
    }

    QTreeView& view_;
    Delay idle_{this};
    QList<int> widest_;
};

} // namespace

QAction& addDockAction(QAbstractItemView& view, const QString& text, const char* name)
{
    auto* const action = new QAction(text, &view);
    action->setObjectName(QLatin1String(name));
    view.addAction(action);
    return *action;
}

void fitColumns(QTreeView& view)
{
    new ColumnFitter(view);
}

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
        if (action->priority() == QAction::LowPriority)
            continue;
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

void followTheEnd(QAbstractItemView& view)
{
    onSignal(view.model(), &QAbstractItemModel::rowsInserted, &view, [&view] {
        const QScrollBar& bar = *view.verticalScrollBar();
        if (bar.value() == bar.maximum())
            later(view, [&view] { view.scrollToBottom(); });
    });
}

void commitEditor(QAbstractItemView& view)
{
    // An editor that loses the focus is committed.
    if (view.viewport()->isAncestorOf(view.window()->focusWidget()))
        view.setFocus();
}

} // namespace ko
