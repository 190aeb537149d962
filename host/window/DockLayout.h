#pragma once

class QAbstractItemView;
class QDockWidget;

namespace ko {

/// Fills a dock with its view and a row of buttons below it, one for each action of the view. The actions are also the
/// view's context menu. A button has its action's object name, text, tool tip and state.
void layDock(QDockWidget& dock, QAbstractItemView& view);

} // namespace ko
