#pragma once

#include "document/ClassFactory.h"
#include "widgets/services/QtServices.h"
#include "widgets/support/Convert.h"

#include <QPointer>

namespace ko {

class Reports;

/// The toolkit's services and the component that uses them. Events in progress need them until they have returned, even
/// after the window has been destroyed.
struct FrameParts {
    /// `window` becomes the parent of all boxes and dialogs. `language` is passed to the component, whose exceptions
    /// reach the caller.
    FrameParts(QWidget& window, const std::string& language);

    [[nodiscard]] QString text(int number) const;
    /// Returns `text` as a function, which must not outlive this object.
    [[nodiscard]] Texts texts() const;

    /// Throws an `InputError` for a file that the window itself uses, so that nothing else may be written to it; set by
    /// the window.
    std::function<void(const std::string& file)> refuseOwn;

    QPointer<Reports> reports;    ///< receives what the component reports
    QtPrinters::Surfaces surface; ///< finds the widget of a form to print; may be empty
    QtServices services;
    Platform platform;
    std::unique_ptr<Component> component;
};

} // namespace ko
