#pragma once

class QDockWidget;
class QMainWindow;
class QSize;

namespace ko {

/// Makes room for a dock that the user has just opened, so that the page keeps its preferred size: enlarges the window
/// as far as the screen allows. A dock beside the page for which the screen is too narrow goes below it, where docks
/// share tabs. Leaves a floating dock alone.
void makeRoom(QMainWindow& window, QDockWidget& dock, const QSize& page);

} // namespace ko
