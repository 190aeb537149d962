#pragma once

#include "document/TimebaseEditor.h"
#include "fakes/FakeDriver.h"
#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

#include <memory>

namespace ko::test {

using Texts = std::vector<std::string>;

/// A new component with one document. The test fails if a message box or a report is left unclaimed at its end.
class DocumentTest : public testing::Test {
protected:
    FakePlatform host;
    Shared shared{host.platform, {}};
    std::unique_ptr<Document> document = makeDocument(shared, host);
    std::vector<std::shared_ptr<FakeDriver>> fakes;

    Page& page() { return document->page(); }

    /// Appends a driver to the list that `handOver` hands over. `samplingMode` 2: a static driver.
    FakeDriver& addDriver(std::int32_t samplingMode = 1)
    {
        fakes.push_back(std::make_shared<FakeDriver>());
        fakes.back()->samplingMode = samplingMode;
        return *fakes.back();
    }
    /// One that takes any number of its ranges.
    FakeDriver& addRanges(std::int32_t samplingMode = 1)
    {
        FakeDriver& driver = addDriver(samplingMode);
        driver.sampleRange = {1e-6, 1};
        driver.blockRange = {16, 4096};
        driver.scanRange = {0.01, 100};
        return driver;
    }
    void handOver()
    {
        document->drivers().setNumberOfDrivers(static_cast<std::int32_t>(fakes.size()));
        document->drivers().setDrivers(DriverList(fakes.begin(), fakes.end()));
        document->drivers().DriversHaveChanged();
    }
    void open()
    {
        handOver();
        document->UserDocument_Show();
    }
    /// Focuses the box and replaces its text by typing, one change per character.
    void type(TextBox& box, const std::string& text)
    {
        ASSERT_TRUE(page().moveFocus(&box)) << box.name();
        for (const char c : text)
            box.userTyped(std::string(1, c));
    }
    /// The user replaces the text of the box at once.
    void replace(TextBox& box, const std::string& text)
    {
        ASSERT_TRUE(page().moveFocus(&box)) << box.name();
        box.userReplaced(text, 0, 0);
    }
    void TearDown() override
    {
        EXPECT_EQ(host.messages, Texts());
        EXPECT_EQ(host.reports, Texts());
    }
};

} // namespace ko::test
