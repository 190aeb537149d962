#include "widgets/FormView.h"

#include "widgets/ButtonBindings.h"
#include "widgets/ChannelBrowser.h"
#include "widgets/ComboBoxBinding.h"
#include "widgets/GridBinding.h"
#include "widgets/LabelBinding.h"
#include "widgets/MenuBinding.h"
#include "widgets/NumberList.h"
#include "widgets/TabControlBinding.h"
#include "widgets/TextBoxBinding.h"

#include <QAbstractScrollArea>
#include <QLineEdit>
#include <QMenu>

namespace ko {

FormView::FormView(Form& form, Texts texts, QWidget* parent)
    : QWidget(parent), form_(form), texts_(std::move(texts)), focus_(form, *this)
{
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
}

QWidget* FormView::widget(const Control& control) const
{
    const auto found = widgets_.find(&control);
    return found == widgets_.end() ? nullptr : found->second;
}

template <class B, class C, class W, class... More> W& FormView::bind(C& control, W* widget, More&&... more)
{
    widgets_[&control] = widget;
    bindings_[&control] = std::make_unique<B>(*this, control, *widget, std::forward<More>(more)...);
    // After the binding, so that the form sees each event before the control does.
    if (control.takesFocus()) {
        auto* area = dynamic_cast<QAbstractScrollArea*>(static_cast<QWidget*>(widget));
        focus_.watch(control, *widget, area ? *area->viewport() : *widget);
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
    return bind<LabelBinding>(control, new QLabel(this), std::move(named));
}

QLabel& FormView::value(Label& control, Label& title)
{
    return bind<ValueBinding>(control, new QLabel(this), title);
}

QGroupBox& FormView::frame(Frame& control)
{
    return bind<FrameBinding>(control, new QGroupBox(this));
}

QTableWidget& FormView::grid(Grid& control)
{
    return bind<GridBinding>(control, new QTableWidget(this));
}

QTabWidget& FormView::tabs(TabControl& control)
{
    return bind<TabControlBinding>(control, new QTabWidget(this));
}

ChannelBrowser& FormView::channelBrowser(ChannelSelector& control)
{
    return bind<ChannelSelectorBinding>(control, new ChannelBrowser(this));
}

void FormView::image(Image& control, QWidget& picture)
{
    bind<ImageBinding>(control, &picture);
}

QMenu& FormView::menu(Menu& control, const std::vector<Menu*>& items)
{
    auto* menu = new QMenu(this);
    bindings_[&control] = std::make_unique<MenuBinding>(control, *menu->menuAction());
    for (Menu* item : items)
        bindings_[item] = std::make_unique<MenuBinding>(*item, *menu->addAction(QString()));
    return *menu;
}

} // namespace ko
