#include "widgets/page/PageWidget.h"

#include "widgets/bindings/NoInstrumentPicture.h"

#include <QBoxLayout>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

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
    layAnswers();
    view_->image(page.imgNoInst, *picture_);
    applyMetrics();
    content_->installEventFilter(this);
    view_->focus().moved = [this](QWidget& focused) { ensureWidgetVisible(&focused); };
}

PageWidget::~PageWidget() = default;

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

void PageWidget::layAnswers()
{
    answers_ = new QWidget(this);
    answers_->hide();
    auto* whole = new QVBoxLayout(answers_);
    auto* buttons = new QHBoxLayout;
    whatFits_ = &view_->label(page_.lblWhatFits);
    whatFits_->setWordWrap(true);
    whole->addWidget(whatFits_);
    whole->addLayout(buttons);
    for (CommandButton* button : {&page_.cmdTakeDuration, &page_.cmdTakeRate})
        buttons->addWidget(&view_->button(*button));
    buttons->addStretch(1);
    whatFits_->installEventFilter(this);
    answers_->installEventFilter(this);
}

int PageWidget::answersHeight(int width) const
{
    const QLayout& layout = *answers_->layout();
    return layout.hasHeightForWidth() ? layout.heightForWidth(width) : layout.sizeHint().height();
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
    const QRect room(contentsRect().topLeft(), QSize(viewport()->width(), contentsRect().height()));
    const bool isRefused = whatFits_->isVisibleTo(answers_);
    const int height = isRefused ? answersHeight(room.width()) : planHeight(room.width());
    setViewportMargins(0, 0, 0, height);
    for (QWidget* widget : {static_cast<QWidget*>(plan_), answers_})
        widget->setGeometry(room.left(), room.bottom() + 1 - height, room.width(), height);
    plan_->setVisible(!isRefused);
    answers_->setVisible(isRefused);
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
    const QEvent::Type type = event->type();
    if (object == content_ && type == QEvent::LayoutRequest)
        arrange();
    if ((object == answers_ && type == QEvent::LayoutRequest) ||
        (object == whatFits_ && (type == QEvent::ShowToParent || type == QEvent::HideToParent)))
        placePlan();
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
