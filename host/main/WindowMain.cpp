#include "host/main/WindowMain.h"

#include "host/setup/SetupFile.h"
#include "host/support/DataFolders.h"
#include "host/support/FileWriter.h"
#include "host/support/HostTexts.h"
#include "host/support/InputError.h"
#include "host/support/StandardStreams.h"
#include "host/toolkit/GuardedApplication.h"
#include "host/toolkit/Later.h"
#include "host/toolkit/ToolkitTexts.h"
#include "host/window/FrameWindow.h"

#include <QApplication>
#include <QBuffer>
#include <QFileInfo>
#include <QIcon>
#include <QImageWriter>
#include <QScreen>
#include <QWindow>
#include <functional>

namespace ko {

namespace {

constexpr int refused = 2;

int refuse(const std::string& reason)
{
    complain(reason);
    return refused;
}

/// Returns the icon of the desktop's theme, or the one of the program's data where the theme lacks it.
QIcon programIcon()
{
    const auto own = findDataFile("icon.png");
    return QIcon::fromTheme(QGuiApplication::desktopFileName(), own ? QIcon(toQt(own->string())) : QIcon());
}

/// Encodes the picture in the format of the file's extension.
std::string encoded(const QPixmap& picture, const std::string& file)
{
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    QImageWriter writer(&content, QFileInfo(toQt(file)).suffix().toLatin1());
    if (!writer.write(picture.toImage()))
        throw InputError(file + ": the picture cannot be made: " + fromQt(writer.errorString()));
    return content.data().toStdString();
}

QSize startSize(const FrameWindow& window)
{
    const QSize wanted = window.sizeHint();
    const QSize room = window.screen()->availableSize() * 9 / 10;
    return wanted.boundedTo(room);
}

/// The picture depends on the set-up and the language alone: not on the free disk space, nor on the time at which the
/// cursor is off.
int paintInto(FrameWindow& window, const std::string& picture)
{
    window.space().stop();
    QApplication::setCursorFlashTime(0);
    window.show();
    // The first round tells the page its width, the second one arranges its frames for it.
    QApplication::processEvents();
    QApplication::processEvents();
    writeWhole(picture, encoded(window.grab(), picture));
    return 0;
}

/// Calls `act` once, after the window has appeared on the screen.
class OnceExposed : public QObject {
public:
    OnceExposed(QWindow& window, std::function<void()> act) : act_(std::move(act)) { window.installEventFilter(this); }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::Expose && static_cast<QWindow*>(object)->isExposed()) {
            object->removeEventFilter(this);
            later(*this, act_);
        }
        return false;
    }

private:
    std::function<void()> act_;
};

int stayOpen(FrameWindow& window, const std::string& refusal, bool isCapturing)
{
    // A message box must appear in front of the window, so it is shown after the window.
    window.winId();
    const OnceExposed afterExposed(*window.windowHandle(), [&] {
        if (!refusal.empty())
            window.files().questions().tellNotOpened(refusal);
        // A replay could not repeat what is restored.
        if (!isCapturing)
            window.autosave().offer(window.files().questions());
    });
    window.show();
    return QApplication::exec();
}

/// The application's boxes take their texts from the window during the window's life.
class BoxTexts {
public:
    BoxTexts(GuardedApplication& application, const FrameWindow& window) : application_(application)
    {
        application.texts = [&window](int number) { return window.text(number); };
    }
    ~BoxTexts() { application_.texts = nullptr; }
    BoxTexts(const BoxTexts&) = delete;
    BoxTexts& operator=(const BoxTexts&) = delete;

private:
    GuardedApplication& application_;
};

int run(const WindowOptions& options, GuardedApplication& application)
{
    const bool isPicture = !options.picture.empty();
    // A picture must not depend on the user's remembered window state.
    FrameWindow window(options.language, isPicture ? std::string() : FrameMemory::usersFile());
    window.session().devices = options.devices;
    loadToolkitTexts(window.text(hostText::languageCode));
    const BoxTexts boxTexts(application, window);
    if (!options.capture.empty())
        window.capture().start(options.capture, options.setup);
    std::string refusal;
    try {
        if (!options.setup.empty())
            window.open(options.setup);
    } catch (const InputError& error) {
        refusal = error.what();
    } catch (const std::exception& error) {
        refusal = options.setup + ": " + error.what();
    }
    if (!window.restorePlace())
        window.resize(startSize(window));
    // A message box that is not visible would never be closed.
    const bool isSeen = !isPicture && QGuiApplication::platformName() != QStringLiteral("offscreen");
    application.showsFailures = isSeen;
    if (!isSeen && !refusal.empty())
        return refuse(refusal);
    return isPicture ? paintInto(window, options.picture) : stayOpen(window, refusal, !options.capture.empty());
}

} // namespace

namespace {

bool isSet(const char* variable)
{
    return !qEnvironmentVariableIsEmpty(variable);
}

/// A platform chosen explicitly may need no display.
bool hasDisplay()
{
#if defined(Q_OS_LINUX)
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
#else
    return true;
#endif
}

/// An error in the set-up is more useful to the user than the missing display, so it is reported first.
int refuseWithoutDisplay(const WindowOptions& options)
{
    try {
        if (!options.setup.empty())
            loadSetup(options.setup);
    } catch (const InputError& error) {
        return refuse(error.what());
    }
    return refuse("no display: neither DISPLAY nor WAYLAND_DISPLAY is set; --headless runs a script without a window");
}

} // namespace

int runWindow(int& argc, char** argv, const WindowOptions& options)
{
    // A picture needs no display.
    if (!options.picture.empty() && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!hasDisplay())
        return refuseWithoutDisplay(options);
    GuardedApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Korvell"));
    QApplication::setApplicationName(QStringLiteral("korvell-host"));
    // The desktop finds the window's icon and name by this.
    QGuiApplication::setDesktopFileName(QStringLiteral("org.korvell.Host"));
    QApplication::setWindowIcon(programIcon());
    try {
        return run(options, application);
    } catch (const std::exception& error) {
        return refuse(error.what());
    }
}

} // namespace ko
