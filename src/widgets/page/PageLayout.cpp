#include "page/Quantities.h"
#include "widgets/bindings/EntryMark.h"
#include "widgets/bindings/NoInstrumentPicture.h"
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
#include <QTableWidget>

namespace ko {

namespace {

enum Column { labels, fields, buttons };

} // namespace

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
    grid->setColumnStretch(fields, 1);
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
    grid.addWidget(&kept(view_->numberList(list)), row, fields);
    grid.addWidget(&kept(view_->numberBox(box)), row, fields);
    grid.addWidget(&view_->label(label, {&list, &box}), row, labels);
    QPushButton& explain = view_->button(button);
    explain.setAccessibleName(view_->text(textNumber::offers::titleOf).arg(toQt(label.caption())));
    explain.setToolTip(plainTip(toQt(button.tag())));
    grid.addWidget(&explain, row, buttons);
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
    both->addWidget(bar, 1);
    both->addWidget(&shown);
    grid.addLayout(both, row, fields, 1, 2);
}

void PageWidget::addTime(QGridLayout& grid, OptionButton& option, TextBox& box, CommandButton& button, int buttonText)
{
    const int row = grid.rowCount();
    QLineEdit& time = view_->textBox(box);
    time.setAccessibleName(withoutMnemonic(toQt(option.caption())));
    QPushButton& more = view_->button(button);
    more.setAccessibleName(view_->text(buttonText));
    grid.addWidget(&view_->option(option), row, labels);
    grid.addWidget(&time, row, fields);
    grid.addWidget(&more, row, buttons);
}

void PageWidget::addDay(QGridLayout& grid, Label& day, Label* past)
{
    auto* line = new QHBoxLayout;
    if (past)
        line->addWidget(&view_->warning(*past));
    line->addWidget(&kept(view_->label(day)), 1);
    grid.addLayout(line, grid.rowCount(), fields, 1, 2);
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

void PageWidget::layStart()
{
    QGridLayout& grid = framed(page_.frmStart);
    grid.addWidget(&view_->option(page_.optImmediate), grid.rowCount(), labels, 1, 3);
    grid.addWidget(&view_->option(page_.optOnTrigger), grid.rowCount(), labels, 1, 3);
    layTrigger(grid);
    addTime(grid, page_.optStartTime, page_.txtStartTime, page_.cmdStartTime, pageText::startTimeButton);
    addDay(grid, page_.lblStartDay, &page_.lblStartPast);
    schedule_.push_back(&grid);
}

void PageWidget::layTrigger(QGridLayout& grid)
{
    const int row = grid.rowCount();
    const int indent = view_->fontMetrics().height() * 3 / 2;
    QPushButton& more = view_->button(page_.cmdChannel);
    grid.addWidget(&view_->textBox(page_.txtChannel), row, fields);
    grid.addWidget(&more, row, buttons);
    QLabel& label = view_->label(page_.lblChannel, {&page_.txtChannel});
    more.setAccessibleName(withoutMnemonic(label.text()));
    label.setContentsMargins(indent, 0, 0, 0);
    grid.addWidget(&label, row, labels);
    QTableWidget& table = view_->grid(page_.grdParam);
    table.setAccessibleName(view_->text(pageText::parameters));
    grid.addWidget(&table, row + 1, labels, 1, 3);
    QLabel& noLine = view_->label(page_.lblNoTriggerLine);
    noLine.setWordWrap(true);
    grid.addWidget(&noLine, row + 2, labels, 1, 3);
}

/// Assistive technology takes the name of a list from its label alone, so the unit has a hidden one.
void PageWidget::nameUnit(QComboBox& unit)
{
    auto* name = new PlainLabel(view_->text(pageText::durationUnit), unit.parentWidget());
    name->setBuddy(&unit);
    name->hide();
}

void PageWidget::layStop()
{
    QGridLayout& grid = framed(page_.frmStop);
    const int row = grid.rowCount();
    auto* duration = new QHBoxLayout;
    QLineEdit& box = view_->numberBox(page_.txtDuration);
    box.setAccessibleName(withoutMnemonic(toQt(page_.optAfter.caption())));
    QComboBox& unit = view_->comboBox(page_.cmbInterval);
    unit.setAccessibleName(view_->text(pageText::durationUnit));
    duration->addWidget(&box, 1);
    duration->addWidget(&unit);
    grid.addWidget(&view_->option(page_.optAfter), row, labels);
    grid.addLayout(duration, row, fields, 1, 2);
    nameUnit(unit);
    addTime(grid, page_.optStopTime, page_.txtStopTime, page_.cmdStopTime, pageText::stopTimeButton);
    addDay(grid, page_.lblStopDay);
    addValue(grid, page_.lblDuration, page_.lblDurationValue);
    addValue(grid, page_.lblStopTime, page_.lblStopTimeValue);
    schedule_.push_back(&grid);
}

QLayout* PageWidget::whatFits()
{
    auto* row = new QHBoxLayout;
    QLabel& what = view_->label(page_.lblWhatFits);
    what.setWordWrap(true);
    row->addWidget(&what, 1);
    row->addWidget(&view_->button(page_.cmdTakeDuration));
    row->addWidget(&view_->button(page_.cmdTakeRate));
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
    left->addStretch(1);
    schedules_ = new QVBoxLayout;
    schedules_->addWidget(view_->widget(page_.frmStart));
    schedules_->addWidget(view_->widget(page_.frmStop));
    schedules_->addStretch();
    columns_->addLayout(left, 1);
    columns_->addLayout(schedules_, 1);
    auto* centred = new QHBoxLayout;
    centred->addStretch(1);
    centred->addWidget(content_, 1000);
    centred->addStretch(1);
    auto* limited = new QVBoxLayout;
    limited->addLayout(centred, 1000);
    auto* centredTimes = new QHBoxLayout;
    centredTimes->addStretch(1);
    centredTimes->addWidget(&view_->timeline(page_.tmlPlan), 1000);
    centredTimes->addStretch(1);
    limited->addLayout(centredTimes);
    limited->addLayout(whatFits());
    limited->addStretch(1);
    // The picture and the frames share one cell; only one of them is shown.
    auto* whole = new QGridLayout(view_);
    whole->addLayout(limited, 0, 0);
    whole->addWidget(picture_, 0, 0);
    picture_->raise();
}

/// Extra room goes to the trigger parameters or, without them, below the frames.
void PageWidget::stretch(bool stacked)
{
    const int toStart = view_->widget(page_.grdParam)->isVisibleTo(view_) ? 1 : 0;
    if (schedules_->stretch(0) != toStart) {
        schedules_->setStretch(0, toStart);
        schedules_->setStretch(schedules_->count() - 1, 1 - toStart);
    }
    if (columns_->stretch(0) != (stacked ? 0 : 1))
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
    content_->setMaximumSize(metrics.averageCharWidth() * 180, metrics.height() * 50);
    view_->widget(page_.tmlPlan)->setMaximumWidth(content_->maximumWidth());
    const int buttonWidth = metrics.horizontalAdvance(QStringLiteral(" ... ")) + metrics.height();
    for (const CommandButton* button : {&page_.cmdChannel, &page_.cmdStartTime, &page_.cmdStopTime})
        view_->widget(*button)->setFixedWidth(buttonWidth);
    for (const Quantity& quantity : quantities)
        view_->widget(page_.*quantity.button)->setFixedWidth(buttonWidth);
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
