#pragma once

#include "interfaces/Values.h"

#include <string>

namespace ko {

/// Printing. All calls on the user-interface thread; none ever throws.
class IKopPrint {
public:
    /// Stores a print mode of the host's choosing; the document only gives it back.
    virtual void setPrintMode(std::int32_t mode) = 0;
    virtual std::int32_t PrintMode() = 0;

    /// The text that names the document's print mode, the same for every mode.
    virtual void GetPrintModeDescription(std::string& description) = 0;

    /// Prints the page's visible surface on the printer of exactly this name, or on the current printer when there
    /// is none, after copying the six settings onto that printer.
    virtual void DefaultPrint(const std::string& printerName, const DeviceMode& settings) = 0;

protected:
    ~IKopPrint() = default;
};

} // namespace ko
