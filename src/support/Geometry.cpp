#include "support/Geometry.h"

#include "platform/NumberText.h"

namespace ko {

namespace {

/// The desktop without its task bars, in twips; the whole screen when unknown.
Rectangle workArea(Screen& screen)
{
    const auto pixels = screen.workArea();
    if (!pixels) {
        const Point size = screen.size();
        return {0, 0, size.x, size.y};
    }
    const double x = screen.twipsPerPixelX();
    const double y = screen.twipsPerPixelY();
    return {toLong(pixels->left * x), toLong(pixels->top * y), toLong(pixels->right * x), toLong(pixels->bottom * y)};
}

/// One axis of the clamping: the position of an edge such that the length ends before `end`, but never before `begin`.
std::int32_t clampedEdge(std::int32_t edge, std::int32_t length, std::int32_t begin, std::int32_t end)
{
    std::int64_t moved = edge;
    if (moved + length > end)
        moved = std::int64_t{end} - length;
    return moved < begin ? begin : static_cast<std::int32_t>(moved);
}

void moveInside(Form& form, Screen& screen, std::int32_t left, std::int32_t top)
{
    Bounds wanted = form.bounds();
    wanted.left = left;
    wanted.top = top;
    const Bounds bounds = clampedTo(workArea(screen), wanted);
    form.move(bounds.left, bounds.top);
}

} // namespace

Bounds clampedTo(const Rectangle& area, Bounds bounds)
{
    bounds.left = clampedEdge(bounds.left, bounds.width, area.left, area.right);
    bounds.top = clampedEdge(bounds.top, bounds.height, area.top, area.bottom);
    return bounds;
}

void placeAtCursor(Form& form, Screen& screen)
{
    raise(form.measure);
    const Point cursor = screen.cursorPosition();
    moveInside(form, screen, toLong(cursor.x * screen.twipsPerPixelX()), toLong(cursor.y * screen.twipsPerPixelY()));
}

void placeCentredUnderCursor(Form& form, Screen& screen)
{
    raise(form.measure);
    const Point cursor = screen.cursorPosition();
    const double scale = screen.twipsPerPixelX();
    const double middle = toLong(cursor.x * scale);
    moveInside(form, screen, toLong(middle - (form.bounds().width >> 1)), toLong(cursor.y * scale));
}

} // namespace ko
