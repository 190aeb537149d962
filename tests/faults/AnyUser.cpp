#include "faults/AnyUser.h"

namespace ko::test {

namespace {

constexpr const char* texts[] = {"1",  "0.5", "1e3", "",    "abc", "1e-7", "0.001",  "1e300", "-1",
                                 " 7", "64",  "1.",  "1e9", "25",  "True", "Rising", "1000",  "0"};

std::string anyText(Draw& draw)
{
    return draw.of(texts);
}

/// Returns a control, mostly one that accepts input at present.
Control& anyControl(const Form& form, Draw& draw)
{
    const auto& controls = form.controls();
    const auto takesInput = [](const Control& control) {
        return control.isUsable() && !dynamic_cast<const Label*>(&control) && !dynamic_cast<const Frame*>(&control);
    };
    Control* control = controls[draw.upTo(controls.size())];
    for (int tries = 0; tries < 10 && !takesInput(*control); ++tries)
        control = controls[draw.upTo(controls.size())];
    return *control;
}

} // namespace

void AnyUser::listen(Form& form)
{
    form.userActs = [this](const Texts& words) {
        std::string line;
        for (const std::string& word : words)
            line += (line.empty() ? "" : " ") + (word.empty() ? "\"\"" : word);
        done.push_back(line);
    };
}

void AnyUser::act(std::uint32_t seed)
{
    Draw draw(seed);
    bench_.host.inModalForm = [this, seed](Form& form) { answer(form, seed); };
    listen(bench_.page());
    if (draw.oneIn(8))
        beHost(draw);
    else if (bench_.page().isShown)
        use(bench_.page(), draw);
    else
        bench_.show();
}

void AnyUser::beHost(Draw& draw)
{
    Document& document = bench_.document();
    switch (draw.upTo(8)) {
    case 0: return changeList(draw);
    case 1: return bench_.act("read-only", [&, flag = draw.oneIn(2)] { document.mode().setReadOnly(flag); });
    case 2: return bench_.act("hide", [&] { document.UserDocument_Hide(); });
    case 3: return bench_.show();
    case 4: return bench_.act("site", [&] { document.mode().setClientSite(bench_.host.site()); });
    case 5: return bench_.act("print", [&] { document.print().DefaultPrint("Second", {}); });
    default: return giveCommand(draw);
    }
}

void AnyUser::changeList(Draw& draw)
{
    const bool known = draw.oneIn(3);
    done.push_back(known ? "setup" : "setup OTHER");
    if (!known)
        addAnyInstruments(bench_, draw, mayFail_);
    bench_.handOver();
}

void AnyUser::giveCommand(Draw& draw)
{
    const std::int32_t ids[] = {command::copy,  command::cut,         command::erase,
                                command::paste, command::acceptEntry, command::help};
    const std::int32_t id = draw.of(ids);
    std::int32_t enabled = 0;
    bench_.act("can", [&] { bench_.document().menu().OnUpdateCommandUI(id, enabled); });
    if (enabled == 0 && id != command::acceptEntry)
        return;
    done.push_back("command " + std::to_string(id));
    bench_.act("command", [&] { bench_.document().menu().OnCommand(id); });
}

bool AnyUser::use(Form& form, Draw& draw)
{
    Control* const control = &anyControl(form, draw);
    if (auto* const box = dynamic_cast<TextBox*>(control))
        useText(*box, draw);
    else if (auto* const list = dynamic_cast<ComboBox*>(control))
        bench_.choose(*list, draw.upTo(static_cast<int>(list->items().size()) + 1) - 1);
    else if (auto* const grid = dynamic_cast<Grid*>(control))
        useGrid(*grid, draw);
    else if (auto* const selector = dynamic_cast<ChannelSelector*>(control))
        return useSelector(*selector, draw);
    else if (auto* const tabs = dynamic_cast<TabControl*>(control))
        bench_.act("tab", [&] { tabs->userChoseTab(draw.upTo(2)); });
    else if (auto* const calendar = dynamic_cast<Calendar*>(control))
        bench_.act("date", [&] { calendar->userChose(2026, draw.upTo(14), 1 + draw.upTo(30)); });
    else if (auto* const picker = dynamic_cast<TimePicker*>(control))
        bench_.act("time", [&] { picker->userChose(draw.upTo(25), draw.upTo(60), draw.upTo(60)); });
    else if (auto* const button = dynamic_cast<PressControl*>(control))
        return press(*button);
    return true;
}

/// Recognizes the buttons that close a dialog by their names, which are alike in all dialogs.
bool AnyUser::press(PressControl& control)
{
    bench_.click(control);
    const std::string& name = control.name();
    return name.find("OK") == std::string::npos && name.find("Cancel") == std::string::npos;
}

void AnyUser::useText(TextBox& box, Draw& draw)
{
    bench_.focus(box);
    if (!box.hasFocus())
        return;
    switch (draw.upTo(6)) {
    case 0: return bench_.act("select", [&] { box.userSelected(0, draw.upTo(std::size_t{4})); });
    case 1: return bench_.act("double-click", [&] { box.userDoubleClicked(); });
    case 2: return bench_.act("undo", [&] { box.userUndid(); });
    case 3: return bench_.replace(box, anyText(draw));
    default: return bench_.act("type", [&] { box.userTyped(draw.of({"0", "1", "5", ".", "-", "e", "x"})); });
    }
}

void AnyUser::useGrid(Grid& grid, Draw& draw)
{
    const std::int32_t row = draw.upTo(grid.rowCount() + 1);
    switch (draw.upTo(5)) {
    case 0: return bench_.act("open cell", [&] { grid.userOpenedCell(row); });
    case 1: return bench_.act("type in cell", [&, text = anyText(draw)] { grid.userTypedInCell(text, 0, 0); });
    case 2: return bench_.act("end cell", [&] { grid.userEndedEdit(); });
    case 3: return bench_.act("drop cell", [&] { grid.userDroppedEdit(); });
    default: return bench_.editCell(row, anyText(draw));
    }
}

bool AnyUser::useSelector(ChannelSelector& selector, Draw& draw)
{
    const std::size_t line = draw.upTo(selector.entries().size() + 1);
    if (draw.oneIn(3)) {
        bench_.act("activate", [&] { selector.userActivated(line); });
        return line >= selector.entries().size();
    }
    bench_.act("pick",
               [&] { selector.userPicked(draw.oneIn(4) ? ChannelSelector::Lines{} : ChannelSelector::Lines{line}); });
    return true;
}

/// Each showing gets different input, because a form that reopens after the same input would never be left.
void AnyUser::answer(Form& form, std::uint32_t seed)
{
    listen(form);
    Draw draw(seed + static_cast<std::uint32_t>(done.size()));
    done.push_back("dialog " + form.name());
    if (draw.oneIn(20))
        changeList(draw);
    bool open = true;
    for (int inputs = draw.upTo(12); inputs > 0 && open; --inputs)
        open = use(form, draw);
    done.emplace_back("end");
}

} // namespace ko::test
