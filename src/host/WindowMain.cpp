#include "host/WindowMain.h"

#include "host/FrameWindow.h"
#include "host/InputError.h"

#include <QApplication>
#include <QScreen>
#include <cstdio>

namespace ko {

namespace {

constexpr int refused = 2;

int complain(const std::string& reason)
{
    std::fprintf(stderr, "%s\n", reason.c_str());
    return refused;
}

QSize startSize(const FrameWindow& window)
{
    const QSize wanted = window.sizeHint();
    const QSize room = window.screen()->availableSize() * 9 / 10;
    return wanted.boundedTo(room);
}

int paintInto(FrameWindow& window, const std::string& picture)
{
    window.show();
    QApplication::processEvents();
    if (window.grab().save(toQt(picture)))
        return 0;
    return complain(picture + ": the picture cannot be written");
}

int stayOpen(FrameWindow& window, const std::string& refusal)
{
    window.show();
    if (!refusal.empty())
        window.refuse(refusal);
    return QApplication::exec();
}

int run(const WindowOptions& options)
{
    FrameWindow window(options.language);
    std::string refusal;
    try {
        if (!options.setup.empty())
            window.open(options.setup);
    } catch (const InputError& error) {
        refusal = error.what();
    }
    window.resize(startSize(window));
    if (options.picture.empty())
        return stayOpen(window, refusal);
    return refusal.empty() ? paintInto(window, options.picture) : complain(refusal);
}

} // namespace

int runWindow(int& argc, char** argv, const WindowOptions& options)
{
    // A picture needs no display.
    if (!options.picture.empty() && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("korvell-host"));
    try {
        return run(options);
    } catch (const std::exception& error) {
        return complain(error.what());
    }
}

} // namespace ko
