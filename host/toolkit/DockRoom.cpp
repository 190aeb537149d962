#include "host/toolkit/DockRoom.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <algorithm>

namespace ko {

namespace {

bool isBeside(Qt::DockWidgetArea area)
{
    return area == Qt::LeftDockWidgetArea || area == Qt::RightDockWidgetArea;
}

bool isFixed(const QMainWindow& window)
{
    return window.isMaximized() || window.isFullScreen();
}

/// Returns the largest size that the window's content can have.
QSize mostRoom(const QMainWindow& window)
{
    if (isFixed(window))
        return window.size();
    const QSize frame = window.frameGeometry().size() - window.size();
    return (window.screen()->availableSize() - frame).expandedTo(window.size());
}

/// Returns the content's size with the page and the dock side by side, or one above the other.
QSize wantedSize(const QMainWindow& window, QDockWidget& dock, const QSize& page)
{
    const int gap = window.style()->pixelMetric(QStyle::PM_DockWidgetSeparatorExtent, nullptr, &window);
    const int bars = window.menuBar()->height() + window.statusBar()->height();
    if (isBeside(window.dockWidgetArea(&dock)))
        return {page.width() + gap + dock.sizeHint().width(), window.height()};
    return {window.width(), page.height() + gap + dock.sizeHint().height() + bars};
}

/// Puts a dock below the page into tabs with another open one, if there is any.
void shareTabs(QMainWindow& window, QDockWidget& dock)
{
    for (QDockWidget* const other : window.findChildren<QDockWidget*>())
        if (other != &dock && !other->isHidden() && !other->isFloating() &&
            window.dockWidgetArea(other) == Qt::BottomDockWidgetArea)
            return window.tabifyDockWidget(other, &dock);
}

void grow(QMainWindow& window, const QSize& size)
{
    if (isFixed(window) || size == window.size())
        return;
    const QRect screen = window.screen()->availableGeometry();
    QRect last({}, window.frameGeometry().size() - window.size() + size);
    last.moveBottomRight(screen.bottomRight());
    window.resize(size);
    window.move(std::min(window.x(), std::max(last.x(), screen.x())),
                std::min(window.y(), std::max(last.y(), screen.y())));
}

} // namespace

void makeRoom(QMainWindow& window, QDockWidget& dock, const QSize& page)
{
    if (dock.isFloating())
        return;
    const QSize most = mostRoom(window);
    if (isBeside(window.dockWidgetArea(&dock)) && wantedSize(window, dock, page).width() > most.width())
        window.addDockWidget(Qt::BottomDockWidgetArea, &dock);
    if (window.dockWidgetArea(&dock) == Qt::BottomDockWidgetArea)
        shareTabs(window, dock);
    grow(window, wantedSize(window, dock, page).boundedTo(most).expandedTo(window.size()));
    if (isBeside(window.dockWidgetArea(&dock)))
        window.resizeDocks({&dock}, {dock.sizeHint().width()}, Qt::Horizontal);
    else
        window.resizeDocks({&dock}, {std::min(dock.sizeHint().height(), window.height() * 2 / 5)}, Qt::Vertical);
}

} // namespace ko
