#include "widgets/TriggerDialogs.h"

#include "platform/ChannelSelector.h"
#include "platform/TabControl.h"
#include "platform/Table.h"
#include "widgets/ChannelBrowser.h"
#include "widgets/FormView.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

namespace ko {

namespace {

template <class C> C& controlOf(Form& form, const std::string& name)
{
    return dynamic_cast<C&>(*form.find(name));
}

/// One of a dialog's three buttons; Enter presses the one that has the focus, else the first.
QPushButton& dialogButton(FormView& view, const std::string& name)
{
    QPushButton& button = view.button(controlOf<CommandButton>(view.form(), name));
    button.setAutoDefault(true);
    return button;
}

/// The form lays itself out; the view gives the buttons their size and shows everything where the form puts it.
class SelectChannelView : public FormView {
public:
    SelectChannelView(Form& form, const Texts& texts) : FormView(form, texts)
    {
        channelBrowser(controlOf<ChannelSelector>(form, "chsNavigate"));
        dialogButton(*this, "cmdOK");
        dialogButton(*this, "cmdCancel");
        dialogButton(*this, "cmdHelp");
        QSize buttons;
        for (const char* name : {"cmdOK", "cmdCancel", "cmdHelp"}) {
            const QSize hint = widget(*form.find(name))->sizeHint();
            form.find(name)->move({0, 0, toTwips(*this, hint.width()), toTwips(*this, hint.height())});
            buttons = QSize(buttons.width() + hint.width(), hint.height());
        }
        const int margins = 4 * toPixels(*this, 120);
        setMinimumSize(buttons.width() + margins, buttons.height() * 6 + margins);
    }

    [[nodiscard]] QSize sizeHint() const override
    {
        const Bounds& bounds = form().bounds();
        return QSize(toPixels(*this, bounds.width), toPixels(*this, bounds.height)).expandedTo(minimumSize());
    }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        FormView::resizeEvent(event);
        tellSize();
        // Also for another size of the buttons.
        ko::raise(form().resized);
        for (const Control* control : form().controls()) {
            const Bounds& bounds = control->bounds();
            widget(*control)->setGeometry(toPixels(*this, bounds.left), toPixels(*this, bounds.top),
                                          toPixels(*this, bounds.width), toPixels(*this, bounds.height));
        }
    }
};

class AdvancedTrigView : public FormView {
public:
    AdvancedTrigView(Form& form, const Texts& texts) : FormView(form, texts)
    {
        layTab("frmStartTrig", column("optStartTrig", "lblNoStartLine"), map("lblStartMap", "tblStartMap"));
        layTab("frmScanTrig", column("optScanTrig", "lblNoScanLine"), map("lblScanMap", "tblScanMap"));
        auto* buttons = new QHBoxLayout;
        buttons->addStretch(1);
        auto* whole = new QVBoxLayout(this);
        whole->addWidget(&tabs(controlOf<TabControl>(form, "tabTrigger")));
        whole->addLayout(buttons);
        for (const char* name : {"btnOK", "btnCancel", "btnHelp"})
            buttons->addWidget(&dialogButton(*this, name));
    }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        FormView::resizeEvent(event);
        tellSize();
    }

private:
    QLayout* column(const std::string& options, const std::string& noLine)
    {
        auto* column = new QVBoxLayout;
        for (int line = 0; line < 8; ++line)
            column->addWidget(&option(controlOf<OptionButton>(form(), options + "(" + std::to_string(line) + ")")));
        QLabel& none = label(controlOf<Label>(form(), noLine));
        none.setWordWrap(true);
        column->addWidget(&none);
        column->addStretch(1);
        return column;
    }

    QLayout* map(const std::string& title, const std::string& tableName)
    {
        auto& control = controlOf<Table>(form(), tableName);
        QTableWidget& shown = table(control);
        auto* map = new QVBoxLayout;
        map->addWidget(&label(controlOf<Label>(form(), title), {&control}));
        map->addWidget(&shown, 1);
        return map;
    }

    void layTab(const std::string& frameName, QLayout* options, QLayout* map)
    {
        QGroupBox& box = frame(controlOf<Frame>(form(), frameName));
        box.setFlat(true);
        auto* sides = new QHBoxLayout(&box);
        sides->addLayout(options);
        sides->addLayout(map, 1);
    }
};

} // namespace

void addTriggerDialogs(QtModalForms& modalForms, const std::vector<Form*>& dialogs, const Texts& texts)
{
    for (Form* form : dialogs) {
        if (form->name() == "SelectChannel")
            modalForms.addMeasured(
                *form, {[texts](Form& shown) { return new SelectChannelView(shown, texts); }, "cmdOK", "cmdCancel"});
        if (form->name() == "AdvancedTrig")
            modalForms.addMeasured(
                *form, {[texts](Form& shown) { return new AdvancedTrigView(shown, texts); }, "btnOK", "btnCancel"});
    }
}

} // namespace ko
