#include "widgets/dialogs/TriggerDialogs.h"

#include "widgets/bindings/ChannelBrowser.h"
#include "widgets/bindings/FormView.h"

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

/// One of a dialog's three buttons; Enter presses the focused one, else the first.
QPushButton& dialogButton(FormView& view, CommandButton& control)
{
    QPushButton& button = view.button(control);
    button.setAutoDefault(true);
    return button;
}

/// The form lays out its controls; the view sets the buttons' sizes and applies the layout to the widgets.
class SelectChannelView : public FormView {
public:
    SelectChannelView(SelectChannel& form, const Texts& texts) : FormView(form, texts)
    {
        channelBrowser(form.chsNavigate);
        QSize buttons;
        for (CommandButton* button : {&form.cmdOK, &form.cmdCancel, &form.cmdHelp}) {
            const QSize hint = dialogButton(*this, *button).sizeHint();
            button->move({0, 0, toTwips(*this, hint.width()), toTwips(*this, hint.height())});
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
        // The size of the buttons may have changed, too.
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
    AdvancedTrigView(AdvancedTrig& form, const Texts& texts) : FormView(form, texts)
    {
        QHBoxLayout& start = sidesOf(form.frmStartTrig);
        start.addLayout(column(form.optStartTrig, form.lblNoStartLine));
        start.addLayout(map(form.lblStartMap, form.tblStartMap));
        QHBoxLayout& scan = sidesOf(form.frmScanTrig);
        scan.addLayout(column(form.optScanTrig, form.lblNoScanLine));
        scan.addLayout(map(form.lblScanMap, form.tblScanMap));
        auto* buttons = new QHBoxLayout;
        buttons->addStretch();
        auto* whole = new QVBoxLayout(this);
        whole->addWidget(&tabs(form.tabTrigger));
        whole->addLayout(buttons);
        for (CommandButton* button : {&form.btnOK, &form.btnCancel, &form.btnHelp})
            buttons->addWidget(&dialogButton(*this, *button));
    }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        FormView::resizeEvent(event);
        tellSize();
    }

private:
    QLayout* column(const AdvancedTrig::Options& options, Label& noLine)
    {
        auto* column = new QVBoxLayout;
        for (const auto& line : options)
            column->addWidget(&option(*line));
        QLabel& none = label(noLine);
        none.setWordWrap(true);
        column->addWidget(&none);
        column->addStretch();
        return column;
    }

    QLayout* map(Label& title, Table& control)
    {
        QTableWidget& shown = table(control);
        auto* map = new QVBoxLayout;
        map->addWidget(&label(title, {&control}));
        map->addWidget(&shown);
        return map;
    }

    /// The Tab key follows the order in which the sides are made.
    QHBoxLayout& sidesOf(Frame& tab)
    {
        QGroupBox& box = frame(tab);
        box.setFlat(true);
        return *new QHBoxLayout(&box);
    }
};

} // namespace

void addTriggerDialogs(QtModalForms& modalForms, SelectChannel& selectChannel, AdvancedTrig& advancedTrig,
                       const Texts& texts)
{
    modalForms.add(selectChannel, [&selectChannel, texts] { return new SelectChannelView(selectChannel, texts); });
    modalForms.add(advancedTrig, [&advancedTrig, texts] { return new AdvancedTrigView(advancedTrig, texts); });
}

} // namespace ko
