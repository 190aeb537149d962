#pragma once

#include "interfaces/Values.h"

#include <string>

namespace ko {

/// Printing. All calls are made on the user-interface thread; none throws.
class IKopPrint {
public:
    /// Stores a print mode chosen by the host; the document only returns it from `PrintMode`.
    virtual void setPrintMode(std::int32_t mode) = 0;
    virtual std::int32_t PrintMode() = 0;

    /// Sets `description` to the name of the document's print mode, the same for every mode.
    virtual void GetPrintModeDescription(std::string& description) = 0;

    /// Prints the page's visible surface on the printer with exactly this name, or on the current printer when there is
    /// none, after applying the six settings to that printer.
    virtual void DefaultPrint(const std::string& printerName, const DeviceMode& settings) = 0;

protected:
    ~IKopPrint() = default;
};

} // namespace ko
