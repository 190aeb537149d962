#pragma once

namespace ko {

/// Registers accessible roles for widgets without one in the toolkit: pictures, options, and fields made of several
/// widgets. Must be called before the first of them is queried; further calls have no effect.
void describeOwnWidgets();

} // namespace ko
