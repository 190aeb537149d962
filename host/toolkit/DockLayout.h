#pragma once

#include <QString>

class QAbstractItemView;
class QAction;
class QDockWidget;
class QTreeView;

namespace ko {

/// Adds an action with an object name to a view, for `layDock`.
QAction& addDockAction(QAbstractItemView& view, const QString& text, const char* name);

/// Fills a dock with its view and a row of buttons below it, one for each action of the view that has not
/// `QAction::LowPriority`. All actions are also the view's context menu. A button has its action's object name, text,
/// tool tip and state.
void layDock(QDockWidget& dock, QAbstractItemView& view);

/// Keeps the columns of a view, except the last, wide enough for their visible content, up to a limit. A column becomes
/// wider only for content that is wider than before, so that a width chosen by the user is respected.
void fitColumns(QTreeView& view);

/// Scrolls to new rows while the last row is visible. Call it after the view has its model.
void followTheEnd(QAbstractItemView& view);

/// Commits the open editor of the view, if it has the focus in its window. A letter of the Alt key and a shortcut do
/// not move the focus.
void commitEditor(QAbstractItemView& view);

} // namespace ko
