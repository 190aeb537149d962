#pragma once

#include "widgets/dialogs/QtModalForms.h"
#include "widgets/services/QtClipboard.h"
#include "widgets/services/QtLocale.h"
#include "widgets/services/QtMessageBox.h"
#include "widgets/services/QtPrinters.h"
#include "widgets/services/QtScreen.h"

namespace ko {

/// All services of the toolkit. They must outlive the component that uses them.
struct QtServices {
    explicit QtServices(QtPrinters::Surfaces surfaces) : printers(std::move(surfaces)) {}

    QtMessageBox messageBox;
    QtClipboard clipboard;
    QtPrinters printers;
    QtScreen screen;
    QtClock clock;
    QtModalForms modalForms;

    /// The platform for creating a component. `makeReporter` creates the host's error reporter.
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
