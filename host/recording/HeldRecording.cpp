#include "host/recording/HeldRecording.h"

#include "host/recording/Hdf5.h"
#include "host/setup/SetupFile.h"
#include "host/support/InputError.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

namespace ko {

namespace {

std::string textOf(hid_t object, const char* name)
{
    const Hdf5Attribute attribute(made(H5Aopen(object, name, H5P_DEFAULT)));
    const Hdf5Type type(made(H5Aget_type(attribute.id())));
    if (made(H5Tis_variable_str(type.id())) > 0) {
        char* text = nullptr;
        made(H5Aread(attribute.id(), textType().id(), &text));
        std::string result = text ? text : "";
        H5free_memory(text);
        return result;
    }
    std::string text(H5Tget_size(type.id()), '\0');
    made(H5Aread(attribute.id(), type.id(), text.data()));
    return text.substr(0, text.find('\0'));
}

template <class Number> Number numberOf(hid_t object, const char* name, hid_t type)
{
    const Hdf5Attribute attribute(made(H5Aopen(object, name, H5P_DEFAULT)));
    Number number{};
    made(H5Aread(attribute.id(), type, &number));
    return number;
}

/// Calls `visit` with the name of each member of a group.
template <class Visit> void forEachName(hid_t group, const Visit& visit)
{
    H5G_info_t info{};
    made(H5Gget_info(group, &info));
    for (hsize_t i = 0; i < info.nlinks; ++i) {
        char name[256];
        made(H5Lget_name_by_idx(group, ".", H5_INDEX_NAME, H5_ITER_INC, i, name, sizeof name, H5P_DEFAULT));
        visit(std::string(name));
    }
}

void addChannel(HeldInstrument& instrument, hid_t group, const std::string& name)
{
    const Hdf5Dataset data(made(H5Dopen2(group, name.c_str(), H5P_DEFAULT)));
    const Hdf5Space space(made(H5Dget_space(data.id())));
    const auto samples = static_cast<std::int64_t>(made(H5Sget_simple_extent_npoints(space.id())));
    instrument.samples = instrument.channels == 0 ? samples : std::min(instrument.samples, samples);
    instrument.bytes += 4.0 * static_cast<double>(samples);
    ++instrument.channels;
}

HeldInstrument instrumentIn(hid_t file, const std::string& name, std::size_t index)
{
    const Hdf5Group group(made(H5Gopen2(file, name.c_str(), H5P_DEFAULT)));
    HeldInstrument held;
    held.index = index;
    held.name = textOf(group.id(), "name");
    held.isDynamic = textOf(group.id(), "kind") == "dynamic";
    held.period = numberOf<double>(group.id(), "period", H5T_NATIVE_DOUBLE);
    held.blockSize = numberOf<std::int64_t>(group.id(), "block_size", H5T_NATIVE_INT64);
    held.lost = numberOf<std::int64_t>(group.id(), "lost", H5T_NATIVE_INT64);
    forEachName(group.id(), [&](const std::string& channel) {
        if (channel.starts_with("channel-"))
            addChannel(held, group.id(), channel);
    });
    return held;
}

/// A plan that another program has written may be anything.
void addPromised(HeldRecording& held, const std::string& plan)
{
    const auto json = nlohmann::json::parse(plan, nullptr, false);
    if (!json.is_object() || !json.contains("instruments") || !json["instruments"].is_array())
        return;
    for (const auto& promised : json["instruments"])
        for (HeldInstrument& instrument : held.instruments)
            if (promised.is_object() && promised.value("index", nlohmann::json()) == instrument.index &&
                promised.value("samples", nlohmann::json()).is_number_integer())
                instrument.promised = promised["samples"].get<std::int64_t>();
}

HeldRecording recordingIn(hid_t file)
{
    const std::string prefix = "instrument-";
    HeldRecording held{.state = textOf(file, "state"),
                       .instruments = {},
                       .title = textOf(file, "title"),
                       .start = textOf(file, "start"),
                       .setup = textOf(file, "setup")};
    forEachName(file, [&](const std::string& name) {
        std::size_t index = 0;
        const char* const end = name.data() + name.size();
        if (name.starts_with(prefix) && std::from_chars(name.data() + prefix.size(), end, index).ptr == end)
            held.instruments.push_back(instrumentIn(file, name, index));
    });
    std::sort(held.instruments.begin(), held.instruments.end(),
              [](const auto& a, const auto& b) { return a.index < b.index; });
    addPromised(held, textOf(file, "plan"));
    return held;
}

} // namespace

bool isRecordingFile(const std::string& file)
{
    constexpr std::array signature{'\x89', 'H', 'D', 'F', '\r', '\n', '\x1a', '\n'};
    std::error_code unknown;
    if (!std::filesystem::is_regular_file(file, unknown))
        return false;
    std::array<char, signature.size()> beginning{};
    std::ifstream content(file, std::ios::binary);
    return content.read(beginning.data(), beginning.size()) && beginning == signature;
}

HeldRecording heldIn(const std::string& file)
{
    refuseDevice(file);
    beginHdf5();
    Hdf5File opened(H5Fopen(file.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT));
    if (opened.id() < 0)
        opened = Hdf5File(H5Fopen(file.c_str(), H5F_ACC_RDONLY | H5F_ACC_SWMR_READ, H5P_DEFAULT));
    if (opened.id() < 0)
        throw InputError(file + ": is no recording: " + hdf5Reason());
    try {
        return recordingIn(opened.id());
    } catch (const LibraryFailure& failure) {
        throw InputError(file + ": is no recording: " + failure.reason);
    }
}

} // namespace ko
