#include "host/window/WindowStage.h"

#include "host/docks/InstrumentsView.h"
#include "host/scenario/Commands.h"
#include "host/setup/SetupFile.h"
#include "host/window/FrameDocks.h"
#include "host/window/FrameFiles.h"
#include "host/window/FrameHistory.h"
#include "host/window/FrameParts.h"
#include "host/window/PageHost.h"
#include "platform/Scoped.h"

#include <algorithm>

namespace ko {

WindowStage::WindowStage(const ReplayFrame& frame, Proceed proceed)
    : frame_(frame), proceed_(std::move(proceed)), action_(frame.actions), document_(&frame.page.document()),
      setup_(frame.files.session().presence()), refused_(frame.history.history().refused)
{
}

WindowStage::~WindowStage()
{
    if (action_.isOver())
        return;
    frame_.history.history().refused = refused_;
    frame_.parts->services.clock.standAt(frame_.files.session().clock());
    if (!isOver())
        guarded([this] { showWhole(); });
    if (!action_.isOver())
        frame_.showReadOnly();
}

void WindowStage::showWhole()
{
    if (isLoaded_)
        setupShown();
    const DriverList& shown = frame_.page.document().page().drivers;
    if (!std::equal(shown.begin(), shown.end(), drivers().begin(), drivers().end()) ||
        !frame_.page.document().page().isShown)
        frame_.docks.showPageAgain();
}

Document* WindowStage::document()
{
    return &frame_.page.document();
}

const HostInstruments& WindowStage::drivers() const
{
    return frame_.files.session().drivers();
}

std::shared_ptr<DeviceSource> WindowStage::devices() const
{
    return frame_.files.session().devices;
}

const std::string& WindowStage::title() const
{
    return frame_.files.session().title();
}

std::string WindowStage::text(int number) const
{
    return frame_.parts->component->text(number);
}

History& WindowStage::history()
{
    return frame_.history.history();
}

DriverHealth& WindowStage::health()
{
    return frame_.docks.health();
}

void WindowStage::loadSetup(const std::string& file)
{
    const Scoped loaded(frame_.files.showInstruments, frame_.setupLoaded);
    frame_.files.session().load(file);
    setup_ = frame_.files.session().presence();
    if (const auto clock = frame_.files.session().clock())
        clock_ = clock;
    frame_.parts->services.clock.standAt(clock_);
    isLoaded_ = true;
}

/// Without a file the steps of the user before the script stay.
void WindowStage::setupShown()
{
    if (std::exchange(isLoaded_, false))
        frame_.history.begin();
    else
        history().absorb();
}

const Locale& WindowStage::locale() const
{
    return frame_.parts->platform.locale;
}

bool WindowStage::isOver() const
{
    return action_.isOver() || &frame_.page.document() != document_ || setup_.expired();
}

bool WindowStage::lineDone(const ScriptLine& line)
{
    if (isOver())
        return false;
    follow(line);
    const Command* const command = findCommand(line.words.front());
    const bool isWatched = command && (command->giver == Giver::User || command->giver == Giver::Host);
    return proceed_(line.number, isWatched) && !isOver();
}

void WindowStage::follow(const ScriptLine& line)
{
    const std::string& name = line.words.front();
    if (name == "clock")
        frame_.parts->services.clock.standAt(clock_ = readClockTime(line.words.at(1)));
    else if (name == "fail" || name == "heal")
        frame_.history.changedOtherwise();
    frame_.docks.instruments().refresh();
}

} // namespace ko
