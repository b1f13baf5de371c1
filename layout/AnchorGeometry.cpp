#include "layout/AnchorGeometry.h"

#include <algorithm>

namespace {

struct Span {
    std::int32_t from;
    std::int32_t to;
};

// One direction of Arrange: `before` is anchored at the near edge, `after` at the far one.
Span ArrangeSpan(bool before, bool after, Span distance, std::int32_t from, std::int32_t to, Span current) {
    const std::int32_t size = current.to - current.from;
    const std::int32_t farEdge = to - distance.to;
    if (!before) {
        return {farEdge - size, farEdge};
    }
    if (after) {
        return {distance.from, std::max(distance.from, farEdge)};
    }
    return {from + distance.from, from + distance.from + size};
}

bool IsOff(std::int32_t edge, std::int32_t screenSize) {
    return edge < 0 || edge > screenSize;
}

}  // namespace

Edges MeasureDistances(const Edges& client, const Edges& control) {
    return {control.left - client.left, control.top - client.top, client.right - control.right,
            client.bottom - control.bottom};
}

Placement Arrange(std::uint32_t flags, const Edges& distances, const Edges& client, const Edges& current) {
    const bool all = (flags & ANCHOR_ALL) != 0;
    const auto anchored = [&](std::uint32_t edge) { return all || (flags & edge) != 0; };
    const Span across =
        ArrangeSpan(anchored(ANCHOR_LEFT), anchored(ANCHOR_RIGHT), {distances.left, distances.right},
                    client.left, client.right, {current.left, current.right});
    const Span down =
        ArrangeSpan(anchored(ANCHOR_TOP), anchored(ANCHOR_BOTTOM), {distances.top, distances.bottom},
                    client.top, client.bottom, {current.top, current.bottom});
    return {std::max(across.from, 0), std::max(down.from, 0), across.to - across.from, down.to - down.from};
}

std::int32_t MinTrackSize(std::int32_t clientSize) {
    return static_cast<std::int32_t>(clientSize * 0.8);
}

Placement FitInto(const Edges& area, const Placement& window) {
    const std::int32_t width = std::min(window.width, area.right - area.left);
    const std::int32_t height = std::min(window.height, area.bottom - area.top);
    return {std::clamp(window.x, area.left, area.right - width),
            std::clamp(window.y, area.top, area.bottom - height), width, height};
}

Placement CorrectPlacement(Edges stored, std::int32_t screenWidth, std::int32_t screenHeight) {
    // Far enough from the edges of the screen that the user can see the window and drag it.
    constexpr std::int32_t kMargin = 100;
    const std::int32_t left = IsOff(stored.left, screenWidth) ? kMargin : stored.left;
    const std::int32_t top = IsOff(stored.top, screenHeight) ? kMargin : stored.top;
    const std::int32_t right = IsOff(stored.right, screenWidth) ? screenWidth - kMargin : stored.right;
    const std::int32_t bottom = IsOff(stored.bottom, screenHeight) ? screenHeight - kMargin : stored.bottom;
    return {left, top, right - left, bottom - top};
}
