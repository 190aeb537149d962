#pragma once

#include "widgets/QtClipboard.h"
#include "widgets/QtLocale.h"
#include "widgets/QtMessageBox.h"
#include "widgets/QtModalForms.h"
#include "widgets/QtPrinters.h"
#include "widgets/QtScreen.h"

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
