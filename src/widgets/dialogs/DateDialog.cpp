#include "widgets/dialogs/DateDialog.h"

#include "widgets/bindings/DateBindings.h"
#include "widgets/bindings/FormView.h"
#include "widgets/support/PageTexts.h"
#include "widgets/support/PlainText.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>

namespace ko {

namespace {

namespace dateText = textNumber::dateDialog;

class DateDialogView : public FormView {
public:
    DateDialogView(SetDateTime& form, const Texts& texts) : FormView(form, texts)
    {
        auto* frames = new QHBoxLayout;
        frames->addWidget(&layDate(form));
        frames->addWidget(&layTime(form));
        auto* buttons = new QHBoxLayout;
        buttons->addStretch();
        for (CommandButton* control : {&form.btnOK, &form.btnCancel, &form.btnHelp})
            buttons->addWidget(&button(*control));
        auto* whole = new QVBoxLayout(this);
        whole->addLayout(frames);
        whole->addLayout(buttons);
    }

private:
    QGroupBox& layDate(SetDateTime& form)
    {
        QGroupBox& box = frame(form.frmDate);
        auto* column = new QVBoxLayout(&box);
        column->addWidget(&option(form.optCurrentDay));
        column->addWidget(&option(form.optSpecifiedDay));
        QWidget& calendar = this->calendar(form.calDate);
        // The focus is in the table of days.
        for (QWidget* part : {&calendar, calendar.focusProxy()})
            part->setAccessibleName(withoutMnemonic(box.title()));
        nameParts(calendar);
        column->addWidget(&calendar);
        return box;
    }

    void nameParts(QWidget& calendar)
    {
        const std::pair<const char*, int> parts[] = {{"qt_calendar_prevmonth", dateText::previousMonth},
                                                     {"qt_calendar_nextmonth", dateText::nextMonth},
                                                     {"qt_calendar_yearedit", dateText::year}};
        for (const auto& [name, number] : parts)
            if (auto* part = calendar.findChild<QWidget*>(QString::fromLatin1(name))) {
                part->setAccessibleName(text(number));
                part->setToolTip(plainTip(text(number)));
            }
    }

    QGroupBox& layTime(SetDateTime& form)
    {
        QGroupBox& box = frame(form.frmTime);
        auto* column = new QVBoxLayout(&box);
        QTimeEdit& time = timePicker(form.dtpTimeSelector);
        time.setAccessibleName(withoutMnemonic(box.title()));
        QWidget& clock = picture(form.picClock);
        clock.setAccessibleName(text(pageText::clock));
        const int side = fontMetrics().height() * 10;
        clock.setFixedSize(side, side);
        column->addWidget(&time);
        column->addStretch();
        column->addWidget(&clock, 0, Qt::AlignHCenter);
        column->addStretch();
        return box;
    }
};

} // namespace

void addDateDialog(QtModalForms& modalForms, SetDateTime& setDateTime, const Texts& texts)
{
    modalForms.add(setDateTime, [&setDateTime, texts] { return new DateDialogView(setDateTime, texts); });
}

} // namespace ko
