// ko_instruments_bench [COUNT...]: prints how long it takes, in the window with the dock of the instruments, to add an
// instrument to COUNT (1,000 by default), to undo that, to search, and to draw a scrolled tree.
#include "host/docks/InstrumentsView.h"
#include "host/setup/SetupChanges.h"
#include "host/setup/SetupWriter.h"
#include "host/window/FrameWindow.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTreeView>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

/// The least duration of several runs, in milliseconds, until the window is up to date.
template <class Act> double least(const Act& act)
{
    double best = 1e9;
    for (int run = 0; run < 5; ++run) {
        QElapsedTimer time;
        time.start();
        act();
        QApplication::processEvents();
        best = std::min(best, static_cast<double>(time.nsecsElapsed()) * 1e-6);
    }
    return best;
}

void measure(int count)
{
    ko::Setup setup;
    for (int i = 0; i < count; ++i)
        ko::addInstrument(setup, i % 2 == 0 ? "digitizer" : "data-logger");
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("large.json")));
    if (!file.open(QIODevice::WriteOnly) || file.write(ko::setupText(setup).c_str()) < 0)
        std::exit(2);
    file.close();
    ko::FrameWindow window("");
    window.instruments().setVisible(true);
    window.open(file.fileName().toStdString());
    window.show();
    QApplication::processEvents();
    auto& tree = *window.instruments().findChild<QTreeView*>();
    auto& filter = *window.instruments().findChild<QLineEdit*>(QStringLiteral("filter"));
    const double added =
        least([&] { window.instrumentList().edit([](ko::Setup& edited) { ko::addInstrument(edited, "counter"); }); });
    const double undone = least([&] { window.history().undo(); });
    const double found = least([&] {
        filter.clear();
        filter.setText(QStringLiteral("Digitizer 99"));
    });
    filter.clear();
    const double scrolled = least([&] {
        tree.verticalScrollBar()->setValue(tree.verticalScrollBar()->value() > 0 ? 0 : count / 2);
        tree.viewport()->repaint();
    });
    std::printf("%6d instruments: add %.1f ms, undo %.1f ms, search %.1f ms, scroll %.1f ms\n", count, added, undone,
                found, scrolled);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    for (int i = 1; i < argc; ++i)
        measure(std::atoi(argv[i])); // NOLINT(cert-err34-c): of a developer
    if (argc == 1)
        measure(1000);
    return 0;
}
