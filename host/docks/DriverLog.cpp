#include "host/docks/DriverLog.h"

#include "host/support/HostTexts.h"
#include "host/toolkit/DockLayout.h"
#include "widgets/support/Guarded.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QTreeView>

namespace ko {

DriverLog::DriverLog(const Texts& texts, const Locale& locale, QWidget* parent)
    : QDockWidget(withoutMnemonic(texts(hostText::driverLog)), parent), model_(new DriverLogModel(texts, locale, this)),
      view_(new QTreeView(this))
{
    setObjectName(QStringLiteral("driverLog"));
    view_->setModel(model_);
    view_->setAccessibleName(windowTitle());
    view_->setRootIsDecorated(false);
    view_->setUniformRowHeights(true);
    view_->setAllColumnsShowFocus(true);
    view_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    fitColumns(*view_);
    followTheEnd(*view_);
    makeActions(texts);
    layDock(*this, *view_);
    hide();
}

void DriverLog::makeActions(const Texts& texts)
{
    const auto add = [&](int text, const char* name, auto act) {
        onSignal(&addDockAction(*view_, texts(text), name), &QAction::triggered, this, act);
    };
    add(hostText::copyLog, "copyLog", [this] { copy(); });
    add(hostText::clearLog, "clearLog", [this] { model_->clear(); });
}

void DriverLog::copy()
{
    model_->flush();
    const QModelIndexList rows = view_->selectionModel()->selectedRows();
    QGuiApplication::clipboard()->setText(rows.isEmpty() ? model_->allLines() : model_->lines(rows));
}

} // namespace ko
