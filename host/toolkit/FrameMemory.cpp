#include "host/toolkit/FrameMemory.h"

#include "host/setup/SetupFile.h"
#include "host/support/FileWriter.h"
#include "host/support/InputError.h"
#include "host/support/StandardStreams.h"
#include "widgets/support/Convert.h"

#include <QStandardPaths>
#include <filesystem>
#include <nlohmann/json.hpp>

namespace ko {

namespace {

using Content = FrameMemory::Content;

constexpr const char* recentFiles = "recentFiles";
constexpr const char* geometry = "geometry";
constexpr const char* docks = "docks";

std::string encoded(const QByteArray& bytes)
{
    return bytes.toBase64().toStdString();
}

QByteArray decoded(const nlohmann::json& json, const char* key)
{
    return QByteArray::fromBase64(QByteArray::fromStdString(json.value(key, std::string())));
}

std::string textOf(const Content& content)
{
    nlohmann::ordered_json json{{recentFiles, nlohmann::json::array()}};
    for (const QString& file : content.recentFiles)
        json[recentFiles].push_back(fromQt(file));
    json[geometry] = encoded(content.geometry);
    json[docks] = encoded(content.docks);
    return json.dump(2) + '\n';
}

Content parse(const std::string& text)
{
    const auto json = nlohmann::json::parse(text);
    Content content;
    for (const std::string file : json.at(recentFiles))
        content.recentFiles << toQt(file);
    content.geometry = decoded(json, geometry);
    content.docks = decoded(json, docks);
    return content;
}

/// Returns none for a missing or malformed file, because the window must work anyway. Throws an `InputError` if there
/// is a file and it cannot be read.
std::optional<Content> load(const std::string& file)
{
    std::error_code unknown;
    if (std::filesystem::status(file, unknown).type() == std::filesystem::file_type::not_found)
        return std::nullopt;
    try {
        return parse(readFile(file));
    } catch (const nlohmann::json::exception&) {
        return std::nullopt;
    }
}

/// Returns whether `act` succeeds; complains if not.
bool attempt(const std::function<void()>& act)
{
    try {
        act();
        return true;
    } catch (const InputError& error) {
        complain(error.what());
        return false;
    }
}

void refuseMemory(const std::string& file, const std::string& memory)
{
    refuseSame(file, memory, "where the window keeps its state");
}

} // namespace

FrameMemory::FrameMemory(std::string file) : file_(std::move(file))
{
    refresh();
}

/// Returns whether the file may be written: one that cannot be read is left alone.
bool FrameMemory::refresh()
{
    return !file_.empty() && attempt([this] { content_ = load(file_).value_or(content_); });
}

void FrameMemory::change(const std::function<void(Content&)>& change)
{
    const bool isKept = refresh();
    change(content_);
    if (isKept)
        attempt([this] {
            createFolder(folderOf(file_));
            writeWhole(file_, textOf(content_));
        });
}

std::string FrameMemory::folder() const
{
    const std::string folder = std::filesystem::path(file_).parent_path().string();
    return folder.empty() && !file_.empty() ? "." : folder;
}

void FrameMemory::refuseOwn(const std::string& file) const
{
    refuseMemory(file, file_);
}

void FrameMemory::refuseUsers(const std::string& file)
{
    refuseMemory(file, usersFile());
}

std::string FrameMemory::usersFile()
{
    return fromQt(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)) +
           "/Korvell/korvell-host/window.json";
}

} // namespace ko
