#pragma once

#include "host/instruments/HostInstrument.h"

#include <string>
#include <vector>

namespace ko {
class FormView;
class FrameWindow;
} // namespace ko

namespace ko::test {

/// What the widgets of a form show otherwise than their models, a line each.
std::vector<std::string> shownOtherwise(const FormView& view);
/// What a window shows otherwise than its page, its set-up and its history are.
std::vector<std::string> shownOtherwise(FrameWindow& window);

/// Returns the text of a set-up file with what the instruments hold, without their failures.
std::string heldIn(const HostInstruments& drivers);
/// Returns what the boxes, lists, options and values of the page show, a line each, without those that cannot be used
/// and those that depend on the time.
std::string valuesOn(FrameWindow& window);

} // namespace ko::test
