#include "host/docks/Reports.h"

#include "host/sheet/SheetTexts.h"
#include "host/support/HostTexts.h"
#include "host/toolkit/DockLayout.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/ShownText.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>
#include <QStyle>
#include <QTime>
#include <QToolButton>
#include <QTreeWidget>

namespace ko {

namespace {

class ListReporter : public ErrorReporter {
public:
    explicit ListReporter(Reports& reports) : reports_(&reports) {}

    void ReportError(std::int32_t number, const std::string& source, const std::string& description, std::int32_t,
                     const std::string&, bool) override
    {
        if (reports_)
            reports_->add(number, toShown(source), toShown(description));
    }

private:
    QPointer<Reports> reports_;
};

} // namespace

Reports::Reports(const Texts& texts, QWidget* parent)
    : QDockWidget(texts(hostText::reports), parent), list_(new QTreeWidget(this)), button_(new QToolButton(parent)),
      countText_(texts(hostText::reportCount)), failureText_(texts(sheetText::namedValue))
{
    setObjectName(QStringLiteral("reports"));
    makeView(texts);
    onSignal(&addDockAction(*list_, texts(hostText::copyLog), "copyReports"), &QAction::triggered, this,
             [this] { copy(); });
    onSignal(&addDockAction(*list_, texts(hostText::clearLog), "clearReports"), &QAction::triggered, this,
             [this] { clear(); });
    layDock(*this, *list_);
    hide();
    makeButton(texts(hostText::reportsHint));
}

void Reports::makeView(const Texts& texts)
{
    QStringList header;
    for (const int column : {hostText::logTime, hostText::logInstrument, failedText::failure, failedText::reportedBy})
        header << texts(column);
    list_->setHeaderLabels(header);
    list_->setAccessibleName(windowTitle());
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setAllColumnsShowFocus(true);
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    fitColumns(*list_);
    followTheEnd(*list_);
}

void Reports::makeButton(const QString& hint)
{
    button_->setObjectName(QStringLiteral("reportCount"));
    button_->setAutoRaise(true);
    button_->setFocusPolicy(Qt::NoFocus);
    button_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button_->setStatusTip(hint);
    button_->hide();
    onSignal(button_, &QToolButton::clicked, this, [this] {
        // Open, but covered by another dock's tab.
        if (!isHidden() && visibleRegion().isEmpty())
            return raise();
        toggleViewAction()->trigger();
    });
}

void Reports::callFailed(const QString& instrument, const QString& failedSetting, std::int32_t number,
                         const QString& reason)
{
    failed_ = {instrument, failedSetting, number, reason};
}

void Reports::add(std::int32_t number, const QString& source, const QString& description)
{
    const Call call = std::exchange(failed_, {});
    const bool isCall = call.number == number && call.reason == description;
    QString failure = QStringLiteral("%1 (%2)").arg(description, QString::number(number));
    if (isCall)
        failure = failureText_.arg(call.failedSetting, failure);
    addRow(isCall ? call.instrument : QString(), failure, source);
}

void Reports::addRow(const QString& instrument, const QString& failure, const QString& source)
{
    const QString time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss"));
    auto* item = new QTreeWidgetItem({time, toLine(instrument), toLine(failure), toLine(source)});
    for (int column = 0; column < columns; ++column)
        item->setData(column, Qt::ToolTipRole, plainTip(item->text(column)));
    if (list_->topLevelItemCount() == kept)
        delete list_->takeTopLevelItem(0);
    list_->addTopLevelItem(item);
    ++count_;
    showCount();
}

void Reports::clear()
{
    list_->clear();
    count_ = 0;
    showCount();
}

void Reports::copy()
{
    const bool all = list_->selectedItems().isEmpty();
    QString lines;
    for (int row = 0; row < list_->topLevelItemCount(); ++row) {
        const QTreeWidgetItem& item = *list_->topLevelItem(row);
        QStringList cells;
        for (int column = 0; column < columns; ++column)
            cells << item.text(column).simplified();
        if (all || item.isSelected())
            lines += cells.join(u'\t') + u'\n';
    }
    QGuiApplication::clipboard()->setText(lines);
}

void Reports::showCount()
{
    if (button_->icon().isNull())
        button_->setIcon(style()->standardIcon(QStyle::SP_MessageBoxWarning));
    button_->setText(countText_.arg(count_));
    button_->setVisible(count_ > 0);
}

std::shared_ptr<ErrorReporter> makeReporter(Reports& reports)
{
    return std::make_shared<ListReporter>(reports);
}

} // namespace ko
