#pragma once

#include "host/instruments/DriverWatch.h"
#include "host/scenario/HeadlessPlatform.h"
#include "host/scenario/ScenarioOptions.h"
#include "host/scenario/ScenarioStage.h"

namespace ko {

class Scenario;

/// A page without a window, on simulated instruments whose calls are logged.
class HeadlessStage final : public ScenarioStage {
public:
    /// Uses the scenario's machine and log, and outlives neither. Throws if the content of the language file is
    /// invalid.
    HeadlessStage(Scenario& scenario, const ScenarioOptions& options);
    ~HeadlessStage() override;

    Document* document() override { return document_.get(); }
    [[nodiscard]] const HostInstruments& drivers() const override { return drivers_; }
    [[nodiscard]] std::shared_ptr<DeviceSource> devices() const override { return devices_; }
    [[nodiscard]] const std::string& title() const override { return title_; }
    [[nodiscard]] std::string text(int number) const override { return component_->text(number); }
    History& history() override { return history_; }
    DriverHealth& health() override { return watch_.health(); }

    void loadSetup(const std::string& file) override;
    void setupShown() override;
    void setSite(const std::shared_ptr<ClientSite>& site) override;
    void makeDocument() override;
    void terminate() override;
    [[nodiscard]] const Locale& locale() const override { return platform_.locale; }
    void setLocale(const Locale& locale) override;
    bool lineDone(const ScriptLine&) override { return true; }
    [[nodiscard]] bool isOver() const override { return false; }

private:
    [[nodiscard]] bool logs(Operation operation) const;
    void logCall(std::size_t index, const DriverCall& call);
    void handOver(const HostInstruments& drivers, History::HandOver how);
    void takeSetup(const Setup& setup);
    void makeComponent();

    Scenario& scenario_;
    std::string language_;
    std::shared_ptr<DeviceSource> devices_;
    std::string title_;
    DriverWatch watch_;
    History history_;
    LoggedChanges changes_;
    HostInstruments drivers_;
    Platform platform_;
    std::unique_ptr<Component> component_;
    std::unique_ptr<Document> document_;
};

} // namespace ko
