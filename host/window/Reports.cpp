#include "host/window/Reports.h"

#include "host/support/HostTexts.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/ShownText.h"

#include <QListWidget>
#include <QPointer>
#include <QStyle>
#include <QTime>
#include <QToolButton>

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
    : QDockWidget(texts(hostText::reports), parent), list_(new QListWidget(this)), button_(new QToolButton(parent)),
      countText_(texts(hostText::reportCount))
{
    setObjectName(QStringLiteral("reports"));
    list_->setAccessibleName(windowTitle());
    list_->setUniformItemSizes(true);
    setWidget(list_);
    hide();
    button_->setObjectName(QStringLiteral("reportCount"));
    button_->setAutoRaise(true);
    button_->setFocusPolicy(Qt::NoFocus);
    button_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button_->setStatusTip(texts(hostText::reportsHint));
    button_->hide();
    onSignal(button_, &QToolButton::clicked, this, [this] { setVisible(!isVisible()); });
}

void Reports::add(std::int32_t number, const QString& source, const QString& description)
{
    const QString time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss"));
    list_->addItem(QStringLiteral("%1  %2  %3 (%4)").arg(time, source, description, QString::number(number)));
    if (list_->count() > kept)
        delete list_->takeItem(0);
    list_->scrollToBottom();
    if (button_->icon().isNull())
        button_->setIcon(style()->standardIcon(QStyle::SP_MessageBoxWarning));
    button_->setText(countText_.arg(++count_));
    button_->show();
}

std::shared_ptr<ErrorReporter> makeReporter(Reports& reports)
{
    return std::make_shared<ListReporter>(reports);
}

} // namespace ko
