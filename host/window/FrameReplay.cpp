#include "host/window/FrameReplay.h"

#include "host/scenario/Commands.h"
#include "host/scenario/LocaleWords.h"
#include "host/scenario/Scenario.h"
#include "host/support/HostTexts.h"
#include "host/support/InputError.h"
#include "host/window/FrameFiles.h"
#include "host/window/FrameParts.h"
#include "host/window/InputLock.h"
#include "host/window/PageHost.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Modal.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/ShownText.h"

#include <QApplication>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QMainWindow>
#include <QStatusBar>
#include <QTimer>
#include <algorithm>
#include <array>
#include <filesystem>
#include <sstream>

namespace ko {

namespace {

namespace replayTexts = textNumber::replay;

/// What a window cannot do, or must not do without its user.
constexpr std::array<std::string_view, 3> notInWindows{"terminate", "document", "print"};

std::vector<ScriptLine> linesIn(const std::string& script)
{
    std::istringstream input(script);
    ScriptReader reader(input);
    std::vector<ScriptLine> lines;
    for (auto line = reader.next(); line; line = reader.next())
        lines.push_back(std::move(*line));
    return lines;
}

/// Returns the regional settings that the command `locale` selects.
Locale localeOf(const ScriptLine& line)
{
    Locale locale;
    for (std::size_t i = 1; i < line.words.size(); ++i)
        if (!takeLocaleWord(locale, line.words[i]))
            throw ScriptFault(line.number, "\"" + line.words[i] + "\" is no setting such as decimalSeparator=,");
    return locale;
}

void checkLine(const ScriptLine& line, const Locale& own)
{
    const std::string& name = line.words.front();
    if (!findCommand(name))
        throw ScriptFault(line.number, "unknown command \"" + name + "\"");
    if (std::find(notInWindows.begin(), notInWindows.end(), name) != notInWindows.end())
        throw ScriptFault(line.number, "\"" + name + "\" is played with --headless only");
    if (name == "locale" && localeOf(line) != own)
        throw ScriptFault(line.number, "the regional settings are not those of this computer; play it with --headless");
}

void checkLines(const std::vector<ScriptLine>& lines, const Locale& own, const std::string& file)
{
    bool hasLocale = false;
    for (const ScriptLine& line : lines) {
        checkLine(line, own);
        hasLocale = hasLocale || line.words.front() == "locale";
    }
    if (!hasLocale && own != Locale{})
        throw InputError(file + ": needs the regional settings of English (United States); play it with --headless");
}

bool opensSetup(const std::vector<ScriptLine>& lines)
{
    return std::any_of(lines.begin(), lines.end(),
                       [](const ScriptLine& line) { return line.words.front() == "setup" && line.words.size() > 1; });
}

/// Lets a scenario answer in place of the user during its life. `parts` outlives it.
class StandIns {
public:
    StandIns(const std::shared_ptr<FrameParts>& parts, Scenario& scenario) : parts_(parts)
    {
        parts->services.messageBox.standIn = &scenario.messageBox;
        parts->services.clipboard.standIn = &scenario.clipboard;
        parts->services.modalForms.standIn = &scenario.dialogs;
    }
    ~StandIns()
    {
        parts_->services.messageBox.standIn = nullptr;
        parts_->services.clipboard.standIn = nullptr;
        parts_->services.modalForms.standIn = nullptr;
    }
    StandIns(const StandIns&) = delete;
    StandIns& operator=(const StandIns&) = delete;

private:
    std::shared_ptr<FrameParts> parts_;
};

} // namespace

FrameReplay::FrameReplay(ReplayFrame frame) : frame_(std::move(frame))
{
    action_.setText(frame_.parts->text(replayTexts::menu));
    onSignal(&action_, &QAction::triggered, this, [this] { chooseAndPlay(); });
}

ReplayResult FrameReplay::play(const std::string& file)
{
    ReplayResult result{.file = file, .differences = {}, .fault = {}};
    const std::string script = readFile(file);
    const UserActions::Action action(frame_.actions);
    try {
        const std::vector<ScriptLine> lines = linesIn(script);
        checkLines(lines, frame_.parts->platform.locale, file);
        if (!frame_.page.okToLeave() || (opensSetup(lines) && !frame_.files.mayLeave()))
            return result;
    } catch (const ScriptFault& fault) {
        throw InputError(file, fault.line(), fault.what());
    }
    std::ostringstream events;
    std::istringstream input(script);
    const std::string folder = std::filesystem::path(file).parent_path().string();
    const QString name = QFileInfo(toQt(file)).fileName();
    InputLock lock;
    try {
        WindowStage stage(frame_, [&](int line, bool isWatched) {
            result.lastLine = line;
            return !lock.isEscaped() && proceed(name, line, isWatched ? pace_ : 0) && !lock.isEscaped();
        });
        Scenario scenario(stage, folder, events);
        const StandIns standIns(frame_.parts, scenario);
        scenario.run(input);
        result.isWhole = !lock.isEscaped() && !stage.isOver();
    } catch (const ScriptFault& fault) {
        result.lastLine = fault.line();
        result.fault = fault.what();
    }
    result.differences = differencesIn(events.str(), script);
    if (!action.isOver())
        frame_.window.statusBar()->clearMessage();
    return result;
}

/// Shows the line, and the window, for this time.
bool FrameReplay::proceed(const QString& name, int line, int milliseconds)
{
    const UserActions::Action action(frame_.actions);
    frame_.window.statusBar()->showMessage(frame_.parts->text(replayTexts::playing).arg(name, QString::number(line)));
    QEventLoop loop;
    QTimer timer;
    onSignal(&timer, &QTimer::timeout, &loop, [&loop] { loop.quit(); });
    timer.start(milliseconds);
    loop.exec();
    return !action.isOver();
}

void FrameReplay::chooseAndPlay()
{
    const UserActions::Action action(frame_.actions);
    const QString file = fileToPlay();
    if (!file.isEmpty() && !action.isOver())
        run(fromQt(file));
}

void FrameReplay::run(const std::string& file)
{
    const UserActions::Action action(frame_.actions);
    try {
        const ReplayResult result = play(file);
        if (!action.isOver() && result.lastLine > 0)
            Modal<ReplayReport>(frame_.parts->texts(), result, &frame_.window).wait();
    } catch (const InputError& error) {
        warn(error.what());
    }
}

QString FrameReplay::fileToPlay()
{
    const Texts text = frame_.parts->texts();
    Modal<QFileDialog> dialog(
        &frame_.window, text(replayTexts::title), QString(),
        QStringLiteral("%1 (*.scenario);;%2 (*)").arg(text(textNumber::capture::files), text(hostText::allFiles)));
    dialog->setFileMode(QFileDialog::ExistingFile);
    return dialog.isAccepted() ? dialog->selectedFiles().value(0) : QString();
}

void FrameReplay::warn(const std::string& reason)
{
    Modal<PlainBox>(QMessageBox::Warning, frame_.parts->text(replayTexts::title),
                    frame_.parts->text(replayTexts::refused), toShown(reason), QMessageBox::Ok, &frame_.window)
        .wait();
}

} // namespace ko
