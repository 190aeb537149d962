#pragma once

class QAbstractItemView;
class QDockWidget;

namespace ko {

/// Fills a dock with its view and, below it, a button for each of the view's actions, which are the view's context
/// menu, too. A button has the name, text, tool tip and state of its action.
void layDock(QDockWidget& dock, QAbstractItemView& view);

} // namespace ko
