#pragma once

#include "host/properties/PropertyFields.h"

class QWidget;

namespace ko {

/// What the tabs of the dialog of an instrument's properties share. All must outlive the tabs.
struct PropertyContext {
    const Texts& texts;
    InstrumentProperties& properties;
    PropertyFields& fields; ///< of the instrument
    bool isLocked = false;
};

/// Makes the tab with the available rates, block sizes and periods of the timebase. Those of the other kind of
/// measurement are hidden.
QWidget* makeSamplingTab(const PropertyContext& context, QComboBox& kind, QWidget* parent);

/// Makes the tab with the ranks and lines of the triggers.
QWidget* makeLinesTab(const PropertyContext& context, QWidget* parent);

/// Makes the tab with the options of a device, in place of the others; all else is the device's own.
QWidget* makeDeviceTab(const PropertyContext& context, const InstrumentSettings& settings, QWidget* parent);

/// Returns a tab that scrolls where there is no room for `content`, which it owns.
QWidget* scrolledTab(QWidget& content, QWidget* parent);

/// Makes the list of the two kinds of measurement. Choosing one sets the instrument's modes.
QComboBox& makeKindList(const PropertyContext& context, QWidget* parent);

} // namespace ko
