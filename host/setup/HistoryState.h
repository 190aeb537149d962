#pragma once

#include "host/instruments/HostInstrument.h"
#include "page/Page.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace ko {

/// What the page stores beside the instruments and writes to them, or marks in them, when it is rebuilt.
struct StoredSettings {
    std::optional<TriggerVars> triggerVars;
    bool triggerVarsAreOfFirst = false;
    std::int32_t triggerSlot = -1;
    std::int32_t triggerChannel = -1;

    bool operator==(const StoredSettings&) const = default;

    static StoredSettings of(const Page& page)
    {
        return {page.triggerVars, page.triggerVarsAreOfFirst, page.TriggerSlot, page.TriggerChannel};
    }
    void putOn(Page& page) const
    {
        page.triggerVars = triggerVars;
        page.triggerVarsAreOfFirst = triggerVarsAreOfFirst;
        page.TriggerSlot = triggerSlot;
        page.TriggerChannel = triggerChannel;
    }
};

/// A list of instruments and the settings of each, at one moment.
struct HeldState {
    using Settings = std::shared_ptr<const InstrumentSettings>;

    HostInstruments drivers;
    std::vector<Settings> settings; ///< in the order of `drivers`

    /// Returns what these instruments hold; shares the settings of those that hold what they have in `like`.
    static HeldState present(const HostInstruments& drivers, const HeldState& like);
    /// Whether the instruments and their settings are the same.
    [[nodiscard]] bool hasSameInstruments(const HeldState& other) const
    {
        return drivers == other.drivers && settings == other.settings;
    }
};

/// The settings of all instruments and those that the page stores, at one moment. States share the settings of
/// instruments that do not differ.
struct HistoryState : HeldState {
    StoredSettings stored;
};

} // namespace ko
