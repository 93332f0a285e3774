#include "uStickyEdges.h"

#include <gtest/gtest.h>

using namespace murala;

TEST(StickyEdges, AWindowSnapsToTheEdgesThatItIsNear)
{
    constexpr TRect area{100, 0, 1100, 700};
    const struct {
        TRect Dragged, Snapped;
    } rows[] = {
        {{109, 300, 409, 500}, {100, 300, 400, 500}},
        {{110, 300, 410, 500}, {110, 300, 410, 500}}, // just too far
        {{91, -9, 391, 191}, {100, 0, 400, 200}},     // over a corner
        {{795, 300, 1095, 500}, {800, 300, 1100, 500}},
        {{500, 505, 800, 705}, {500, 500, 800, 700}},
        {{-400, 300, -100, 500}, {-400, 300, -100, 500}},
    };
    for (const auto& [dragged, snapped] : rows)
        EXPECT_EQ(SnapToEdges(dragged, area, 10), snapped);
    // With a frame that nobody sees it is what is seen that touches the edge.
    EXPECT_EQ(SnapToEdges({96, 300, 396, 500}, {7, 0, 6, 5}, area, 10), (TRect{93, 300, 393, 500}));
    EXPECT_EQ(SnapToEdges({797, 505, 1097, 705}, {7, 0, 6, 5}, area, 10),
              (TRect{806, 505, 1106, 705}));
}
