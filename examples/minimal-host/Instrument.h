#pragma once

#include "interfaces/Driver.h"
#include "interfaces/Timebase.h"

/// An instrument that samples at any period and has one input: the minimum that a host's driver must implement.
class Instrument final : public ko::Driver, private ko::Timebase, private ko::DynamicMeasurement {
public:
    std::int32_t GroupCount() override { return 1; }
    std::int32_t ChannelCount(std::int32_t) override { return 1; }
    ko::Value ChannelAttribute(std::int32_t, std::int32_t, std::int32_t attribute) override
    {
        return attribute == ko::attribute::enabled ? ko::Value(1) : ko::Value("0:1:1");
    }
    std::int32_t MeasurementMode() override { return 1; }
    std::int32_t SamplingMode() override { return 1; }
    std::string DriverName(std::int32_t) override { return "Instrument"; }
    std::string GroupName(std::int32_t) override { return "Inputs"; }

    ko::Timebase* queryTimebase() override { return this; }
    ko::TriggerParameters* queryTriggerParameters() override { return nullptr; }
    ko::TriggerLines* queryTriggerLines() override { return nullptr; }
    ko::StaticMeasurement* queryStaticMeasurement() override { return nullptr; }
    ko::DynamicMeasurement* queryDynamicMeasurement() override { return this; }

    double SamplePeriod() override { return samplePeriod_; }

private:
    double DynamicBytes() override { return 4.0 * duration_ / samplePeriod_; }

    void setSamplePeriod(double seconds) override { samplePeriod_ = seconds; }
    void setBlockSize(double samples) override { blockSize_ = samples; }
    double BlockSize() override { return blockSize_; }
    void setScanPeriod(double) override {}
    double ScanPeriod() override { return 1.0; }
    std::vector<double> SampleChoiceList() override { return {}; }
    std::vector<double> BlockSizeChoiceList() override { return {}; }
    ko::Range BlockSizeRange() override { return {1.0, 65536.0}; }
    std::vector<double> ScanChoiceList() override { return {}; }
    ko::Range ChoiceRange() override { return {1e-6, 10.0}; }

    ko::DateTime StartTime() override { return startTime_; }
    void setStartTime(ko::DateTime time) override { startTime_ = time; }
    float Duration() override { return duration_; }
    void setDuration(float seconds) override { duration_ = seconds; }
    std::int32_t StopMode() override { return stopMode_; }
    void setStopMode(std::int32_t mode) override { stopMode_ = mode; }
    std::int32_t StartMode() override { return startMode_; }
    void setStartMode(std::int32_t mode) override { startMode_ = mode; }

    double samplePeriod_ = 0.001;
    double blockSize_ = 1024.0;
    ko::DateTime startTime_;
    float duration_ = 10.0F;
    std::int32_t stopMode_ = ko::stopMode::afterDuration;
    std::int32_t startMode_ = ko::startMode::immediately;
};
