#include "host/DriverLog.h"

#include "host/HostTexts.h"
#include "host/Later.h"

#include <QAction>
#include <QBoxLayout>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPushButton>
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
    makeButtons(texts);
    hide();
}

void DriverLog::makeButtons(const Texts& texts)
{
    auto* content = new QWidget(this);
    auto* column = new QVBoxLayout(content);
    auto* buttons = new QHBoxLayout;
    const int gap = fontMetrics().height() / 3;
    column->setContentsMargins(gap, 0, gap, gap);
    column->addWidget(view_);
    column->addLayout(buttons);
    buttons->addStretch();
    const auto add = [&](int text, const char* name, auto act) {
        auto* button = new QPushButton(texts(text), content);
        button->setObjectName(QLatin1String(name));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, act);
        buttons->addWidget(button);
        auto* action = new QAction(button->text(), view_);
        connect(action, &QAction::triggered, this, act);
        view_->addAction(action);
    };
    add(hostText::copyLog, "copyLog", [this] { copy(); });
    add(hostText::clearLog, "clearLog", [this] { model_->clear(); });
    view_->setContextMenuPolicy(Qt::ActionsContextMenu);
    setWidget(content);
    setFocusProxy(view_);
}

void DriverLog::followTheEnd()
{
    connect(model_, &QAbstractItemModel::rowsInserted, this, [this] {
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
