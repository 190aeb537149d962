#include "widgets/PageWidget.h"

#include "widgets/NoInstrumentPicture.h"

#include <QBoxLayout>
#include <QEvent>
#include <QGroupBox>

namespace ko {

PageWidget::PageWidget(Page& page, const Texts& texts, QWidget* parent)
    : QScrollArea(parent), page_(page), view_(new FormView(page, texts)),
      picture_(new NoInstrumentPicture(texts, view_)),
      menu_(&view_->menu(page.mnuTimebase, {&page.mnuTimebaseTriggerLines}))
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(view_);
    layDynamic();
    layStatic();
    layStart();
    layStop();
    layColumns();
    view_->image(page.imgNoInst, *picture_);
    applyMetrics();
    content_->installEventFilter(this);
    view_->focus().moved = [this](QWidget& focused) { ensureWidgetVisible(&focused); };
}

PageWidget::~PageWidget() = default;

QSize PageWidget::sizeHint() const
{
    const QFontMetrics metrics = view_->fontMetrics();
    return view_->sizeHint().expandedTo({metrics.averageCharWidth() * 115, metrics.height() * 38});
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
    arrange();
}

void PageWidget::changeEvent(QEvent* event)
{
    QScrollArea::changeEvent(event);
    if (columns_ && (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange))
        applyMetrics();
}

} // namespace ko
