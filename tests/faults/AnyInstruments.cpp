#include "faults/AnyUser.h"

#include <cmath>
#include <limits>

namespace ko::test {

namespace {

double roundedTo2Digits(double value)
{
    if (value == 0.0 || !std::isfinite(value))
        return value;
    const double unit = std::pow(10.0, std::floor(std::log10(std::abs(value))) - 1.0);
    return std::round(value / unit) * unit;
}

std::vector<double> anyList(Draw& draw, const std::vector<double>& pool)
{
    std::vector<double> list;
    if (draw.oneIn(3))
        return list;
    if (draw.oneIn(12))
        for (int i = 1; i <= 500; ++i)
            list.push_back(pool.front() * i);
    for (const double value : pool)
        if (!draw.oneIn(4))
            list.push_back(value);
    return list;
}

Range anyRange(Draw& draw, Range range)
{
    const Range ranges[] = {range, range, range, {0, 0}, {0, range.maximum}, {range.maximum, range.minimum}};
    return draw.of(ranges);
}

LineList anyLines(Draw& draw)
{
    LineList lines;
    while (!draw.oneIn(3))
        lines.push_back(draw.upTo(8));
    return lines;
}

void addTimebase(FakeDriver& driver, Draw& draw)
{
    const std::vector<double> periods{1e-6, 1e-5, 0.0001, 0.001, 0.002, 0.01, 0.5, 1, 10};
    driver.sampleChoices = anyList(draw, periods);
    driver.scanChoices = anyList(draw, periods);
    driver.blockChoices = anyList(draw, {64, 256, 1024, 4096});
    driver.sampleRange = anyRange(draw, {1e-7, 100});
    driver.scanRange = anyRange(draw, {1e-3, 1000});
    driver.blockRange = anyRange(draw, {16, 65536});
    driver.samplePeriod = draw.of({0.001, 0.002, 0.00125, 0.5});
    driver.blockSize = draw.of({1024.0, 64.0, 100.0});
    driver.scanPeriod = draw.of({0.1, 0.5, 0.01, 1.0 / 3.0});
    driver.startMode = draw.of({0, 0, 1, 2});
    driver.stopMode = draw.of({0, 1});
    driver.startTime = {draw.of({0.5, 0.0, 46350.25, 46347.0})};
    driver.duration = draw.of({10.0F, 0.0F, 1.5F, 60.0F, 86400.0F, 1e6F});
    driver.refuses = draw.oneIn(10);
    if (draw.oneIn(4))
        driver.keeps = roundedTo2Digits;
    if (draw.oneIn(6))
        driver.keepsDuration = [](float seconds) { return std::round(seconds); };
    driver.bytes = [each = draw.of({8.0, 400.0, 20000.0})](const FakeDriver& d) {
        return 416.0 + each * d.duration / d.samplePeriod;
    };
    driver.scans = [each = draw.of({1.0, 100.0, 10000.0})](const FakeDriver& d) {
        return static_cast<std::int32_t>(std::clamp(each * d.duration / d.scanPeriod, 0.0, 2e9));
    };
}

void addChannels(FakeDriver& driver, Draw& draw)
{
    for (int group = draw.upTo(3); group > 0; --group) {
        driver.groups.push_back({});
        for (int channel = draw.upTo(4); channel > 0; --channel)
            driver.groups.back().channels.push_back(
                {draw.of({"0:1:0", "1:2", "x"}), draw.of({"", "Crank"}), draw.upTo(4), draw.oneIn(5), !draw.oneIn(5)});
    }
}

void addParameters(FakeDriver& driver, Draw& draw)
{
    const FakeDriver::Parameter parameters[] = {
        {2, "Level", "Float", 0.5, -10, 10},
        {4, "Slope", "Enum", std::string("Rising"), 0, 0, {"Rising", "Falling"}},
        {5, "Hold", "Bool", false},
        {6, "Count", "Integer", 3, 0, 10},
        {7, "Note", "String", std::string("none")},
        {8, "Kind", "StringReadOnly", std::string("fixed")},
        {1, "Inner", "Float", 1.0},
        {9, "Colour", "Colour", 7},
    };
    for (const FakeDriver::Parameter& parameter : parameters)
        if (draw.oneIn(2))
            driver.parameters.push_back(parameter);
    if (draw.oneIn(2))
        driver.afterParameter = [](FakeDriver& d) {
            for (FakeDriver::Parameter& parameter : d.parameters)
                if (parameter.type == "Float")
                    parameter.value = std::get<double>(parameter.value) / 2;
        };
}

} // namespace

void addAnyInstruments(Bench& bench, Draw& draw, bool mayFail)
{
    constexpr const char* operations[] = {
        "SamplePeriod",   "setSamplePeriod", "ScanPeriod",  "setScanPeriod",     "BlockSize",       "queryTimebase",
        "Duration",       "setDuration",     "StartMode",   "MeasurementMode",   "DynamicBytes",    "NumberOfScans",
        "TriggerEnabled", "GroupCount",      "ChoiceRange", "GetTriggerParamId", "SampleChoiceList"};
    bench.fakes.clear();
    for (int count = draw.of({2, 1, 3, 2, 1, 0, 4}); count > 0; --count) {
        FakeDriver& driver = bench.addDriver(draw.of({1, 1, 2}));
        driver.measurementMode = draw.of({1, 1, 1, 2});
        driver.hasTimebase = !draw.oneIn(8);
        driver.hasParameters = !draw.oneIn(6);
        driver.hasLines = !draw.oneIn(4);
        addTimebase(driver, draw);
        addChannels(driver, draw);
        addParameters(driver, draw);
        driver.startRank = draw.of({5, -1, 0, 10});
        driver.scanRank = draw.of({5, -1, 0, 10});
        for (LineList* lines :
             {&driver.startMasterLines, &driver.startListenerLines, &driver.scanMasterLines, &driver.scanListenerLines})
            *lines = anyLines(draw);
        if (mayFail && draw.oneIn(3))
            driver.failing.insert(draw.of(operations));
    }
}

} // namespace ko::test
