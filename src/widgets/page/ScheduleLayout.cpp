#include "widgets/page/PageWidget.h"
#include "widgets/support/PageTexts.h"
#include "widgets/support/PlainText.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>

namespace ko {

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
    QLabel& choose = view_->label(page_.lblChooseChannel);
    grid.addWidget(&choose, row + 1, labels, 1, 3, Qt::AlignCenter);
    choose.raise();
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

} // namespace ko
