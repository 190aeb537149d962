#include "page/Quantities.h"
#include "widgets/bindings/EntryMark.h"
#include "widgets/bindings/NoInstrumentPicture.h"
#include "widgets/bindings/PeriodTip.h"
#include "widgets/page/PageWidget.h"
#include "widgets/support/PageTexts.h"
#include "widgets/support/PlainText.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QTableWidget>

namespace ko {

QWidget& PageWidget::kept(QWidget& widget)
{
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(policy);
    return widget;
}

QGridLayout& PageWidget::framed(Frame& frame)
{
    auto* heading = new PlainLabel(view_);
    QFont bold;
    bold.setBold(true);
    heading->setFont(bold);
    heading->setWordWrap(true);
    auto* grid = new QGridLayout(&view_->frame(frame, heading));
    grid->addWidget(heading, 0, labels, 1, buttons + 1);
    return *grid;
}

void PageWidget::addQuantities(QGridLayout& grid, const Frame& frame)
{
    for (const Quantity& quantity : quantities)
        if (&(page_.*quantity.number->frame) == &frame)
            addQuantity(grid, quantity);
}

void PageWidget::addQuantity(QGridLayout& grid, const Quantity& quantity)
{
    Label& label = page_.*quantity.label;
    ComboBox& list = page_.*quantity.list;
    TextBox& box = page_.*quantity.box;
    CommandButton& button = page_.*quantity.button;
    const int row = grid.rowCount();
    // List and box share one cell; the hidden one keeps its size.
    auto* field = new QGridLayout;
    field->addWidget(&kept(view_->numberList(list)), 0, 0);
    field->addWidget(&kept(view_->numberBox(box)), 0, 0);
    QPushButton& mark = view_->button(page_.*quantity.mark, &label);
    mark.setIcon(mark.style()->standardIcon(QStyle::SP_MessageBoxWarning));
    mark.setToolTip(plainTip(toQt((page_.*quantity.mark).tag())));
    field->addWidget(&mark, 0, 1);
    grid.addLayout(field, row, fields);
    grid.addWidget(&view_->label(label, {&list, &box}), row, labels);
    if (quantity.number->isPeriod && !quantity.isRate)
        for (const Control* control : std::initializer_list<const Control*>{&list, &box})
            addPeriodTip(*view_->widget(*control), quantity);
    QPushButton& explain = view_->button(button);
    explain.setAccessibleName(view_->text(textNumber::offers::titleOf).arg(toQt(label.caption())));
    explain.setToolTip(plainTip(toQt(button.tag())));
    grid.addWidget(&explain, row, buttons);
}

void PageWidget::addPeriodTip(QWidget& field, const Quantity& quantity)
{
    const bool isSample = quantity.number == &timebaseNumber::samplePeriod;
    const auto figure = isSample ? &Figures::samplePeriod : &Figures::scanPeriod;
    new PeriodTip(field, [this, figure] { return page_.figures.*figure; });
}

void PageWidget::addValue(QGridLayout& grid, Label& label, Label& value)
{
    const int row = grid.rowCount();
    grid.addWidget(&view_->label(label), row, labels);
    QLabel& shown = view_->value(value, label);
    shown.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid.addWidget(&shown, row, fields, 1, 2);
}

void PageWidget::addLimitedValue(QGridLayout& grid, Label& label, LimitedLabel& value)
{
    const int row = grid.rowCount();
    grid.addWidget(&view_->label(label), row, labels);
    auto* bar = new QProgressBar(view_);
    QLabel& shown = view_->limitedValue(value, label, *bar);
    bar->setFixedHeight(view_->fontMetrics().height() / 2);
    bar->setMinimumWidth(view_->fontMetrics().averageCharWidth() * 8);
    shown.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    shown.setMinimumWidth(view_->fontMetrics().horizontalAdvance(QStringLiteral("1023.99 MB")));
    auto* both = new QHBoxLayout;
    both->addWidget(bar);
    both->addWidget(&shown);
    grid.addLayout(both, row, fields, 1, 2);
}

void PageWidget::layDynamic()
{
    QGridLayout& grid = framed(page_.frmDynamic);
    addQuantities(grid, page_.frmDynamic);
    addValue(grid, page_.lblSpan, page_.lblSpanValue);
    addValue(grid, page_.lblNumSamples, page_.lblNumSamplesValue);
    addLimitedValue(grid, page_.lblNumDynamicBytes, page_.lblNumDynamicBytesValue);
    measurements_.push_back(&grid);
}

void PageWidget::layStatic()
{
    QGridLayout& grid = framed(page_.frmStatic);
    addQuantities(grid, page_.frmStatic);
    addValue(grid, page_.lblNumScans, page_.lblNumScansValue);
    addLimitedValue(grid, page_.lblNumStaticBytes, page_.lblNumStaticBytesValue);
    measurements_.push_back(&grid);
}

QLabel& PageWidget::badge()
{
    QLabel& badge = view_->label(page_.lblReadOnly);
    badge.setFrameShape(QFrame::StyledPanel);
    badge.setMargin(view_->fontMetrics().height() / 4);
    badge.setWordWrap(true);
    QFont bold;
    bold.setBold(true);
    badge.setFont(bold);
    return badge;
}

/// As wide as its largest width and the room allow, in the middle of the room.
QLayout* PageWidget::centred(QWidget& widget)
{
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(&widget, 1);
    row->addStretch();
    return row;
}

void PageWidget::layColumns()
{
    content_ = new QWidget(view_);
    columns_ = new QBoxLayout(QBoxLayout::LeftToRight, content_);
    columns_->setContentsMargins(0, 0, 0, 0);
    auto* left = new QVBoxLayout;
    left->addWidget(view_->widget(page_.frmDynamic));
    left->addWidget(view_->widget(page_.frmStatic));
    left->addStretch();
    schedules_ = new QVBoxLayout;
    schedules_->addWidget(view_->widget(page_.frmStart));
    schedules_->addWidget(view_->widget(page_.frmStop));
    schedules_->addStretch();
    columns_->addLayout(left);
    columns_->addLayout(schedules_, 1);
    auto* limited = new QVBoxLayout;
    limited->addWidget(&badge());
    limited->addLayout(centred(*content_), 1);
    limited->addLayout(centred(view_->timeline(page_.tmlPlan)));
    limited->addStretch();
    // The picture and the frames share one cell; only one of them is shown.
    auto* whole = new QGridLayout(view_);
    whole->addLayout(limited, 0, 0);
    whole->addWidget(picture_, 0, 0);
    picture_->raise();
}

/// Extra room goes to the trigger parameters or, without them, below the frames.
void PageWidget::stretch(bool stacked)
{
    schedules_->setStretch(0, view_->widget(page_.grdParam)->isVisibleTo(view_) ? 1 : 0);
    columns_->setStretch(0, stacked ? 0 : 1);
}

void PageWidget::alignLabels(const std::vector<QGridLayout*>& grids)
{
    int widest = 0;
    for (const QGridLayout* grid : grids)
        for (int row = 0; row < grid->rowCount(); ++row)
            if (const QLayoutItem* item = grid->itemAtPosition(row, labels))
                if (item != grid->itemAtPosition(row, fields))
                    widest = std::max(widest, item->sizeHint().width());
    for (QGridLayout* grid : grids)
        grid->setColumnMinimumWidth(labels, widest);
}

void PageWidget::applyMetrics()
{
    const QFontMetrics metrics = view_->fontMetrics();
    content_->setMaximumWidth(metrics.averageCharWidth() * 180);
    view_->widget(page_.tmlPlan)->setMaximumWidth(content_->maximumWidth());
    const int buttonWidth = metrics.horizontalAdvance(QStringLiteral(" ... ")) + metrics.height();
    for (const CommandButton* button : {&page_.cmdChannel, &page_.cmdStartTime, &page_.cmdStopTime})
        view_->widget(*button)->setFixedWidth(buttonWidth);
    for (const Quantity& quantity : quantities) {
        view_->widget(page_.*quantity.button)->setFixedWidth(buttonWidth);
        // The editor gives way to the mark, so that the mark seldom makes the page wider.
        for (const Control* editor :
             {static_cast<Control*>(&(page_.*quantity.list)), static_cast<Control*>(&(page_.*quantity.box))})
            view_->widget(*editor)->setMinimumWidth(metrics.averageCharWidth() * 13);
    }
    for (QGridLayout* grid : measurements_)
        grid->setColumnMinimumWidth(fields, metrics.averageCharWidth() * 20);
    plan_->setMinimumHeight(planHeight());
    auto* duration = static_cast<QLineEdit*>(view_->widget(page_.txtDuration));
    duration->setMinimumWidth(
        EntryMark::widthFor(*duration, view_->text(pageText::notValid), QStringLiteral("0.0001")));
    auto* unit = static_cast<QComboBox*>(view_->widget(page_.cmbInterval));
    unit->setMinimumContentsLength(8);
    view_->widget(page_.grdParam)->setMinimumHeight(metrics.height() * 8);
    alignLabels(measurements_);
    alignLabels(schedule_);
}

} // namespace ko
