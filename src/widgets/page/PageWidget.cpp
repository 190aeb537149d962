#include "widgets/page/PageWidget.h"

#include "widgets/bindings/NoInstrumentPicture.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PageTexts.h"

#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
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
    layAnswers();
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
    // A mark that appears beside an editor must not move the columns.
    const QString mark = view_->text(textNumber::compare::differ).arg(QStringLiteral("2"), QStringLiteral("3"));
    const int besideMarks = columnsWidth() + metrics.horizontalAdvance(mark) + 3 * metrics.height();
    const QSize size =
        view_->sizeHint().expandedTo({std::max(metrics.averageCharWidth() * 128, besideMarks), metrics.height() * 45});
    // A scroll bar that appears must not stack the frames.
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return size + QSize(bar, std::max(plan_->heightForWidth(size.width()), planHeight()));
}

void PageWidget::layPlan()
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(area_);
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

void PageWidget::layAnswers()
{
    answers_ = new QWidget(this);
    auto* whole = new QVBoxLayout(answers_);
    auto* row = new QHBoxLayout;
    whatFits_ = &view_->label(page_.lblWhatFits);
    whatFits_->setWordWrap(true);
    whole->addWidget(whatFits_);
    whole->addLayout(row);
    for (CommandButton* button : {&page_.cmdTakeDuration, &page_.cmdTakeRate})
        row->addWidget(&view_->button(*button));
    row->addStretch();
    layout()->addWidget(answers_);
    whatFits_->installEventFilter(this);
    showPlanOrAnswers();
}

void PageWidget::showPlanOrAnswers()
{
    const bool isRefused = whatFits_->isVisibleTo(answers_);
    plan_->setVisible(!isRefused);
    answers_->setVisible(isRefused);
}

bool PageWidget::focusNextPrevChild(bool next)
{
    const QWidget* const focused = focusWidget();
    const bool isAnswer = focused && answers_->isAncestorOf(focused);
    return isAnswer ? view_->focus().step(next) : QWidget::focusNextPrevChild(next);
}

int PageWidget::columnsWidth() const
{
    const QMargins margins = view_->layout()->contentsMargins();
    int width = margins.left() + margins.right() + columns_->spacing();
    for (int i = 0; i < columns_->count(); ++i)
        width += columns_->itemAt(i)->minimumSize().width();
    return width;
}

void PageWidget::arrange()
{
    const bool stacked = columnsWidth() > area_->viewport()->width();
    content_->setMaximumHeight(stacked ? QWIDGETSIZE_MAX : view_->fontMetrics().height() * 50);
    columns_->setDirection(stacked ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    stretch(stacked);
}

bool PageWidget::eventFilter(QObject* object, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (object == content_ && type == QEvent::LayoutRequest)
        arrange();
    if (object == whatFits_ && (type == QEvent::ShowToParent || type == QEvent::HideToParent))
        showPlanOrAnswers();
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
