#include "faults/Bench.h"

namespace ko::test {

namespace {

/// Adds a dynamic driver with all views, another dynamic one, and a static one.
void addInstruments(Bench& bench, bool withLists)
{
    bench.fakes.clear();
    for (const std::int32_t samplingMode : {1, 1, 2}) {
        FakeDriver& driver = bench.addDriver(samplingMode);
        driver.groups = {{"Inputs", {{"0:1:0"}, {"1:2", "", 0}}}, {"More", {{"0:1:2", "Crank", 1, true}}}};
        driver.startRank = driver.scanRank = 5;
        driver.startMasterLines = driver.scanListenerLines = {1, 2, 3, 4, 5};
        if (withLists) {
            driver.sampleChoices = driver.scanChoices = {0.5, 0.002, 0.001, 1e-7};
            driver.blockChoices = {512, 1024, 2048};
        } else {
            driver.sampleRange = driver.scanRange = {1e-8, 1000};
            driver.blockRange = {16, 4096};
        }
        driver.bytes = [](const FakeDriver& d) { return 416.0 + 12.0 * d.duration / d.samplePeriod; };
        driver.scans = [](const FakeDriver& d) { return static_cast<std::int32_t>(d.duration / d.scanPeriod); };
    }
    bench.fakes[0]->parameters = {{2, "Level"},
                                  {4, "Slope", "Enum", std::string("Rising"), 0, 0, {"Rising", "Falling"}},
                                  {5, "Hold", "Bool", false},
                                  {6, "Count", "Integer", 3, 0, 10},
                                  {7, "Note", "String", std::string("none")}};
}

void open(Bench& bench, bool withLists = true)
{
    addInstruments(bench, withLists);
    bench.host.inModalForm = nullptr;
    bench.host.clipboardText = std::string("7");
    bench.act("hide", [&] { bench.document().UserDocument_Hide(); });
    bench.act("writable", [&] { bench.document().mode().setReadOnly(false); });
    bench.handOver();
    bench.show();
}

void lifeCycle(Bench& bench)
{
    bench.restart();
    bench.act("site", [&] { bench.document().mode().setClientSite(bench.host.site()); });
    open(bench);
    for (const bool flag : {true, false})
        bench.act("read-only", [&] { bench.document().mode().setReadOnly(flag); });
    bench.fakes.pop_back();
    bench.handOver();
    bench.act("hide", [&] { bench.document().UserDocument_Hide(); });
    bench.fakes.clear();
    bench.handOver();
    bench.show();
    bench.click(bench.page().imgNoInst);
    bench.act("processed", [&] { bench.document().drivers().HasProcessedDriverChanges(); });
    open(bench, false);
}

void samplingLists(Bench& bench)
{
    open(bench);
    for (const std::int32_t entry : {0, 3, 2}) {
        bench.choose(bench.page().cmbSampleRate, entry);
        bench.choose(bench.page().cmbSamplePeriod, entry);
    }
    bench.choose(bench.page().cmbBlockSize, 2);
}

void samplingBoxes(Bench& bench)
{
    open(bench, false);
    Page& page = bench.page();
    bench.type(page.txtSampleRate, "25");
    bench.replace(page.txtSampleRate, "1e8");
    bench.replace(page.txtSampleRate, "x");
    // A rate beyond the limit, after a failed restore, is not what Escape returns to.
    bench.replace(page.txtSampleRate, "50");
    bench.leave();
    bench.type(page.txtSamplePeriod, "0.5");
    bench.act("undo", [&] { page.txtSamplePeriod.userUndid(); });
    bench.type(page.txtBlockSize, "64");
    bench.command(command::acceptEntry);
    bench.leave();
}

void scanning(Bench& bench)
{
    open(bench);
    bench.choose(bench.page().cmbScanRate, 1);
    bench.choose(bench.page().cmbScanPeriod, 3);
    bench.choose(bench.page().cmbScanPeriod, 0);
    open(bench, false);
    bench.type(bench.page().txtScanRate, "2.5");
    bench.replace(bench.page().txtScanPeriod, "1e-8");
    bench.type(bench.page().txtScanPeriod, "3");
    bench.leave();
}

/// Lines count the rows of the channel tree: the device, a group, its channels.
void chooseChannel(Bench& bench, std::size_t line)
{
    int asked = 0;
    bench.host.inModalForm = [&, line](Form& form) {
        auto& selector = dynamic_cast<ChannelSelector&>(*form.find("chsNavigate"));
        selector.userPicked(++asked == 1 ? ChannelSelector::Lines{} : ChannelSelector::Lines{line});
        dynamic_cast<PressControl&>(*form.find("cmdHelp")).userClicked();
        dynamic_cast<PressControl&>(*form.find(asked < 4 ? "cmdOK" : "cmdCancel")).userClicked();
    };
    bench.click(bench.page().cmdChannel);
}

void trigger(Bench& bench)
{
    open(bench);
    bench.click(bench.page().optOnTrigger);
    chooseChannel(bench, 4);
    chooseChannel(bench, 2);
    const char* entries[] = {"1.5", "Falling", "True", "99", "text"};
    for (std::int32_t row = 1; row <= 5; ++row)
        bench.editCell(row, entries[row - 1]);
    bench.act("open cell", [&] { bench.page().grdParam.userOpenedCell(1); });
    bench.act("type in cell", [&] { bench.page().grdParam.userTypedInCell("2", 1, 0); });
    bench.command(command::acceptEntry);
    bench.click(bench.page().optImmediate);
    bench.click(bench.page().optOnTrigger);
    chooseChannel(bench, 5);
}

/// Sets what the user picks in the next dialog for a date and time.
void willPick(Bench& bench, int day, int hour, int second)
{
    bench.host.inModalForm = [day, hour, second](Form& form) {
        dynamic_cast<PressControl&>(*form.find("optSpecifiedDay")).userClicked();
        dynamic_cast<Calendar&>(*form.find("calDate")).userChose(2026, 11, day);
        dynamic_cast<TimePicker&>(*form.find("dtpTimeSelector")).userChose(hour, 0, second);
        dynamic_cast<PressControl&>(*form.find("btnOK")).userClicked();
    };
}

void times(Bench& bench)
{
    open(bench);
    Page& page = bench.page();
    bench.click(page.optStartTime);
    willPick(bench, 24, 15, 0);
    bench.click(page.cmdStartTime);
    bench.click(page.optStopTime);
    bench.focus(page.txtStopTime);
    willPick(bench, 24, 15, 30);
    bench.act("double-click", [&] { page.txtStopTime.userDoubleClicked(); });
    willPick(bench, 23, 15, 30);
    bench.click(page.cmdStopTime);
    bench.choose(page.cmbSamplePeriod, 3);
    willPick(bench, 28, 15, 30);
    bench.click(page.cmdStopTime);
    willPick(bench, 24, 14, 0);
    bench.act("double-click", [&] { page.txtStartTime.userDoubleClicked(); });
    bench.click(page.optAfter);
    bench.type(page.txtDuration, "12.5");
    bench.choose(page.cmbInterval, 1);
    bench.choose(page.cmbInterval, 3);
    bench.replace(page.txtDuration, "1");
    bench.leave();
}

void triggerLines(Bench& bench)
{
    open(bench);
    bench.host.inModalForm = [](Form& form) {
        dynamic_cast<PressControl&>(*form.find("optStartTrig(3)")).userClicked();
        dynamic_cast<PressControl&>(*form.find("optScanTrig(5)")).userClicked();
        KeyPress f1{key::f1, 0};
        form.userPressedKey(f1);
        dynamic_cast<PressControl&>(*form.find("btnOK")).userClicked();
    };
    bench.click(bench.page().mnuTimebaseTriggerLines);
    bench.handOver();
}

void commands(Bench& bench)
{
    open(bench, false);
    bench.act("site", [&] { bench.document().mode().setClientSite(bench.host.site()); });
    bench.focus(bench.page().txtDuration);
    for (const std::int32_t id : {command::copy, command::erase, command::paste, command::cut, command::paste,
                                  command::acceptEntry, command::help})
        bench.command(id);
    bench.focus(bench.page().txtScanRate);
    bench.act("leave?", [&] {
        bool allowed = false;
        bench.document().state().OKToLeave(allowed);
    });
    bench.act("F1", [&] {
        KeyPress f1{key::f1, 0};
        bench.page().userPressedKey(f1);
    });
    bench.act("print", [&] { bench.document().print().DefaultPrint("Second", {}); });
    std::string description;
    bench.act("print mode", [&] { bench.document().print().GetPrintModeDescription(description); });
    bench.act("recorded", [&] { bench.document().state().RecordedFilesHaveChanged(); });
}

} // namespace

const Script scripts[8] = {{"LifeCycle", lifeCycle},
                           {"SamplingLists", samplingLists},
                           {"SamplingBoxes", samplingBoxes},
                           {"Scanning", scanning},
                           {"Trigger", trigger},
                           {"Times", times},
                           {"TriggerLines", triggerLines},
                           {"Commands", commands}};

} // namespace ko::test
