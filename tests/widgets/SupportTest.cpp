#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/ShownText.h"

#include <QAction>
#include <QPushButton>
#include <gtest/gtest.h>

namespace ko::test {
namespace {

TEST(Convert, CountsCharactersAndUnits)
{
    const QString text = QStringLiteral("a\U0001F600b\U0001F601");
    const int units[] = {0, 1, 3, 4, 6, 6};
    for (std::size_t characters = 0; characters < std::size(units); ++characters)
        EXPECT_EQ(unitsOf(text, characters), units[characters]);
    for (std::size_t characters = 0; characters < 5; ++characters)
        EXPECT_EQ(charactersOf(text, units[characters]), characters);
    const QString half = QString(text[1]);
    EXPECT_EQ(unitsOf(half, 1), 1) << "half of a character";
}

TEST(Convert, LeavesOutTheLetterOfACaption)
{
    const std::pair<const char*, const char*> cases[] = {{"&Start", "Start"}, {"A && B", "A & B"}, {"x(&S):", "x:"},
                                                         {"(&1)", "(1)"},     {"(&S", "(S"},       {"end&", "end&"},
                                                         {"(S)", "(S)"},      {"(&S)", ""}};
    for (const auto& [caption, plain] : cases)
        EXPECT_EQ(withoutMnemonic(QString::fromLatin1(caption)).toStdString(), plain);
}

TEST(Convert, AppliesWhatDiffersFromTheFont)
{
    QWidget widget;
    const Font usual{.name = "Sans", .size = 10, .weight = 400};
    struct Case {
        std::function<void(Font&)> changed;
        std::function<bool(const QFont&)> isApplied;
    };
    const Case cases[] = {
        {[](Font& font) { font.name = "Serif"; }, [](const QFont& font) { return font.family() == "Serif"; }},
        {[](Font& font) { font.size = 17; }, [](const QFont& font) { return font.pointSizeF() == 17; }},
        {[](Font& font) { font.size = 1; }, [](const QFont& font) { return font.pointSizeF() == 1; }},
        {[](Font& font) { font.weight = 1; }, [](const QFont& font) { return font.weight() == 1; }},
        {[](Font& font) { font.weight = 1000; }, [](const QFont& font) { return font.weight() == 1000; }},
        {[](Font& font) { font.bold = true; }, [](const QFont& font) { return font.bold(); }},
        {[](Font& font) { font.italic = true; }, [](const QFont& font) { return font.italic(); }},
        {[](Font& font) { font.underline = true; }, [](const QFont& font) { return font.underline(); }},
        {[](Font& font) { font.strikethrough = true; }, [](const QFont& font) { return font.strikeOut(); }},
    };
    for (const Case& it : cases) {
        Font font = usual;
        it.changed(font);
        applyFont(widget, font, usual);
        EXPECT_TRUE(it.isApplied(widget.font())) << &it - cases;
        applyFont(widget, font, font);
        EXPECT_EQ(widget.font().resolveMask(), QWidget().font().resolveMask()) << "nothing differs, " << &it - cases;
    }
    for (const Font& none :
         {Font{.name = "", .size = 0, .weight = 0}, Font{.name = "Sans", .size = 10, .weight = 1001}}) {
        applyFont(widget, none, usual);
        EXPECT_EQ(widget.font().resolveMask(), QWidget().font().resolveMask()) << "no such font";
    }
    for (const int pixels : {0, 7, 100})
        EXPECT_EQ(toPixels(widget, toTwips(widget, pixels)), pixels);
    EXPECT_EQ(toTwips(widget, widget.logicalDpiX()), 1440);
}

TEST(ShownText, IsOfAsManyLinesAndCharactersAsAPersonReads)
{
    const std::string character = "\u00e4";
    std::string text;
    for (int i = 0; i < 4000; ++i)
        text += character;
    EXPECT_EQ(toShown(text).size(), 4000);
    EXPECT_EQ(toShown(text + "x").toStdString(), text + "\u2026");
    EXPECT_EQ(toLine(text.substr(0, 1000)).size(), 500);
    EXPECT_EQ(toLine(text.substr(0, 1000) + "x").toStdString(), text.substr(0, 1000) + "\u2026");
    std::string lines;
    for (int i = 1; i < 60; ++i)
        lines += "line\n";
    EXPECT_EQ(toShown(lines + "last").toStdString(), lines + "last");
    EXPECT_EQ(toShown(lines + "last\nmore").toStdString(), lines + "last\u2026");
    EXPECT_EQ(toShown("a\tb\x01\x7f\nc").toStdString(), "a\tb  \nc");
    EXPECT_EQ(toLine(std::string("a\tb\x01\nc\u2028d\u2029\u202Ee")).toStdString(), "a b  c d \uFFFDe");
}

TEST(Guarded, WhatFailsIsNamedByWhatTheUserPressed)
{
    QAction action("&Open");
    QPushButton button("&Close");
    QWidget other;
    other.setAccessibleName("Table");
    EXPECT_EQ(captionOf(&action) + captionOf(&button) + captionOf(&other), "OpenCloseTable");
    EXPECT_EQ(captionOf(nullptr), "");
    const QObject object;
    EXPECT_EQ(captionOf(&object), "");
}

} // namespace
} // namespace ko::test
