#pragma once

#include "host/instruments/HostInstrument.h"
#include "platform/Locale.h"
#include "widgets/support/Convert.h"

#include <QDialog>
#include <QPointer>
#include <functional>

class QAction;
class QTreeView;

namespace ko {

class InstrumentsModel;

/// What the dialog of an instrument's properties asks of its window.
struct InstrumentDescribing {
    /// Describes the instrument anew; see `FrameInstruments`.
    std::function<bool(const HostInstrument& driver, const InstrumentSettings& settings)> describe;
    /// Whether the instruments can be looked at only.
    std::function<bool()> isLocked;
};

/// The action of the instruments' tree that shows the properties of the current row's instrument. A double click on a
/// value does so, too.
class PropertiesAction : public QObject {
public:
    /// Adds the action to the tree. All arguments must outlive this object.
    PropertiesAction(QTreeView& tree, const InstrumentsModel& model, const Texts& texts, const Locale& locale,
                     const InstrumentDescribing& window);

    /// Closes the dialog if its instrument is not one of these.
    void follow(const HostInstruments& drivers);

private:
    void show();

    QTreeView& tree_;
    const InstrumentsModel& model_;
    const Texts& texts_;
    const Locale& locale_;
    const InstrumentDescribing& window_;
    QAction& action_;
    QPointer<QDialog> dialog_;
    const HostInstrument* driver_ = nullptr; ///< of the dialog, while that is open
};

} // namespace ko
