#pragma once

#include <cstdint>

// The geometry of resizable dialogs, in pixels.

// The edges of the dialog to which a control keeps its distance. Without ANCHOR_LEFT a control follows the
// right edge whether or not ANCHOR_RIGHT is set, and without ANCHOR_TOP the bottom edge. ANCHOR_ALL is used
// alone.
enum : std::uint32_t {
    ANCHOR_LEFT = 1,
    ANCHOR_TOP = 2,
    ANCHOR_RIGHT = 4,
    ANCHOR_BOTTOM = 8,
    ANCHOR_ALL = 16,
};

// A rectangle, or the distances of its edges from those of a surrounding rectangle.
struct Edges {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
    bool operator==(const Edges&) const = default;
};

struct Placement {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool operator==(const Placement&) const = default;
};

// Whether these flags move a control: only 1 to 16 do. 0, and ANCHOR_ALL with another flag, leave it in
// place.
[[nodiscard]] constexpr bool IsAnchored(std::uint32_t flags) {
    return flags >= 1 && flags <= ANCHOR_ALL;
}

// The distances of a control's edges from those of the client area.
[[nodiscard]] Edges MeasureDistances(const Edges& client, const Edges& control);

// A control's rectangle in a client area of another size: anchored edges keep their distances, and a control
// that does not stretch keeps the size of `current`. A stretched edge never passes the opposite edge, so that
// no size is negative. A negative position becomes 0 without changing the size.
[[nodiscard]] Placement Arrange(std::uint32_t flags, const Edges& distances, const Edges& client,
                                const Edges& current);

// The smallest width or height to which a window can be resized: 80 % of the first client size, rounded down.
[[nodiscard]] std::int32_t MinTrackSize(std::int32_t clientSize);

// The window's rectangle, moved into this area of the screen and made smaller if it does not fit.
[[nodiscard]] Placement FitInto(const Edges& area, const Placement& window);

// A stored window rectangle, corrected for a screen of this size: edges off the screen are replaced. A right
// edge that is left of the left edge stays and gives a width of 0 or less.
[[nodiscard]] Placement CorrectPlacement(Edges stored, std::int32_t screenWidth, std::int32_t screenHeight);
