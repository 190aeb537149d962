#include "host/window/DriverLog.h"

#include "host/support/HostTexts.h"
#include "host/window/DockLayout.h"
#include "host/window/Later.h"
#include "widgets/support/Guarded.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QTreeView>

namespace ko {

DriverLog::DriverLog(const Texts& texts, QWidget* parent)
    : QDockWidget(withoutMnemonic(texts(hostText::driverLog)), parent), model_(new DriverLogModel(texts, this)),
      view_(new QTreeView(this))
{
    setObjectName(QStringLiteral("driverLog"));
    view_->setModel(model_);
    view_->setAccessibleName(windowTitle());
    view_->setRootIsDecorated(false);
    view_->setUniformRowHeights(true);
    view_->setAllColumnsShowFocus(true);
    view_->setTabKeyNavigation(false);
    view_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    const int letter = view_->fontMetrics().averageCharWidth();
    for (const auto& [column, letters] : {std::pair{DriverLogModel::Time, 16},
                                          {DriverLogModel::Instrument, 24},
                                          {DriverLogModel::OperationName, 26},
                                          {DriverLogModel::Arguments, 12},
                                          {DriverLogModel::Value, 20}})
        view_->header()->resizeSection(column, letters * letter);
    followTheEnd();
    makeActions(texts);
    layDock(*this, *view_);
    hide();
}

void DriverLog::makeActions(const Texts& texts)
{
    const auto add = [&](int text, const char* name, auto act) {
        auto* action = new QAction(texts(text), view_);
        action->setObjectName(QLatin1String(name));
        onSignal(action, &QAction::triggered, this, act);
        view_->addAction(action);
    };
    add(hostText::copyLog, "copyLog", [this] { copy(); });
    add(hostText::clearLog, "clearLog", [this] { model_->clear(); });
}

void DriverLog::followTheEnd()
{
    onSignal(model_, &QAbstractItemModel::rowsInserted, this, [this] {
        const QScrollBar& bar = *view_->verticalScrollBar();
        if (bar.value() == bar.maximum())
            later(*view_, [this] { view_->scrollToBottom(); });
    });
}

void DriverLog::copy()
{
    model_->flush();
    const QModelIndexList rows = view_->selectionModel()->selectedRows();
    QGuiApplication::clipboard()->setText(rows.isEmpty() ? model_->allLines() : model_->lines(rows));
}

} // namespace ko
