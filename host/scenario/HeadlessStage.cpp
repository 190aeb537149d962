#include "host/scenario/HeadlessStage.h"

#include "host/scenario/Scenario.h"

namespace ko {

HeadlessStage::HeadlessStage(Scenario& scenario, const ScenarioOptions& options)
    : scenario_(scenario), language_(options.language), devices_(options.devices),
      watch_([&scenario] { return scenario.clock.now(); }),
      history_({[this](int number) { return text(number); }, [this]() -> const Locale& { return platform_.locale; }}),
      changes_(scenario.log), platform_{scenario.messageBox,
                                        scenario.clipboard,
                                        scenario.printers,
                                        scenario.screen,
                                        scenario.clock,
                                        scenario.dialogs,
                                        options.locale,
                                        [&scenario] { return std::make_shared<LoggedErrors>(scenario.log); }}
{
    watch_.wanted = [this](Operation operation) { return logs(operation); };
    watch_.called = [this](const DriverWatch::Watched& watched, const DriverCall& call) {
        logCall(watched.index, call);
    };
    history_.rebuild = [this] { health().rebuild([this] { document_->UserDocument_Show(); }); };
    history_.handOver = [this](const HostInstruments& drivers, History::HandOver how) { handOver(drivers, how); };
    takeSetup(options.setup);
    makeComponent();
}

HeadlessStage::~HeadlessStage()
{
    history_.end();
}

bool HeadlessStage::logs(Operation operation) const
{
    return !scenario_.quiet && (scenario_.showReads || isWrite(operation));
}

void HeadlessStage::logCall(std::size_t index, const DriverCall& call)
{
    std::vector<EventMember> members{{"driver", static_cast<std::int32_t>(index)},
                                     {"operation", std::string(operationName(call.operation))}};
    if (call.arguments.size() > 0)
        members.push_back({"arguments", LineList(call.arguments)});
    members.push_back({"value", call.value});
    scenario_.log.event(isWrite(call.operation) ? "write" : "read", members);
}

void HeadlessStage::takeSetup(const Setup& setup)
{
    exchange(drivers_, {});
    drivers_ = makeDrivers(setup, devices_);
    watch_.watch(drivers_);
    title_ = setup.title;
    if (setup.clock)
        scenario_.clock.time = setup.clock;
}

void HeadlessStage::handOver(const HostInstruments& drivers, History::HandOver how)
{
    exchange(drivers_, drivers);
    watch_.follow(drivers);
    IKopDrivers& page = document_->drivers();
    const bool isEdited = how == History::HandOver::Edited;
    if (!isEdited)
        document_->UserDocument_Hide();
    page.setNumberOfDrivers(static_cast<std::int32_t>(drivers.size()));
    health().rebuild([&] { page.setDrivers(DriverList(drivers.begin(), drivers.end())); });
    if (isEdited && document_)
        page.DriversHaveChanged();
}

void HeadlessStage::loadSetup(const std::string& file)
{
    takeSetup(ko::loadSetup(file));
}

void HeadlessStage::setupShown()
{
    history_.begin(drivers_, document_->page());
}

void HeadlessStage::setSite(const std::shared_ptr<ClientSite>& site)
{
    document_->mode().setClientSite(site);
}

void HeadlessStage::makeComponent()
{
    history_.end();
    document_.reset();
    component_.reset(createKoTimebaseEditor(platform_, language_));
    makeDocument();
}

void HeadlessStage::makeDocument()
{
    history_.end();
    document_.reset();
    document_ = component_->createDocument(changes_);
    history_.begin(drivers_, document_->page());
    document_->page().view = [this] { history_.focusMoved(); };
}

void HeadlessStage::setLocale(const Locale& locale)
{
    platform_.locale = locale;
    makeComponent();
}

void HeadlessStage::terminate()
{
    history_.end();
    document_.reset();
}

} // namespace ko
