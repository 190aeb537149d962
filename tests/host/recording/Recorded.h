#pragma once

#include "fakes/Folder.h"
#include "host/instruments/Signal.h"
#include "host/recording/RecordingRun.h"
#include "host/setup/SetupFile.h"

#include <array>
#include <cmath>
#include <hdf5.h>
#include <stdexcept>
#include <thread>

namespace ko::test {

/// A recording's file as another program reads it, by the library alone.
class Reading {
public:
    explicit Reading(const std::string& file, unsigned how = H5F_ACC_RDONLY) : file_(opened(file, how)) {}
    ~Reading() { H5Fclose(file_); }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

    [[nodiscard]] bool isOpen() const { return file_ >= 0; }

    [[nodiscard]] std::string text(const std::string& object, const std::string& attribute) const
    {
        const hid_t it = H5Aopen_by_name(file_, object.c_str(), attribute.c_str(), H5P_DEFAULT, H5P_DEFAULT);
        const hid_t type = H5Aget_type(it);
        std::string result(H5Tget_size(type), '\0');
        if (H5Tis_variable_str(type) > 0) {
            char* text = nullptr;
            H5Aread(it, type, &text);
            result = text ? text : "no attribute";
            H5free_memory(text);
        } else if (H5Aread(it, type, result.data()) < 0) {
            result = "no attribute";
        }
        H5Tclose(type);
        H5Aclose(it);
        return result.substr(0, result.find('\0'));
    }

    [[nodiscard]] double number(const std::string& object, const std::string& attribute) const
    {
        const hid_t it = H5Aopen_by_name(file_, object.c_str(), attribute.c_str(), H5P_DEFAULT, H5P_DEFAULT);
        double number = -1e300;
        H5Aread(it, H5T_NATIVE_DOUBLE, &number);
        H5Aclose(it);
        return number;
    }

    [[nodiscard]] bool has(const std::string& object) const
    {
        return H5Lexists(file_, object.c_str(), H5P_DEFAULT) > 0;
    }

    /// Samples in a chunk of a dataset.
    [[nodiscard]] hsize_t chunk(const std::string& dataset) const
    {
        const hid_t data = H5Dopen2(file_, dataset.c_str(), H5P_DEFAULT);
        const hid_t creation = H5Dget_create_plist(data);
        hsize_t size = 0;
        H5Pget_chunk(creation, 1, &size);
        H5Pclose(creation);
        H5Dclose(data);
        return size;
    }

    [[nodiscard]] std::vector<Marker> markers() const
    {
        const auto times = elements<double>("markers/time", H5T_NATIVE_DOUBLE);
        const hid_t type = H5Tcopy(H5T_C_S1);
        H5Tset_size(type, Marker::textSize);
        H5Tset_cset(type, H5T_CSET_UTF8);
        const auto texts = elements<std::array<char, Marker::textSize>>("markers/text", type);
        H5Tclose(type);
        std::vector<Marker> markers;
        for (std::size_t i = 0; i < std::min(times.size(), texts.size()); ++i) {
            const std::string text(texts[i].data(), texts[i].size());
            markers.push_back({times[i], text.substr(0, text.find('\0'))});
        }
        return markers;
    }

    [[nodiscard]] std::vector<float> samples(const std::string& dataset) const
    {
        return elements<float>(dataset, H5T_NATIVE_FLOAT);
    }

private:
    template <class Element> [[nodiscard]] std::vector<Element> elements(const std::string& dataset, hid_t type) const
    {
        const hid_t data = H5Dopen2(file_, dataset.c_str(), H5P_DEFAULT);
        const hid_t space = H5Dget_space(data);
        std::vector<Element> samples(
            static_cast<std::size_t>(std::max<hssize_t>(H5Sget_simple_extent_npoints(space), 0)));
        if (data < 0 || H5Dread(data, type, H5S_ALL, H5S_ALL, H5P_DEFAULT, samples.data()) < 0)
            ADD_FAILURE() << dataset << " cannot be read";
        H5Sclose(space);
        H5Dclose(data);
        return samples;
    }

    static hid_t opened(const std::string& file, unsigned how)
    {
        H5Eset_auto2(H5E_DEFAULT, nullptr, nullptr);
        return H5Fopen(file.c_str(), how, H5P_DEFAULT);
    }

    hid_t file_;
};

/// An instrument with one channel, as a member of "drivers".
inline std::string instrument(const std::string& timebase, const std::string& more = "", const char* channel = "")
{
    return R"({"name": "d", "groups": [{"name": "g", "channels": [{"address": "1:1")" + std::string(channel) +
           "}]}], \"timebase\": {" + timebase + "}" + more + "}";
}

/// The instruments of a set-up, "drivers" without its brackets.
inline Instruments instrumentsOf(const std::string& drivers)
{
    const auto made = makeDrivers(parseSetup("{\"drivers\": [" + drivers + "]}", "test.json"));
    return {made.begin(), made.end()};
}

inline RecordingPlan armed(const Instruments& instruments)
{
    return planRecording(instruments, PlanFor::Recording, [](int number) { return "text " + std::to_string(number); });
}

/// As fast as possible, at half past nine.
inline RecordingOptions into(const std::string& file)
{
    return {.file = file,
            .title = "Bench",
            .setup = "{}",
            .clock = *readClockTime("2026-11-21 09:30:00"),
            .isPaced = false,
            .freeBytes = {}};
}

inline RecordingProgress recorded(const Instruments& instruments, const RecordingOptions& options)
{
    return RecordingRun(instruments, armed(instruments), options).wait();
}

/// A simulated instrument that delivers what a script says.
class Scripted final : public Instrument, private Acquisition {
public:
    using Script = std::function<void(BlockSink&)>;

    Scripted(const std::string& settings, Script script)
        : simulated_(makeDrivers(parseSetup("{\"drivers\": [" + settings + "]}", "test.json")).front()),
          script_(std::move(script))
    {
    }

    Driver& driver() override { return *simulated_; }
    [[nodiscard]] const InstrumentSettings& held() const override { return simulated_->held(); }
    void restore(const InstrumentSettings& settings) override { simulated_->restore(settings); }
    Acquisition* acquisition() override { return this; }

private:
    [[nodiscard]] ArmedSettings settingsToArm() const override { return simulated_->acquisition()->settingsToArm(); }
    [[nodiscard]] bool isRealTime() const override { return false; }
    ArmedSettings arm() override { return simulated_->acquisition()->settingsToArm(); }
    void start(const AcquisitionOrder&, BlockSink& sink) override
    {
        if (!script_)
            throw Failure(failure::unspecified, "is switched off");
        thread_ = std::jthread([this, &sink] { script_(sink); });
    }
    void stop() override
    {
        if (thread_.joinable())
            thread_.join();
    }

    std::shared_ptr<HostInstrument> simulated_;
    Script script_;
    std::jthread thread_;
};

/// An instrument of one channel whose samples are their own numbers.
inline std::string counter(int samples, const std::string& more = "")
{
    return R"({"name": "Counter", "groups": [{"name": "g", "channels": [{"address": "1:1")" + more +
           R"(}]}], "timebase": {"samplePeriod": {"value": 0.001}, "blockSize": {"value": 1}, "duration": )" +
           std::to_string(0.001 * samples) + "}}";
}

/// Each sample is its number, and a million more for each channel before its own.
inline Block numbers(std::int64_t first, std::int64_t count, int channels = 1)
{
    Block block{.first = first, .count = count, .samples = {}};
    for (std::int64_t channel = 0; channel < channels; ++channel)
        for (std::int64_t i = 0; i < count; ++i)
            block.samples.push_back(static_cast<float>(channel * 1000000 + first + i));
    return block;
}

/// The extents by their definition.
inline std::vector<Extent> extentsOf(const std::vector<float>& samples, const SampleSpan& span)
{
    std::vector<Extent> parts(span.count);
    for (std::size_t k = 0; k < samples.size(); ++k) {
        const double place = std::floor((static_cast<double>(k) - span.first) / span.width);
        if (place >= 0 && place < static_cast<double>(span.count))
            parts[static_cast<std::size_t>(place)].add({samples[k], samples[k]});
    }
    return parts;
}

} // namespace ko::test
