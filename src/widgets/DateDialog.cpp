#include "widgets/DateDialog.h"

#include "platform/PictureBox.h"
#include "widgets/DateBindings.h"
#include "widgets/FormView.h"
#include "widgets/PageTexts.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>

namespace ko {

namespace {

constexpr const char* okButton = "btnOK";
constexpr const char* cancelButton = "btnCancel";

class DateDialogView : public FormView {
public:
    DateDialogView(Form& form, const Texts& texts, const Locale& locale) : FormView(form, texts)
    {
        auto* frames = new QHBoxLayout;
        frames->addWidget(&layDate());
        frames->addWidget(&layTime(locale));
        auto* buttons = new QHBoxLayout;
        buttons->addStretch(1);
        for (const char* name : {okButton, cancelButton, "btnHelp"})
            buttons->addWidget(&button(control<CommandButton>(name)));
        static_cast<QPushButton*>(widget(*form.find(okButton)))->setDefault(true);
        auto* whole = new QVBoxLayout(this);
        whole->addLayout(frames, 1);
        whole->addLayout(buttons);
    }

private:
    template <class C> C& control(const char* name) { return dynamic_cast<C&>(*form().find(name)); }

    QGroupBox& layDate()
    {
        QGroupBox& box = frame(control<Frame>("frmDate"));
        auto* column = new QVBoxLayout(&box);
        column->addWidget(&option(control<OptionButton>("optCurrentDay")));
        column->addWidget(&option(control<OptionButton>("optSpecifiedDay")));
        QWidget& calendar = this->calendar(control<Calendar>("calDate"));
        // The table of days is what has the focus.
        for (QWidget* part : {&calendar, calendar.focusProxy()})
            part->setAccessibleName(withoutMnemonic(box.title()));
        column->addWidget(&calendar, 1);
        return box;
    }

    QGroupBox& layTime(const Locale& locale)
    {
        QGroupBox& box = frame(control<Frame>("frmTime"));
        auto* column = new QVBoxLayout(&box);
        QTimeEdit& time = timePicker(control<TimePicker>("dtpTimeSelector"), locale);
        time.setAccessibleName(withoutMnemonic(box.title()));
        QWidget& clock = picture(control<PictureBox>("picClock"));
        clock.setAccessibleName(text(pageText::clock));
        const int side = fontMetrics().height() * 10;
        clock.setFixedSize(side, side);
        column->addWidget(&time);
        column->addStretch(1);
        column->addWidget(&clock, 0, Qt::AlignHCenter);
        column->addStretch(1);
        return box;
    }
};

} // namespace

void addDateDialog(QtModalForms& modalForms, const std::vector<Form*>& dialogs, const Texts& texts,
                   const Locale& locale)
{
    for (Form* form : dialogs) {
        const auto build = [texts, locale](Form& shown) { return new DateDialogView(shown, texts, locale); };
        if (form->name() == "SetDateTime")
            modalForms.addMeasured(*form, {build, okButton, cancelButton});
    }
}

} // namespace ko
