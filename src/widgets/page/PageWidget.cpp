#include "widgets/page/PageWidget.h"

#include "widgets/bindings/NoInstrumentPicture.h"
#include "widgets/support/Guarded.h"

#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QTime>

namespace ko {

PageWidget::PageWidget(Page& page, const Texts& texts, QWidget* parent, const QStringList& menus)
    : QScrollArea(parent), page_(page), view_(new FormView(page, texts)),
      picture_(new NoInstrumentPicture(texts, view_)),
      menu_(&view_->menu(page.mnuTimebase, {&page.mnuTimebaseTriggerLines}))
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(view_);
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

QSize PageWidget::sizeHint() const
{
    const QFontMetrics metrics = view_->fontMetrics();
    const QSize size = view_->sizeHint().expandedTo({metrics.averageCharWidth() * 115, metrics.height() * 38});
    return size + QSize(0, planHeight(size.width()));
}

void PageWidget::layPlan()
{
    plan_ = &view_->sentence(page_.lblPlan);
    plan_->setParent(this);
    const QMargins page = view_->layout()->contentsMargins();
    plan_->setContentsMargins(page.left(), page.top() / 2, page.right(), page.bottom() / 2);
    plan_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

/// At least two lines, so that a longer sentence seldom moves the page.
int PageWidget::planHeight(int width) const
{
    const QMargins margins = plan_->contentsMargins();
    const int twoLines = 2 * plan_->fontMetrics().lineSpacing() + margins.top() + margins.bottom();
    return std::max(plan_->heightForWidth(width), twoLines);
}

/// Places the plan below the scrolled area.
void PageWidget::placePlan()
{
    const QRect room = contentsRect();
    const int height = planHeight(room.width());
    setViewportMargins(0, 0, 0, height);
    plan_->setGeometry(room.left(), room.bottom() + 1 - height, room.width(), height);
}

void PageWidget::arrange()
{
    const QMargins margins = view_->layout()->contentsMargins();
    int wanted = margins.left() + margins.right() + columns_->spacing();
    for (int i = 0; i < columns_->count(); ++i)
        wanted += columns_->itemAt(i)->minimumSize().width();
    const bool stacked = wanted > viewport()->width();
    columns_->setDirection(stacked ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    stretch(stacked);
}

bool PageWidget::eventFilter(QObject* object, QEvent* event)
{
    if (object == content_ && event->type() == QEvent::LayoutRequest)
        arrange();
    return QScrollArea::eventFilter(object, event);
}

void PageWidget::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    placePlan();
    arrange();
}

bool PageWidget::event(QEvent* event)
{
    // A label requests a layout when its text has changed.
    if (plan_ && event->type() == QEvent::LayoutRequest)
        placePlan();
    return QScrollArea::event(event);
}

void PageWidget::changeEvent(QEvent* event)
{
    QScrollArea::changeEvent(event);
    if (columns_ && (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange))
        applyMetrics();
}

} // namespace ko
