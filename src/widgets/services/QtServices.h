#pragma once

#include "widgets/dialogs/QtModalForms.h"
#include "widgets/services/QtClipboard.h"
#include "widgets/services/QtLocale.h"
#include "widgets/services/QtMessageBox.h"
#include "widgets/services/QtPrinters.h"
#include "widgets/services/QtScreen.h"

namespace ko {

/// The toolkit's services, together. They outlive the component that they are given to.
struct QtServices {
    explicit QtServices(QtPrinters::Surfaces surfaces) : printers(std::move(surfaces)) {}

    QtMessageBox messageBox;
    QtClipboard clipboard;
    QtPrinters printers;
    QtScreen screen;
    QtClock clock;
    QtModalForms modalForms;

    /// What a component is made with. `makeReporter` makes the host's error reporter.
    Platform platform(std::function<std::shared_ptr<ErrorReporter>()> makeReporter)
    {
        return {messageBox,
                clipboard,
                printers,
                screen,
                clock,
                modalForms,
                toLocale(QLocale::system()),
                std::move(makeReporter),
                [] { return toLocale(QLocale::system()); }};
    }
};

} // namespace ko
