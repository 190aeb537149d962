#include "host/window/FrameTest.h"

#include <QLineEdit>
#include <numeric>
#include <set>

namespace ko::test {
namespace {

TEST_F(FrameTest, TheFrameShowsItsHints)
{
    std::multiset<std::string> hints;
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        const auto* const box = qobject_cast<const QLineEdit*>(widget);
        const auto* const button = qobject_cast<const QAbstractButton*>(widget);
        const bool isOwnText = button && button->text().startsWith(widget->toolTip());
        for (const QString& hint :
             {isOwnText ? QString() : widget->toolTip(), widget->statusTip(), box ? box->placeholderText() : QString()})
            if (!hint.isEmpty() && !window.page().isAncestorOf(widget))
                hints.insert(fromQt(widget->objectName() + ": " + hint + "\n"));
    }
    EXPECT_EQ(std::accumulate(hints.begin(), hints.end(), std::string("\n")), R"(
: Marks the present time in the recording, with the text beside it
faults: Choose the operations that fail on this instrument
filter: Find an instrument or a channel
handOver: Reload the page with these instruments, as after a set-up change
markerText: Text of the next marker
reportCount: Show or hide the list of reported failures
space: Disk space required by the recording, and free space on the disk of the set-up
stripChart: Plus and minus zoom, the arrow keys scroll, Home shows everything, End follows the end.
tryAgain: Reload the page; instruments that respond leave this list
tryAgain: Reload the page; instruments that respond leave this list
)");
}

} // namespace
} // namespace ko::test
