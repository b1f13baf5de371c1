#pragma once

#include <cstdint>

// The geometry of resizable dialogs, in pixels.

// Which of a dialog's edges a control keeps its distance from. Without ANCHOR_LEFT a control follows the
// right edge whether or not ANCHOR_RIGHT is set, and without ANCHOR_TOP the bottom edge. ANCHOR_ALL stands
// alone.
enum : std::uint32_t {
    ANCHOR_LEFT = 1,
    ANCHOR_TOP = 2,
    ANCHOR_RIGHT = 4,
    ANCHOR_BOTTOM = 8,
    ANCHOR_ALL = 16,
};

// A rectangle, or the distances of one rectangle's edges from those of another around it.
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

// Only flags from 1 to 16 move a control: 0 and ANCHOR_ALL with anything else leave it where it is.
[[nodiscard]] constexpr bool IsAnchored(std::uint32_t flags) {
    return flags >= 1 && flags <= ANCHOR_ALL;
}

// How far a control's edges lie inside the client area's.
[[nodiscard]] Edges MeasureDistances(const Edges& client, const Edges& control);

// Where a control belongs in a client area of another size: anchored edges keep their distances, and what
// does not stretch keeps the size of `current`. A stretched edge never passes the opposite one, so a control
// is not turned inside out; the position is never negative, but the size does not follow that correction.
[[nodiscard]] Placement Arrange(std::uint32_t flags, const Edges& distances, const Edges& client,
                                const Edges& current);

// The smallest width or height to which a window may be dragged, from the client area's first one: 80 %, cut.
[[nodiscard]] std::int32_t MinTrackSize(std::int32_t clientSize);

// A window moved, and made smaller where it has to be, until it lies in this part of the screen.
[[nodiscard]] Placement FitInto(const Edges& area, const Placement& window);

// A stored window rectangle as it is used on a screen of this size: edges off the screen are replaced. A
// right edge left of the left one is not corrected and gives a width that is not positive.
[[nodiscard]] Placement CorrectPlacement(Edges stored, std::int32_t screenWidth, std::int32_t screenHeight);
