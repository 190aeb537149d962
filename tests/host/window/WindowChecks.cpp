#include "WindowChecks.h"

#include "host/docks/InstrumentsView.h"
#include "host/setup/SetupSaving.h"
#include "host/setup/SetupWriter.h"
#include "host/support/HostTexts.h"
#include "host/window/FrameWindow.h"
#include "widgets/support/ShownText.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QUndoView>

namespace ko::test {

namespace {

using Texts = std::vector<std::string>;

/// Collects the differences of one form.
class FormCheck {
public:
    explicit FormCheck(const FormView& view) : view_(view) {}

    Texts broken()
    {
        for (const Control* control : view_.form().controls())
            if (const QWidget* const widget = view_.widget(*control))
                check(*control, *widget);
        checkFocus();
        return std::move(broken_);
    }

private:
    void same(const Control& control, const char* what, const QString& shown, const QString& is)
    {
        if (shown != is)
            broken_.push_back(control.name() + " shows the " + what + " '" + fromQt(shown) + "', which is '" +
                              fromQt(is) + "'");
    }
    void same(const Control& control, const char* what, int shown, int is)
    {
        same(control, what, QString::number(shown), QString::number(is));
    }
    void check(const Control& control, const QWidget& widget)
    {
        // Answers to a refusal are shown in place of the plan.
        if (control.name() != "lblPlan")
            same(control, "visibility", !widget.isHidden(), control.visible());
        // A control that is only read may have an enabled widget.
        if (control.typeName() != "Frame" && control.isShown() && !control.isRead())
            same(control, "usability", widget.isEnabledTo(widget.parentWidget()), control.isUsable());
        if (const auto* box = dynamic_cast<const TextBox*>(&control))
            checkBox(*box, dynamic_cast<const QLineEdit&>(widget));
        else if (const auto* list = dynamic_cast<const ComboBox*>(&control))
            checkList(*list, dynamic_cast<const QComboBox&>(widget));
        else if (const auto* option = dynamic_cast<const OptionButton*>(&control))
            same(control, "selection", dynamic_cast<const QRadioButton&>(widget).isChecked(), option->value());
        else if (const auto* button = dynamic_cast<const CommandButton*>(&control))
            same(control, "caption", dynamic_cast<const QPushButton&>(widget).text(), toQt(button->caption()));
        else if (const auto* label = dynamic_cast<const Label*>(&control))
            checkLabel(*label, dynamic_cast<const QLabel&>(widget).text());
        else if (const auto* grid = dynamic_cast<const Grid*>(&control))
            same(control, "rows", dynamic_cast<const QTableWidget&>(widget).rowCount(), grid->rowCount());
    }
    void checkBox(const TextBox& box, const QLineEdit& edit)
    {
        same(box, "text", edit.text(), toQt(box.text()));
        same(box, "lock", edit.isReadOnly(), box.locked() || box.isRead());
    }
    void checkList(const ComboBox& list, const QComboBox& combo)
    {
        same(list, "entries", combo.count(), static_cast<int>(list.items().size()));
        same(list, "index", combo.currentIndex(), list.index());
        same(list, "text", combo.currentText(), toQt(list.text()));
    }
    void checkLabel(const Label& label, const QString& text)
    {
        const QString caption = toShown(label.caption());
        if (text != caption)
            same(label, "caption", withoutMnemonic(text), withoutMnemonic(caption));
    }
    /// The widget with the keyboard shows the control with the focus, if it is in the form.
    void checkFocus()
    {
        const QWidget* focused = view_.window()->focusWidget();
        if (!view_.isActiveWindow() || !focused || !view_.isAncestorOf(focused))
            return;
        const Control* owner = nullptr;
        for (const QWidget* at = focused; at != &view_ && !owner; at = at->parentWidget())
            for (const Control* control : view_.form().controls())
                owner = view_.widget(*control) == at ? control : owner;
        const Control* active = view_.form().activeControl();
        if (owner && owner->takesFocus() && owner != active && !owner->isRead())
            broken_.push_back(owner->name() + " has the keyboard, and " + (active ? active->name() : "no control") +
                              " the focus");
    }

    const FormView& view_;
    Texts broken_;
};

} // namespace

Texts shownOtherwise(const FormView& view)
{
    return FormCheck(view).broken();
}

Texts shownOtherwise(FrameWindow& window)
{
    Texts broken = shownOtherwise(window.page().view());
    const auto require = [&](bool holds, const char* rule) {
        if (!holds)
            broken.push_back(std::string("not so: ") + rule);
    };
    const SetupSession& session = window.session();
    const History& steps = window.history().steps();
    const InstrumentsModel& rows = window.instruments().model();
    require(window.isWindowModified() == session.isChanged(), "the title has the changed mark");
    require(window.windowTitle().startsWith(session.name().empty() ? window.text(hostText::noSetup)
                                                                   : plainTitle(toQt(session.name()))),
            "the title has the name of the set-up");
    require(window.start().isHidden() == session.hasSetup() && window.page().isHidden() != session.hasSetup(),
            "there is either a page or the start screen");
    require(static_cast<std::size_t>(rows.rowCount()) == session.drivers().size(), "the dock has all instruments");
    for (std::size_t i = 0; i < session.drivers().size() && i < static_cast<std::size_t>(rows.rowCount()); ++i)
        require(rows.index(static_cast<int>(i), 0).data().toString() == toLine(session.drivers()[i]->name()),
                "the dock has the names of the instruments");
    const auto& list = *window.history().dock().findChild<QUndoView*>();
    require(list.currentIndex().row() == static_cast<int>(steps.position()), "the history is at the present step");
    require(list.model()->rowCount() == static_cast<int>(steps.steps().size()) + 1, "the history has all steps");
    require(steps.isClean() != session.isChanged() || steps.hasEntryInProgress(), "the history knows the saved step");
    require(!window.recording().isActive() || window.document().page().readOnly, "a recording locks the page");
    return broken;
}

std::string heldIn(const HostInstruments& drivers)
{
    ko::Setup setup;
    for (const auto& driver : drivers) {
        setup.instruments.push_back(driver->held());
        setup.instruments.back().failing.clear();
    }
    return setupText(setup);
}

std::string valuesOn(FrameWindow& window)
{
    std::string all;
    for (const Control* control : window.document().page().controls()) {
        const std::string& name = control->name();
        const bool followsTheClock = name == "lblPlan" || name == "lblStartDay" || name == "lblStopDay";
        if (!control->isUsable() || followsTheClock)
            continue;
        all += name;
        if (const auto* box = dynamic_cast<const TextBox*>(control))
            all += " " + box->text();
        else if (const auto* list = dynamic_cast<const ComboBox*>(control))
            all += " " + list->text();
        else if (const auto* option = dynamic_cast<const OptionButton*>(control))
            all += option->value() ? " on" : " off";
        else if (const auto* label = dynamic_cast<const Label*>(control))
            all += " " + label->caption();
        all += "\n";
    }
    return all;
}

} // namespace ko::test
