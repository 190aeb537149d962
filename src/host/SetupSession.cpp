#include "host/SetupSession.h"

#include "host/InputError.h"
#include "host/SetupSaving.h"

#include <filesystem>

namespace ko {

namespace {

/// A pipe or a device may keep its reader waiting, or never end.
void refuseEndless(const std::string& file)
{
    using std::filesystem::file_type;
    std::error_code unknown;
    switch (std::filesystem::status(file, unknown).type()) {
    case file_type::block:
    case file_type::character:
    case file_type::fifo:
    case file_type::socket: throw InputError(file + ": is no file");
    default: break;
    }
}

} // namespace

void SetupSession::load(const std::string& file)
{
    Setup setup = loadSetup(file);
    drivers_ = makeDrivers(setup);
    setup_ = std::move(setup);
    file_ = file;
    setChanged(false);
}

bool SetupSession::open(const std::string& file, SessionQuestions& questions)
{
    if (!mayLeave(questions))
        return false;
    try {
        refuseEndless(file);
        load(file);
        return true;
    } catch (const InputError& error) {
        questions.tellNotOpened(error.what());
    } catch (const std::exception& error) {
        questions.tellNotOpened(file + ": " + error.what());
    }
    return false;
}

bool SetupSession::save(SessionQuestions& questions)
{
    if (!isOpen())
        return saveAs(questions);
    return pageAllows() && write(file_, questions);
}

bool SetupSession::saveAs(SessionQuestions& questions)
{
    if (!pageAllows())
        return false;
    const std::string file = questions.fileToSave();
    return !file.empty() && write(file, questions);
}

bool SetupSession::mayLeave(SessionQuestions& questions)
{
    if (!pageAllows())
        return false;
    if (!changed_)
        return true;
    switch (questions.keepChanges()) {
    case Unsaved::Save: return save(questions);
    case Unsaved::Discard: return true;
    case Unsaved::Cancel: break;
    }
    return false;
}

std::string SetupSession::name() const
{
    return std::filesystem::path(file_).filename().string();
}

void SetupSession::setChanged(bool changed)
{
    changed_ = changed;
    if (titleChanged)
        titleChanged();
}

bool SetupSession::write(const std::string& file, SessionQuestions& questions)
{
    try {
        saveSetup(file, withPresentValues(setup_, drivers_));
    } catch (const InputError& error) {
        questions.tellNotSaved(error.what());
        return false;
    }
    file_ = file;
    setChanged(false);
    return true;
}

} // namespace ko
