#include "host/setup/SetupSession.h"

#include "host/setup/SetupSaving.h"
#include "host/setup/SetupTemplates.h"
#include "host/support/FileWriter.h"
#include "host/support/InputError.h"

#include <filesystem>

namespace ko {

namespace {

/// A pipe may block the window and cannot be saved to.
void refusePipe(const std::string& file)
{
    std::error_code unknown;
    if (std::filesystem::is_fifo(file, unknown))
        throw InputError(file + ": is no file");
}

} // namespace

void SetupSession::load(const std::string& file)
{
    refusePipe(file);
    if (std::optional<std::string> inside = setupInside ? setupInside(file) : std::nullopt)
        replace(std::move(*inside), file, std::filesystem::path(file).filename().string());
    else
        replace(readFile(file), file, {});
}

void SetupSession::begin(const std::string& templateName)
{
    const SetupTemplate source = templateNamed(templateName);
    replace(source.content, source.file, source.name);
}

void SetupSession::replace(std::string content, const std::string& source, const std::string& templateName)
{
    Setup setup = parseSetup(content, source);
    source_ = source;
    const std::string file = templateName.empty() ? source : std::string();
    take({file, templateName, std::move(content), std::move(setup)}, false);
}

void SetupSession::take(const UnsavedSetup& set, bool isChanged)
{
    exchange(drivers_, {});
    drivers_ = makeDrivers(set.setup, devices);
    setup_ = std::make_shared<Setup>(set.setup);
    content_ = set.saved;
    template_ = set.templateName;
    file_ = wholePath(set.file);
    setChanged(isChanged);
    if (loaded)
        loaded();
}

void SetupSession::restore(const UnsavedSetup& unsaved)
{
    source_ = unsaved.file.empty() ? unsaved.templateName : unsaved.file;
    take(unsaved, true);
}

UnsavedSetup SetupSession::unsaved() const
{
    return {file_, template_, content_, presentSetup()};
}

bool SetupSession::pageAllows() const
{
    return !mayLeavePage || asked(mayLeavePage, false);
}

bool SetupSession::open(const std::string& file, SessionQuestions& questions)
{
    return mayLeave(questions) && tryLoad(file, questions);
}

bool SetupSession::beginNew(const std::string& templateName, SessionQuestions& questions)
{
    return mayLeave(questions) && attempt([&] { begin(templateName); }, templateName, questions);
}

bool SetupSession::close(SessionQuestions& questions)
{
    if (!mayLeave(questions))
        return false;
    source_.clear();
    take({}, false);
    return true;
}

bool SetupSession::tryLoad(const std::string& file, SessionQuestions& questions)
{
    return attempt([&] { load(file); }, file, questions);
}

bool SetupSession::attempt(const std::function<void()>& load, const std::string& what, SessionQuestions& questions)
{
    try {
        load();
        return true;
    } catch (const InputError& error) {
        questions.tellNotOpened(error.what());
    } catch (const std::exception& error) {
        questions.tellNotOpened(what + ": " + error.what());
    }
    return false;
}

bool SetupSession::save(SessionQuestions& questions)
{
    if (!isOpen())
        return saveAs(questions);
    if (!pageAllows())
        return false;
    if (!hasChangedSince(file_, content_))
        return write(file_, questions);
    switch (asked([&] { return questions.settleConflict(); }, Conflict::Cancel)) {
    case Conflict::Overwrite: return write(file_, questions);
    case Conflict::SaveElsewhere: return saveElsewhere(questions);
    case Conflict::Reload: reload(questions); break;
    case Conflict::Cancel: break;
    }
    return false;
}

bool SetupSession::saveAs(SessionQuestions& questions)
{
    return pageAllows() && saveElsewhere(questions);
}

bool SetupSession::saveElsewhere(SessionQuestions& questions)
{
    const std::string file = asked([&] { return questions.fileToSave(); }, std::string());
    return !file.empty() && write(file, questions);
}

bool SetupSession::mayLeave(SessionQuestions& questions)
{
    if ((mayReplace && !asked(mayReplace, false)) || !pageAllows())
        return false;
    if (!changed_)
        return true;
    switch (asked([&] { return questions.keepChanges(); }, Unsaved::Cancel)) {
    case Unsaved::Save: return save(questions);
    case Unsaved::Discard: return true;
    case Unsaved::Cancel: break;
    }
    return false;
}

void SetupSession::offerReload(SessionQuestions& questions)
{
    if (!isOpen() || changed_ || !hasChangedSince(file_, content_) || !hasChangedSince(file_, declined_))
        return;
    try {
        // An incomplete file is still being written.
        std::string content = readFile(file_);
        parseSetup(content, file_);
        declined_ = std::move(content);
    } catch (const InputError&) {
        return;
    }
    if (asked([&] { return questions.reload(); }, false))
        open(file_, questions);
}

void SetupSession::reload(SessionQuestions& questions)
{
    if (!mayReplace || asked(mayReplace, false))
        tryLoad(file_, questions);
}

bool SetupSession::hasChangedOnDisk() const
{
    return hasChangedSince(file_, content_);
}

void SetupSession::refuseOwn(const std::string& file) const
{
    refuseSame(file, file_, "the set-up that is open");
}

std::string SetupSession::opened() const
{
    return isOpen() || !isRecordingFile(source_) ? file_ : source_;
}

std::string SetupSession::name() const
{
    return isOpen() ? std::filesystem::path(file_).filename().string() : template_;
}

Setup SetupSession::presentSetup() const
{
    return withPresentValues(*setup_, drivers_);
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
        if (checkFree)
            checkFree(file);
        writeText(file, textToSave(file, presentSetup(), content_));
    } catch (const InputError& error) {
        questions.tellNotSaved(error.what());
        return false;
    }
    source_ = file;
    file_ = wholePath(file);
    declined_.clear();
    setChanged(false);
    if (saved)
        saved();
    return true;
}

/// A file of the session that has been replaced although writing failed holds no other program's changes.
void SetupSession::writeText(const std::string& file, std::string text)
{
    try {
        writeWhole(file, text);
    } catch (const InputError&) {
        if (file == file_ && !hasChangedSince(file, text))
            content_ = std::move(text);
        throw;
    }
    content_ = std::move(text);
}

} // namespace ko
