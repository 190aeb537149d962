#include "widgets/page/PageWidget.h"

#include "widgets/bindings/NoInstrumentPicture.h"
#include "widgets/support/Guarded.h"

#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>
#include <QTime>

namespace ko {

PageWidget::PageWidget(Page& page, const Texts& texts, QWidget* parent, const QStringList& menus)
    : QWidget(parent), page_(page), view_(new FormView(page, texts)), picture_(new NoInstrumentPicture(texts, view_)),
      menu_(&view_->menu(page.mnuTimebase, {&page.mnuTimebaseTriggerLines})), area_(new QScrollArea(this))
{
    area_->setFrameShape(QFrame::NoFrame);
    area_->setFocusPolicy(Qt::NoFocus);
    area_->setWidgetResizable(true);
    area_->setWidget(view_);
    view_->reserveMnemonics(menus);
    layDynamic();
    layStatic();
    layStart();
    layStop();
    layColumns();
    layPlan();
    view_->image(page.imgNoInst, *picture_);
    applyMetrics();
    content_->installEventFilter(this);
    followClock();
    view_->focus().moved = [this](QWidget& focused) { ensureWidgetVisible(&focused); };
}

PageWidget::~PageWidget() = default;

void PageWidget::followClock()
{
    minute_.setObjectName(QStringLiteral("minute"));
    minute_.setSingleShot(true);
    const auto untilNextMinute = [] {
        constexpr int minute = 60000; // milliseconds
        return minute - QTime::currentTime().msecsSinceStartOfDay() % minute;
    };
    onSignal(&minute_, &QTimer::timeout, this, [this, untilNextMinute] {
        minute_.start(untilNextMinute());
        if (!QApplication::activeModalWidget())
            view_->act([this] { ko::raise(page_.minutePassed); });
    });
    minute_.start(untilNextMinute());
}

void PageWidget::ensureWidgetVisible(QWidget* part)
{
    area_->ensureWidgetVisible(part);
}

QSize PageWidget::sizeHint() const
{
    const QFontMetrics metrics = view_->fontMetrics();
    const QSize size = view_->sizeHint().expandedTo({metrics.averageCharWidth() * 128, metrics.height() * 38});
    return size + QSize(0, std::max(plan_->heightForWidth(size.width()), planHeight()));
}

void PageWidget::layPlan()
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(area_, 1);
    plan_ = &view_->sentence(page_.lblPlan);
    column->addWidget(plan_);
    const QMargins page = view_->layout()->contentsMargins();
    plan_->setContentsMargins(page.left(), page.top() / 2, page.right(), page.bottom() / 2);
    plan_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

int PageWidget::planHeight() const
{
    const QMargins margins = plan_->contentsMargins();
    return 2 * plan_->fontMetrics().lineSpacing() + margins.top() + margins.bottom();
}

void PageWidget::arrange()
{
    const QMargins margins = view_->layout()->contentsMargins();
    int wanted = margins.left() + margins.right() + columns_->spacing();
    for (int i = 0; i < columns_->count(); ++i)
        wanted += columns_->itemAt(i)->minimumSize().width();
    const bool stacked = wanted > area_->viewport()->width();
    columns_->setDirection(stacked ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    stretch(stacked);
}

bool PageWidget::eventFilter(QObject* object, QEvent* event)
{
    if (object == content_ && event->type() == QEvent::LayoutRequest)
        arrange();
    return QWidget::eventFilter(object, event);
}

void PageWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    arrange();
}

void PageWidget::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (columns_ && (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange))
        applyMetrics();
}

} // namespace ko
