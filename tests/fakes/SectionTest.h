#pragma once

#include "fakes/FakeDriver.h"
#include "fakes/FakePlatform.h"
#include "page/Actions.h"
#include "page/Page.h"
#include "support/Support.h"

#include <gtest/gtest.h>

namespace ko::test {

using Texts = std::vector<std::string>;

/// A page without a document, to test one section. The test fails if a message box or a report is left unclaimed at its
/// end.
class SectionTest : public testing::Test, public Actions {
protected:
    FakePlatform host;
    Support support{host.platform, {}};
    Page page;
    std::vector<std::shared_ptr<FakeDriver>> fakes;
    int marks = 0;

    FakeDriver& addDriver()
    {
        fakes.push_back(std::make_shared<FakeDriver>());
        page.drivers.push_back(fakes.back());
        page.numDrivers = static_cast<std::int32_t>(fakes.size());
        return *fakes.back();
    }
    void markChanged() override { ++marks; }
    std::int32_t updateDiskSpace() override { return 0; }
    void refreshEstimate() override {}
    void refreshRestored() override {}
    void tellWhatFits(const LimitRefusal&) override {}
    void setAll(const Quantity&, const std::string&) override {}
    void refreshPlan() override {}
    void enableTriggering(bool) override {}
    void disableTriggering(bool) override {}
    void clearTriggerSource() override {}
    void TearDown() override
    {
        EXPECT_EQ(host.messages, Texts());
        EXPECT_EQ(host.reports, Texts());
    }
};

} // namespace ko::test
