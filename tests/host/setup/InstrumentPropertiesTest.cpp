#include "host/setup/InstrumentProperties.h"
#include "host/setup/SetupFile.h"

#include <gtest/gtest.h>

namespace ko {
namespace {

const char* const described = R"({"drivers": [{"name": "Digitizer",
  "groups": [{"name": "Inputs", "channels": [{"address": "0:3:1", "triggerParameters": [
    {"id": 2, "name": "Level", "type": "Float", "min": -10, "value": 0.30000000000000004, "role": "level"},
    {"id": 4, "name": "Slope", "type": "Enum", "choices": ["a;b", "\"c\" d", "plain"], "value": "plain"},
    {"id": 6, "name": "Odd", "type": "Colour", "value": null}]},
    {"address": "0:3:2", "unit": "bar"}]}],
  "timebase": {"samplePeriod": {"value": 0.0003, "choices": [0.0003, 0.1, 0.30000000000000004], "range": [0.0003, 7]},
               "blockSize": {"value": 1024, "keeps": "any"}}}]})";

const std::string channel = channelPath(0, 0), choices = "timebase.samplePeriod.choices";

class InstrumentPropertiesTest : public testing::Test {
protected:
    const InstrumentSettings original = parseSetup(described, "").instruments.front();
    Locale locale;
    InstrumentProperties properties{original, locale};

    /// Returns the path and the text of the refusal, as a set-up file's message has them.
    [[nodiscard]] std::string refusal() const
    {
        try {
            static_cast<void>(properties.settings());
        } catch (const PropertyRefusal& refusal) {
            return refusal.path() + ": " + refusal.what();
        }
        return "taken";
    }
};

TEST_F(InstrumentPropertiesTest, WhatIsNotEditedStaysExactlyInEveryForm)
{
    EXPECT_EQ(properties.settings(), original);
    const std::string slope = parameterPath(channel, 1);
    const std::pair<std::string, TextForm> cases[]{{choices, TextForm::Numbers},
                                                   {choices, TextForm::Rates},
                                                   {"timebase.samplePeriod.range", TextForm::Rates},
                                                   {"timebase.samplePeriod.value", TextForm::Rate},
                                                   {"timebase.blockSize.keeps", TextForm::Name},
                                                   {slope + ".choices", TextForm::Words},
                                                   {parameterPath(channel, 0) + ".value", TextForm::Number},
                                                   {channel + ".signal.frequency", TextForm::Number}};
    for (const auto& [path, form] : cases) {
        const std::string shown = properties.text(path, form);
        EXPECT_FALSE(shown.empty()) << path;
        properties.setText(path, form, " " + shown);
        properties.setText(path, form, shown);
    }
    properties.setHas("timebase", false);
    EXPECT_FALSE(properties.settings().timebase);
    properties.setHas("timebase", true);
    InstrumentSettings expected = original;
    expected.groups[0].channels[0].signal = SignalSettings(); // it has been typed
    EXPECT_EQ(properties.settings(), expected);
}

TEST_F(InstrumentPropertiesTest, AListKeepsTheNumbersThatItHasAlready)
{
    EXPECT_EQ(properties.text(choices, TextForm::Rates), "3.33333333333333; 10; 3333.33333333333");
    properties.setText(choices, TextForm::Rates, "10;\t3.33333333333333 ;\n50\t3333.33333333333\r\n");
    EXPECT_EQ(properties.settings().timebase->samplePeriod.choices,
              (std::vector<double>{0.0003, 0.02, 0.30000000000000004, 0.1}));
    InstrumentSettings close = original;
    close.timebase->samplePeriod.choices = {0.3, 0.30000000000000004};
    InstrumentProperties alike(close, locale);
    alike.setText(choices, TextForm::Rates, "3.33333333333333; 3.33333333333333; 5");
    EXPECT_EQ(alike.settings().timebase->samplePeriod.choices, (std::vector<double>{0.2, 0.3, 0.30000000000000004}));
    properties.setText(choices, TextForm::Numbers, "");
    properties.setText("timebase.samplePeriod.range", TextForm::Rates, "5; 10");
    EXPECT_TRUE(properties.settings().timebase->samplePeriod.choices.empty());
    EXPECT_EQ(properties.settings().timebase->samplePeriod.range, (Range{0.1, 0.2}));
}

TEST_F(InstrumentPropertiesTest, NumbersAreReadInTheLocaleAndNeverGuessed)
{
    locale.decimalSeparator = ",";
    InstrumentProperties german(original, locale);
    EXPECT_EQ(german.text(choices, TextForm::Numbers), "0,0003; 0,1; 0,3");
    german.setText(choices, TextForm::Numbers, "1e-3; 0,25");
    EXPECT_EQ(german.settings().timebase->samplePeriod.choices, (std::vector<double>{0.001, 0.25}));
    for (const char* const text : {"1.5", "100, 200", "1 024", "1;;2", "1e999"}) {
        german.setText(choices, TextForm::Numbers, text);
        EXPECT_THROW(static_cast<void>(german.settings()), PropertyRefusal) << text;
        EXPECT_EQ(german.text(choices, TextForm::Numbers).substr(0, 1), "1") << text;
    }
}

TEST_F(InstrumentPropertiesTest, WhatASetupFileCouldNotHaveIsRefusedWithItsMessageAndPath)
{
    const struct {
        std::string path;
        TextForm form;
        std::string text, message;
    } cases[]{{choices, TextForm::Rates, "10; x; 30", choices + "[1]: must be a number"},
              {"timebase.samplePeriod.value", TextForm::Rate, "0", "timebase.samplePeriod.value: must be a number"},
              {"timebase.samplePeriod.range", TextForm::Numbers, "1",
               "timebase.samplePeriod.range: must be a minimum and a maximum"},
              {"numberOfScans", TextForm::OptionalNumber, "1.5", "numberOfScans: must be a whole number of 32 bits"},
              {channel + ".signal.noise", TextForm::Number, "-1", channel + ".signal.noise: must not be negative"}};
    for (const auto& at : cases) {
        const std::string before = properties.text(at.path, at.form);
        properties.setText(at.path, at.form, at.text);
        EXPECT_EQ(refusal(), at.message);
        EXPECT_EQ(properties.text(at.path, at.form), at.text) << "nothing typed is lost";
        properties.setText(at.path, at.form, before);
    }
}

TEST_F(InstrumentPropertiesTest, TriggerParametersAreAddedEditedAndRemoved)
{
    properties.addParameter(channel, "Hold-off");
    const std::string added = parameterPath(channel, 3), odd = parameterPath(channel, 2);
    EXPECT_EQ(properties.text(added + ".id", TextForm::Number), "5") << "one that the page shows";
    properties.setParameter(added, "type", "Enum");
    EXPECT_EQ(refusal(), "taken");
    properties.setParameter(added, "choices", "a; \"b;c\"");
    properties.setParameter(added, "min", "1");
    EXPECT_EQ(refusal(), added + ".min: belongs to \"Float\" and \"Integer\" only");
    properties.setParameter(added, "min", "");
    properties.setParameter(odd, "value", "7");
    properties.setParameter(odd, "type", "Bool");
    EXPECT_EQ(refusal(), odd + ".value: must be true or false");
    properties.setParameter(odd, "value", "true");
    properties.removeParameter(channel, 1);
    ASSERT_EQ(properties.parameterCount(channel), 3U);
    EXPECT_EQ(properties.text(parameterPath(channel, 1) + ".choices", TextForm::Words), "") << "not the removed one's";
    const auto parameters = properties.settings().groups[0].channels[0].triggerParameters;
    EXPECT_EQ(parameters[0], original.groups[0].channels[0].triggerParameters[0]);
    EXPECT_EQ(parameters[1].value, Value{true});
    EXPECT_EQ(parameters[2].choices, (std::vector<std::string>{"a", "b;c"}));
    EXPECT_EQ(parameters[2].value, Value{std::string("0")});
}

} // namespace
} // namespace ko
