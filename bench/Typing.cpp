#include "bench/Events.h"
#include "widgets/page/PageWidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <algorithm>
#include <cstdio>

namespace ko::bench {

namespace {

constexpr int keys = 200;

/// Prints the time in milliseconds from one key event to the repainted page: median and maximum of many.
void typeInto(PageWidget& page, const TextBox& box)
{
    QWidget& edit = *page.view().widget(box);
    QTest::mouseClick(&edit, Qt::LeftButton);
    std::vector<double> taken;
    for (int i = 0; i < keys; ++i) {
        QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
        QApplication::processEvents();
        QElapsedTimer timer;
        timer.start();
        QTest::keyClick(&edit, i % 2 == 0 ? Qt::Key_7 : Qt::Key_8);
        QApplication::processEvents();
        taken.push_back(static_cast<double>(timer.nsecsElapsed()) * 1e-6);
    }
    std::sort(taken.begin(), taken.end());
    std::printf("%s %.3f %.3f\n", box.name().c_str(), taken[keys / 2], taken.back());
}

} // namespace

} // namespace ko::bench

/// Types into the boxes of a page with 1,000 drivers. Prints one line per box: its name, median and maximum time.
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    ko::bench::Setup setup(1000, 0);
    ko::PageWidget widget(setup.page(), [](int number) { return QString::number(number); });
    widget.resize(900, 700);
    widget.show();
    widget.activateWindow();
    if (!QTest::qWaitForWindowActive(&widget))
        return 1;
    ko::Page& page = setup.page();
    for (const ko::TextBox* box :
         {&page.txtSampleRate, &page.txtSamplePeriod, &page.txtScanRate, &page.txtScanPeriod, &page.txtDuration})
        ko::bench::typeInto(widget, *box);
    return 0;
}
