#include "support/Geometry.h"

#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

namespace ko::test {
namespace {

/// A screen with non-square pixels: 15 by 20 twips.
class TallPixels : public FakePlatform {
public:
    double twipsPerPixelY() override { return 20; }
};

struct Placement {
    const char* what = "";
    Point cursor;
    std::int32_t width = 0;
    std::optional<Rectangle> workArea;
    Point atCursor, centred;
};

// The form is 1500 twips high; the screen is 19200 by 15360 twips.
constexpr Rectangle area{10, 20, 1000, 700};
const Placement placements[] = {
    {"inside: the second rule scales both coordinates alike", {200, 300}, 3001, area, {3000, 6000}, {1500, 4500}},
    {"at the right and bottom edges", {990, 690}, 3000, area, {12000, 12500}, {12000, 10350}},
    {"beyond the left and top edges", {-50, 3}, 3000, area, {150, 400}, {150, 400}},
    {"half of it left of the area", {20, 300}, 3000, area, {300, 6000}, {150, 4500}},
    {"wider than the area", {500, 300}, 20000, area, {150, 6000}, {150, 4500}},
    {"no work area: the screen", {2000, 2000}, 3000, std::nullopt, {16200, 13860}, {16200, 13860}},
};

TEST(Geometry, PlacesDialogsAtTheCursorAndInsideTheWorkArea)
{
    for (const Placement& it : placements) {
        TallPixels screen;
        screen.cursor = it.cursor;
        screen.area = it.workArea;
        Form form("Dialog");
        form.resize(it.width, 1500);
        placeAtCursor(form, screen);
        EXPECT_EQ(form.bounds(), (Bounds{it.atCursor.x, it.atCursor.y, it.width, 1500})) << it.what;
        placeCentredUnderCursor(form, screen);
        EXPECT_EQ(form.bounds(), (Bounds{it.centred.x, it.centred.y, it.width, 1500})) << it.what;
    }
}

TEST(Geometry, AFormIsMeasuredBeforeItIsPlaced)
{
    for (const auto place : {placeAtCursor, placeCentredUnderCursor}) {
        FakePlatform screen;
        screen.cursor = {990, 690};
        screen.area = area;
        Form form("Dialog");
        form.measure = [&form] { form.resize(3000, 1500); };
        place(form, screen);
        EXPECT_EQ(form.bounds(), (Bounds{12000, 9000, 3000, 1500}));
    }
}

TEST(Geometry, ALargeFormKeepsTheLeftAndTopEdges)
{
    EXPECT_EQ(clampedTo({100, 200, 300, 400}, {150, 250, 5000, 5000}), (Bounds{100, 200, 5000, 5000}));
    EXPECT_EQ(clampedTo({0, 0, 300, 400}, {2147483000, 10, 100, 100}), (Bounds{200, 10, 100, 100}));
}

} // namespace
} // namespace ko::test
