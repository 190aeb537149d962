#pragma once

namespace ko {

/// Tells assistive technology what the widgets are that the toolkit has no word for: pictures, options, and
/// fields that are made of several. Once is enough; to be called before the first of them is asked what it is.
void describeOwnWidgets();

} // namespace ko
