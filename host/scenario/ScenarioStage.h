#pragma once

#include "document/ClassFactory.h"
#include "host/instruments/DriverHealth.h"
#include "host/scenario/ScriptReader.h"
#include "host/setup/History.h"

namespace ko {

/// What a scenario acts on: a page, the set-up that its host shows on it, and the history of that set-up.
class ScenarioStage {
public:
    virtual ~ScenarioStage() = default;

    /// Returns null if the script has destroyed the document.
    [[nodiscard]] virtual Document* document() = 0;
    [[nodiscard]] virtual const HostInstruments& drivers() const = 0;
    /// Opens the devices of instruments; empty: there are none.
    [[nodiscard]] virtual std::shared_ptr<DeviceSource> devices() const = 0;
    [[nodiscard]] virtual const std::string& title() const = 0;
    /// Returns a text of the component in its language.
    [[nodiscard]] virtual std::string text(int number) const = 0;
    [[nodiscard]] virtual History& history() = 0;
    [[nodiscard]] virtual DriverHealth& health() = 0;

    /// Replaces the instruments by those of a file. The script hands them over. Throws an `InputError` if the file is
    /// refused.
    virtual void loadSetup(const std::string& file) = 0;
    /// Called after the script has handed all instruments over.
    virtual void setupShown() = 0;
    /// Gives the document a client site for the script.
    virtual void setSite(const std::shared_ptr<ClientSite>& site) = 0;

    virtual void makeDocument() = 0;
    virtual void terminate() = 0;
    /// The machine's regional settings.
    [[nodiscard]] virtual const Locale& locale() const = 0;
    /// Changes the machine's regional settings and makes a new document with them.
    virtual void setLocale(const Locale& locale) = 0;

    /// Called after each line; returns false to end the script.
    virtual bool lineDone(const ScriptLine& line) = 0;
    /// Whether the page is not the script's any more. Nothing but `lineDone` may be called then.
    [[nodiscard]] virtual bool isOver() const = 0;
};

} // namespace ko
