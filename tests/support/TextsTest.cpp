#include "fakes/FakePlatform.h"
#include "fakes/Thrown.h"
#include "platform/CaptionControls.h"
#include "platform/ComboBox.h"
#include "platform/Grid.h"
#include "platform/TextBox.h"
#include "support/LocaleSettings.h"
#include "support/Phrases.h"
#include "support/ResourceUtils.h"

#include <gtest/gtest.h>

namespace ko::test {
namespace {

TEST(StringTableTest, KeepsBlanksAndQuotesAndLacksWhatIsNotThere)
{
    const StringTable english;
    EXPECT_EQ(english.text(1146), " to ");
    EXPECT_EQ(english.text(1129),
              "Start recording at the specified time/date (press the \"...\" button to set the time/date)");
    EXPECT_EQ(english.text(1351), english.text(1101));
    for (const int missing : {1117, 1099, 1173, 0, -1})
        EXPECT_EQ(failureOf([&] { (void)english.text(missing); }), failure::resourceNotFound) << missing;
}

TEST(PhrasesTest, APatternTakesWhatItHasAPlaceFor)
{
    EXPECT_EQ(filled("%2 of %1, %1 %3", {"a%2", "b"}), "b of a%2, a%2 %3");
    EXPECT_EQ(filled("no place % %", {"a"}), "no place % %");
}

TEST(StringTableTest, AnotherLanguageLiesOverTheEnglishTexts)
{
    for (const char* start : {"# Deutsch\n\n", "", "\xEF\xBB\xBF", "\xEF\xBB\xBF# Deutsch\r\n"}) {
        const StringTable german(start + std::string("1109 \"Sekunden\"\r\n1146 \" bis \""));
        EXPECT_EQ(german.text(1109), "Sekunden") << start;
        EXPECT_EQ(german.text(1146), " bis ");
        EXPECT_EQ(german.text(1110), "minutes");
        EXPECT_EQ(failureOf([&] { (void)german.text(1117); }), failure::resourceNotFound);
    }
}

TEST(StringTableTest, ALineThatCannotBeUnderstoodIsNamed)
{
    for (const char* line : {"seconds", "1109 seconds", "1109 \"", "1109\"x\"", "1109  \"x\"", "-5 \"x\"",
                             "\357\273\2771109 \"x\"", "1109 \"x\" y", "99999999999 \"x\"", " 1109 \"x\""}) {
        const std::string reason = thrownBy([&] { return StringTable(std::string("1109 \"ok\"\n") + line); });
        EXPECT_NE(reason.find("line 2"), std::string::npos) << line << ": " << reason;
    }
}

/// One control of every kind that the component's forms use.
struct AnyForm : Form {
    AnyForm() : Form("Any") {}
    Frame frame{*this, "frame"};
    Label label{*this, "label", &frame};
    Label plain{*this, "plain"};
    OptionButton option{*this, "option", &frame};
    CommandButton button{*this, "button"};
    Menu menu{*this, "menu"};
    ComboBox list{*this, "list"};
    TextBox box{*this, "box"};
    Grid grid{*this, "grid"};
    Image image{*this, "image"};
};

TEST(ResourceUtilsTest, TextsFontsAndHintsReachEveryKindOfControl)
{
    FakePlatform host;
    const StringTable strings;
    Errors errors(strings, host.platform.createErrorReporter);
    const Steps step(errors, "Form_Load");
    AnyForm form;
    form.setCaption("54");
    form.setFont({.name = "Face", .size = 8, .bold = true, .weight = 600});
    form.frame.setTag("2");
    form.label.setTag("13");
    form.plain.setTag("0");
    form.plain.setCaption("as designed");
    form.option.setTag("8");
    form.button.setTag("17");
    form.menu.setTag("26");
    form.list.setItems({{"own", 0}, {"", 9}, {"", 17}});
    form.list.select(1);
    form.list.setToolTipText("37");
    form.box.setToolTipText("no number");
    form.grid.setToolTipText("35");

    loadFormCaption(step, strings, form, 1100);

    const std::vector<std::string> captions{form.caption(),       form.frame.caption(),  form.label.caption(),
                                            form.plain.caption(), form.option.caption(), form.menu.caption()};
    EXPECT_EQ(captions, (std::vector<std::string>{"Timebase Editor", "Stop Recording:", "Trigger Channel",
                                                  "as designed", "&After", "&Timebase"}));
    EXPECT_EQ(form.list.items(), (std::vector<ComboBox::Item>{{"own", 0}, {"seconds", 9}, {"", 17}}));
    EXPECT_EQ(form.list.index(), 1);
    EXPECT_EQ(form.box.toolTipText(), "no number");
    EXPECT_EQ(form.box.font().name, "Face");
    EXPECT_EQ(form.box.font().weight, 600);
    EXPECT_FALSE(form.box.font().bold);
    EXPECT_EQ(form.menu.font().name, "");
    EXPECT_TRUE(form.grid.colHeaderStyle().font.bold);
    EXPECT_TRUE(form.grid.rowHeaderStyle().font.bold);
    EXPECT_FALSE(form.grid.standardStyle().font.bold);
    EXPECT_EQ(form.grid.standardStyle().font.name, "Face");
    // The button and the list's third entry refer to 1117, which does not exist; all other texts were loaded.
    EXPECT_EQ(host.takeReports().size(), 2U);

    form.setCaption("as designed");
    loadFormCaption(step, strings, form, 1100);
    EXPECT_EQ(form.caption(), "as designed");
    EXPECT_EQ(host.takeReports().size(), 2U);

    moveToolTipsToTags(form);
    EXPECT_EQ(form.list.tag(), "Select the interval associated with the elapsed recording time");
    EXPECT_EQ(form.list.toolTipText(), "");
    EXPECT_EQ(form.grid.tag(), "Set the desired trigger condition(s)");
    EXPECT_EQ(form.frame.tag(), "");
    EXPECT_EQ(form.label.tag(), "13");
    EXPECT_EQ(form.menu.tag(), "26");
}

TEST(LocaleSettingsTest, AreReadAndSettingsThatAreNoNumbersCountAsZero)
{
    EXPECT_EQ(readLocaleSettings({.timeFormat = "HH:mm:ss", .timeIs24Hour = "1", .timeLeadingZero = "x"}),
              (LocaleSettings{"HH:mm:ss", 1, 0, ":", "AM", "PM"}));
}

} // namespace
} // namespace ko::test
