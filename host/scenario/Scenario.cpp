#include "host/scenario/Scenario.h"

#include "host/scenario/Commands.h"
#include "host/scenario/HeadlessStage.h"
#include "host/support/InputError.h"
#include "platform/Scoped.h"
#include "support/TextNumbers.h"

#include <algorithm>
#include <filesystem>

namespace ko {

Scenario::Scenario(const ScenarioOptions& options, std::ostream& output)
    : log(output), dialogs(log, [this](const ScriptLine& line) { return playLine(line); }),
      mayRecord(options.mayRecord), refuseOwn(options.refuseOwn), folder_(options.folder),
      own_(std::make_unique<HeadlessStage>(*this, options)), stage_(own_.get())
{
    join();
}

Scenario::Scenario(ScenarioStage& stage, std::string folder, std::ostream& output)
    : log(output), dialogs(log, [this](const ScriptLine& line) { return playLine(line); }), skipsRecordings(true),
      folder_(std::move(folder)), stage_(&stage)
{
    join();
}

void Scenario::join()
{
    history().refused = [this](const std::string& instrument, const std::string& reason) {
        tellNotRestored(instrument, reason);
    };
}

Scenario::~Scenario()
{
    log.mute();
}

std::string Scenario::path(const std::string& file) const
{
    return (std::filesystem::path(folder_) / file).string();
}

DriverList Scenario::driverList(std::size_t count) const
{
    const auto end = drivers().begin() + static_cast<std::ptrdiff_t>(std::min(count, drivers().size()));
    return {drivers().begin(), end};
}

HostInstrument& Scenario::driver(const std::string& word) const
{
    const auto index = integerIn(word);
    if (index && *index >= 0 && static_cast<std::size_t>(*index) < drivers().size())
        return *drivers()[static_cast<std::size_t>(*index)];
    const auto named =
        std::find_if(drivers().begin(), drivers().end(), [&](const auto& d) { return d->name() == word; });
    if (named == drivers().end())
        refuse("there is no driver \"" + word + "\"");
    return **named;
}

Document& Scenario::document() const
{
    Document* const present = stage_->document();
    if (!present)
        refuse("there is no document");
    return *present;
}

void Scenario::tellNotRestored(const std::string& instrument, const std::string& reason)
{
    std::string message = text(textNumber::history::notRestored);
    message.replace(message.find("%1"), 2, instrument);
    messageBox.show(message + "\n" + reason, title(), messageStyle::exclamation);
}

Form& Scenario::form() const
{
    if (Form* const shown = dialogs.form())
        return *shown;
    return document().page();
}

bool Scenario::isFormShown() const
{
    return dialogs.form() ? dialogs.isOpen() : document().page().isShown;
}

Control& Scenario::control(const std::string& name) const
{
    Control* const found = form().find(name);
    if (!found)
        refuse("there is no control \"" + name + "\"");
    return *found;
}

void Scenario::rebuild(const std::function<void()>& call)
{
    history().finish();
    // A hidden page makes too few calls to show that a driver works again.
    if (document().page().isShown)
        health().rebuild(call);
    else
        call();
    if (!stage_->isOver())
        history().absorb();
}

void Scenario::refuse(const std::string& what) const
{
    throw ScriptFault(log.line(), what);
}

bool Scenario::run(std::istream& script)
{
    ScriptReader reader(script);
    reader_ = &reader;
    for (auto line = reader.next(); line && !isEnded_ && log.isWritten(); line = reader.next()) {
        log.setLine(line->number);
        execute(*line);
        if (faultInBlock_)
            throw ScriptFault(*faultInBlock_);
    }
    return !expectationFailed;
}

void Scenario::execute(const ScriptLine& line)
{
    const Place place = isDuring_ ? Place::During : dialogs.form() ? Place::Dialog : Place::Script;
    const Command& command = understood(line, place);
    try {
        command.run(*this, Arguments(*this, line));
        if (place != Place::During && !stage_->isOver())
            history().settle();
    } catch (const ScriptFault&) {
        throw;
    } catch (const InputError& error) {
        throw ScriptFault(line.number, error.what());
    } catch (const Failure& failure) {
        // Some handlers of the page pass their failures to the caller.
        LoggedErrors(log).ReportError(failure.number(), "korvell-host", failure.what(), 0, "", true);
    } catch (const std::exception& error) {
        LoggedErrors(log).ReportError(failure::unspecified, "korvell-host", error.what(), 0, "", true);
    }
    isEnded_ = isEnded_ || !stage_->lineDone(line);
}

const Command& Scenario::understood(const ScriptLine& line, Place place) const
{
    const std::string& name = line.words.front();
    const auto faulty = [&](const std::string& what) { throw ScriptFault(line.number, what); };
    const Command* const command = findCommand(name);
    if (!command)
        faulty("unknown command \"" + name + "\"");
    if (command->run == notAvailable)
        faulty("the command \"" + name + "\" is not available yet");
    if (place == Place::Dialog && command->giver == Giver::Host)
        faulty("the command \"" + name + "\" has no place in a dialog block");
    const bool opensBlock = name == "dialog" || name == "during";
    if (place == Place::During && (command->giver == Giver::User || opensBlock))
        faulty("the command \"" + name + "\" has no place inside a call");
    const std::size_t count = line.words.size() - 1;
    if (count < command->least)
        faulty("too few words behind \"" + name + "\"");
    if (count > command->most)
        faulty("too many words behind \"" + name + "\"");
    return *command;
}

std::vector<ScriptLine> Scenario::readBlock(Place place)
{
    std::vector<ScriptLine> block = reader_->block(log.line());
    std::for_each(block.begin(), block.end() - 1, [&](const ScriptLine& line) { understood(line, place); });
    return block;
}

void Scenario::playDuring(const std::vector<ScriptLine>& block)
{
    const int line = log.line();
    const Scoped during(isDuring_, true);
    for (const ScriptLine& it : block) {
        log.setLine(it.number);
        if (it.words.front() == "end" || !playLine(it))
            break;
    }
    log.setLine(line);
}

bool Scenario::playLine(const ScriptLine& line)
{
    try {
        execute(line);
        return !faultInBlock_ && !isEnded_;
    } catch (const ScriptFault& fault) {
        // Thrown from here, the handler that shows the form would catch the fault and report it as its own failure.
        faultInBlock_ = fault;
        log.mute();
        return false;
    }
}

} // namespace ko
