#include "host/scenario/ScenarioCapture.h"

#include "host/scenario/LocaleWords.h"
#include "host/setup/SetupFile.h"
#include "host/setup/SetupSaving.h"
#include "host/support/FileWriter.h"
#include "host/support/InputError.h"

#include <filesystem>

namespace ko {

namespace {

/// Returns `file` relative to the folder of `scenario`, an absolute path.
std::string seenFrom(const std::string& scenario, const std::string& file)
{
    namespace fs = std::filesystem;
    const fs::path whole = fs::path(wholePath(file)).lexically_normal();
    const fs::path relative = whole.lexically_relative(fs::path(scenario).lexically_normal().parent_path());
    return (relative.empty() ? whole : relative).string();
}

} // namespace

ScenarioCapture::ScenarioCapture(const std::string& file, const Captured& captured)
    : file_(wholePath(file)), captured_(captured), output_(file)
{
    begin();
    output_.commit();
    captured_.page.userActs = [this](const auto& words) { acts(captured_.page, words); };
    for (Form* dialog : captured_.dialogs)
        dialog->userActs = [this, dialog](const auto& words) { acts(*dialog, words); };
}

ScenarioCapture::~ScenarioCapture()
{
    captured_.page.userActs = nullptr;
    for (Form* dialog : captured_.dialogs)
        dialog->userActs = nullptr;
}

void ScenarioCapture::begin()
{
    writer_.comment("A captured session; korvell-host --headless SETUP SCENARIO replays it");
    ScenarioWriter::Words given = localeWords(captured_.locale);
    if (!given.empty()) {
        given.insert(given.begin(), "locale");
        writer_.line(given);
    }
    const std::vector<ScenarioWriter::Words> emptyPage{
        {"site", "help", "status"}, {"announce", "0"}, {"hand-over", "0"}, {"drivers-changed"}, {"show"}};
    for (const ScenarioWriter::Words& words : emptyPage)
        line(words);
}

void ScenarioCapture::host(const ScenarioWriter::Words& words)
{
    attempt([&] { line(words); });
}

void ScenarioCapture::setup(const std::string& file)
{
    host({"hide"});
    host(file.empty() ? ScenarioWriter::Words{"setup"} : ScenarioWriter::Words{"setup", seenFrom(file_, file)});
    host({"show"});
}

void ScenarioCapture::instruments(const Setup& setup)
{
    std::string file;
    do
        file = file_ + "." + std::to_string(++edits_) + ".setup.json";
    while (std::filesystem::exists(file));
    saveSetup(file, setup);
    host({"instruments", seenFrom(file_, file)});
}

void ScenarioCapture::dialogOpened(const Form& form)
{
    attempt([&] { writer_.dialogOpened(form.name()); });
}

void ScenarioCapture::dialogClosed()
{
    writer_.dialogClosed();
}

/// Input to a form that is not in front comes from the toolkit, while a dialog opens or closes, not from the user.
void ScenarioCapture::acts(const Form& form, const ScenarioWriter::Words& words)
{
    const std::string front = writer_.dialog();
    if (front.empty() ? &form == &captured_.page : form.name() == front)
        host(words);
}

void ScenarioCapture::line(const ScenarioWriter::Words& words)
{
    const DateTime time = captured_.tick();
    if (!time_ || time_->days != time.days)
        writer_.line({"clock", clockText(time)});
    time_ = time;
    writer_.line(words);
}

void ScenarioCapture::attempt(const std::function<void()>& write)
{
    if (hasFailed_)
        return;
    try {
        write();
    } catch (const InputError&) {
        hasFailed_ = true;
        raise(failed);
    }
}

} // namespace ko
