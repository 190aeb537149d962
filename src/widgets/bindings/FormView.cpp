#include "widgets/bindings/FormView.h"

#include "widgets/bindings/Accessibility.h"
#include "widgets/bindings/ButtonBindings.h"
#include "widgets/bindings/ChannelBrowser.h"
#include "widgets/bindings/ComboBoxBinding.h"
#include "widgets/bindings/DateBindings.h"
#include "widgets/bindings/GridBinding.h"
#include "widgets/bindings/LabelBinding.h"
#include "widgets/bindings/MenuBinding.h"
#include "widgets/bindings/NumberList.h"
#include "widgets/bindings/PictureBinding.h"
#include "widgets/bindings/TabControlBinding.h"
#include "widgets/bindings/TableBinding.h"
#include "widgets/bindings/TextBoxBinding.h"
#include "widgets/bindings/TimeWidget.h"
#include "widgets/bindings/TimelineBinding.h"
#include "widgets/bindings/WarningLabel.h"
#include "widgets/support/Convert.h"
#include "widgets/support/PageTexts.h"
#include "widgets/support/PlainText.h"

#include <QAbstractScrollArea>
#include <QLineEdit>
#include <QMenu>

namespace ko {

FormView::FormView(Form& form, Texts texts, QWidget* parent)
    : QWidget(parent), form_(form), texts_(std::move(texts)), focus_(form, *this, actions_)
{
    describeOwnWidgets();
    setObjectName(toQt(form.name()));
    applyFont(*this, form.font(), Font());
    form.view = [this] {
        focus_.follow();
        ko::raise(formChanged);
    };
}

FormView::~FormView()
{
    form_.view = nullptr;
    bindings_.clear();
    const FocusKeeper::Hold hold(focus_);
    actions_.end(*this);
}

QString FormView::withMnemonic(const QString& caption)
{
    if (!mnemonics_)
        mnemonics_.emplace(form_, reserved_);
    return mnemonics_->marked(caption);
}

QWidget* FormView::widget(const Control& control) const
{
    const auto found = widgets_.find(&control);
    return found == widgets_.end() ? nullptr : found->second;
}

namespace {

/// The parts of a control's widget that receive key presses and mouse presses.
std::pair<QWidget*, QWidget*> inputParts(QWidget* widget)
{
    if (dynamic_cast<QCalendarWidget*>(widget))
        widget = widget->focusProxy();
    if (auto* area = dynamic_cast<QAbstractScrollArea*>(widget))
        return {area, area->viewport()};
    if (dynamic_cast<QAbstractSpinBox*>(widget))
        return {widget, widget->findChild<QLineEdit*>()};
    return {widget, widget};
}

} // namespace

template <class B, class C, class W, class... More> W& FormView::bind(C& control, W* widget, More&&... more)
{
    widgets_[&control] = widget;
    bindings_[&control] = std::make_unique<B>(*this, control, *widget, std::forward<More>(more)...);
    // Installed after the binding's event filter, so that the form receives each event before the control.
    if (control.takesFocus()) {
        const auto [keys, presses] = inputParts(widget);
        focus_.watch(control, *keys, *presses);
    }
    return *widget;
}

QLineEdit& FormView::textBox(TextBox& control)
{
    return bind<TextBoxBinding>(control, new QLineEdit(this));
}

QLineEdit& FormView::numberBox(TextBox& control)
{
    QLineEdit& box = textBox(control);
    box.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return box;
}

QComboBox& FormView::comboBox(ComboBox& control)
{
    return bind<ComboBoxBinding>(control, new QComboBox(this));
}

QComboBox& FormView::numberList(ComboBox& control)
{
    return bind<ComboBoxBinding>(control, static_cast<QComboBox*>(new NumberList(this)));
}

QRadioButton& FormView::option(OptionButton& control)
{
    return bind<OptionButtonBinding>(control, static_cast<QRadioButton*>(new OptionWidget(this)));
}

QPushButton& FormView::button(CommandButton& control)
{
    return bind<CommandButtonBinding>(control, new QPushButton(this));
}

QLabel& FormView::label(Label& control, const std::vector<Control*>& fields)
{
    std::vector<LabelBinding::Field> named;
    named.reserve(fields.size());
    for (Control* field : fields)
        named.push_back({field, widget(*field)});
    return bind<LabelBinding>(control, new PlainLabel(this), std::move(named));
}

QLabel& FormView::warning(Label& control)
{
    return bind<LabelBinding>(control, new WarningLabel(this), std::vector<LabelBinding::Field>());
}

QLabel& FormView::value(Label& control, Label& title)
{
    return bind<ValueBinding>(control, new PlainLabel(this), title);
}

QLabel& FormView::limitedValue(LimitedLabel& control, Label& title, QProgressBar& bar)
{
    return bind<LimitedValueBinding>(control, new PlainLabel(this), title, bar);
}

QLabel& FormView::sentence(Label& control)
{
    return bind<SentenceBinding>(control, new PlainLabel(this));
}

QGroupBox& FormView::frame(Frame& control, QLabel* heading)
{
    return bind<FrameBinding>(control, new QGroupBox(this), heading);
}

QTableWidget& FormView::grid(Grid& control)
{
    return bind<GridBinding>(control, new QTableWidget(this));
}

QTableWidget& FormView::table(Table& control)
{
    return bind<TableBinding>(control, new TableWidget(this));
}

QTabWidget& FormView::tabs(TabControl& control)
{
    return bind<TabControlBinding>(control, new QTabWidget(this));
}

ChannelBrowser& FormView::channelBrowser(ChannelSelector& control)
{
    return bind<ChannelSelectorBinding>(control, new ChannelBrowser(this));
}

QCalendarWidget& FormView::calendar(Calendar& control)
{
    return bind<CalendarBinding>(control, new QCalendarWidget(this));
}

QTimeEdit& FormView::timePicker(TimePicker& control)
{
    return bind<TimePickerBinding>(control, static_cast<QTimeEdit*>(new TimeWidget(this)));
}

QWidget& FormView::picture(PictureBox& control)
{
    return bind<PictureBinding>(control, new PictureWidget(control, this));
}

QWidget& FormView::timeline(Timeline& control)
{
    return bind<TimelineBinding>(control, new TimelineWidget(control, text(textNumber::times::of), this));
}

void FormView::image(Image& control, QWidget& picture)
{
    bind<ImageBinding>(control, &picture);
}

QMenu& FormView::menu(Menu& control, const std::vector<Menu*>& items)
{
    auto* menu = new QMenu(this);
    bindings_[&control] = std::make_unique<MenuBinding>(*this, control, *menu->menuAction());
    for (Menu* item : items)
        bindings_[item] = std::make_unique<MenuBinding>(*this, *item, *menu->addAction(QString()));
    return *menu;
}

void FormView::tellSize()
{
    form_.resize(toTwips(*this, width()), toTwips(*this, height()));
}

} // namespace ko
