#include "faults/Bench.h"

#include "page/Drivers.h"

#include <sstream>

namespace ko::test {

namespace {

struct ControlState {
    std::ostringstream out;

    void texts(const Control& control)
    {
        if (const auto* caption = dynamic_cast<const CaptionControl*>(&control))
            out << " '" << caption->caption() << "'";
        if (const auto* option = dynamic_cast<const OptionButton*>(&control))
            out << (option->value() ? " on" : " off");
        if (const auto* box = dynamic_cast<const TextBox*>(&control))
            out << " '" << box->text() << "'" << (box->marked() ? " marked" : "") << (box->locked() ? " locked" : "");
    }
    void list(const Control& control)
    {
        const auto* box = dynamic_cast<const ComboBox*>(&control);
        if (!box)
            return;
        out << " " << box->index() << " of";
        for (const ComboBox::Item& item : box->items())
            out << " '" << item.text << "' " << item.itemData;
    }
    void rows(const Control& control)
    {
        const auto* grid = dynamic_cast<const Grid*>(&control);
        if (!grid)
            return;
        out << " editing " << grid->editedRow();
        for (std::int32_t row = 0; row <= grid->rowCount(); ++row)
            out << " | " << grid->cell(row, 0).value << " = '" << grid->cell(row, 1).value << "'"
                << (row > 0 && grid->isEditable(row) ? "" : " fixed");
    }
};

std::string stateOf(const Control& control)
{
    ControlState state;
    state.out << control.form().name() << "." << control.name() << (control.enabled() ? "" : " disabled")
              << (control.visible() ? "" : " hidden") << (control.hasFocus() ? " focused" : "");
    state.texts(control);
    state.list(control);
    state.rows(control);
    return state.out.str();
}

std::string stateOf(const FakeDriver& driver)
{
    std::ostringstream out;
    out.precision(17);
    out << driver.samplePeriod << " " << driver.blockSize << " " << driver.scanPeriod << " " << driver.startTime.days
        << " " << driver.duration << " " << driver.stopMode << " " << driver.startMode << " lines " << driver.startLine
        << " " << driver.startInput << " " << driver.scanLine << " " << driver.scanInput;
    for (const auto& group : driver.groups)
        for (const auto& channel : group.channels)
            out << (channel.triggerSource ? " source" : " -");
    for (const auto& parameter : driver.parameters)
        out << " " << parameter.name << " " << valueText(parameter.value, {});
    return out.str();
}

} // namespace

std::vector<const Form*> Bench::forms()
{
    Dialogs& dialogs = shared_.dialogs;
    return {&page(), &dialogs.advancedTrig(), &dialogs.selectChannel(), &dialogs.setDateTime()};
}

void Bench::act(const std::string& name, const std::function<void()>& action)
{
    try {
        action();
    } catch (const std::exception& exception) {
        escaped.push_back(name + ": " + exception.what());
    } catch (...) {
        escaped.push_back(name);
    }
}

void Bench::restart()
{
    act("make a document", [&] {
        document_.reset();
        document_ = makeDocument(shared_, host);
    });
}

FakeDriver& Bench::addDriver(std::int32_t samplingMode)
{
    fakes.push_back(std::make_shared<FakeDriver>());
    fakes.back()->samplingMode = samplingMode;
    fakes.back()->gate = &host.gate;
    return *fakes.back();
}

void Bench::handOver()
{
    act("announce", [&] { document().drivers().setNumberOfDrivers(static_cast<std::int32_t>(fakes.size())); });
    act("hand over", [&] { document().drivers().setDrivers(DriverList(fakes.begin(), fakes.end())); });
    act("changed", [&] { document().drivers().DriversHaveChanged(); });
}

void Bench::show()
{
    act("show", [&] { document().UserDocument_Show(); });
}

void Bench::command(std::int32_t id)
{
    std::int32_t enabled = 0;
    act("ask for " + std::to_string(id), [&] { document().menu().OnUpdateCommandUI(id, enabled); });
    act("command " + std::to_string(id), [&] { document().menu().OnCommand(id); });
}

void Bench::focus(Control& control)
{
    act("focus " + control.name(), [&] { page().userMovedFocus(&control); });
}

void Bench::leave()
{
    act("leave", [&] { page().userMovedFocus(nullptr); });
}

void Bench::type(TextBox& box, const std::string& text)
{
    focus(box);
    for (const char c : text)
        act("type in " + box.name(), [&] { box.userTyped(std::string(1, c)); });
}

void Bench::replace(TextBox& box, const std::string& text)
{
    act("replace " + box.name(), [&] { box.userReplaced(text, text.size(), 0); });
}

void Bench::choose(ComboBox& box, std::int32_t index)
{
    act("choose " + box.name(), [&] { box.userChose(index); });
}

void Bench::click(PressControl& control)
{
    act("click " + control.name(), [&] { control.userClicked(); });
}

void Bench::editCell(std::int32_t row, const std::string& text)
{
    act("cell", [&] { page().grdParam.userEditedCell(row, text); });
}

Texts heldBy(const Bench& bench)
{
    Texts lines;
    for (const auto& driver : bench.fakes)
        lines.push_back(stateOf(*driver));
    return lines;
}

Texts stateOf(Bench& bench)
{
    Texts lines;
    for (const Form* form : bench.forms())
        for (const Control* control : form->controls())
            lines.push_back(stateOf(*control));
    for (const std::string& driver : heldBy(bench))
        lines.push_back(driver);
    const Page& page = bench.page();
    std::ostringstream fields;
    fields << "trigger " << page.TriggerSlot << " " << page.TriggerChannel << " lines "
           << page.lines.line(LineTrigger::start) << " " << page.lines.line(LineTrigger::scan) << " edit "
           << page.editFlags;
    lines.push_back(fields.str());
    return lines;
}

} // namespace ko::test
