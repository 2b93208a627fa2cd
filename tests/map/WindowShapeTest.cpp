#include "map/WindowShape.h"

#include <gtest/gtest.h>

namespace tovrel {

namespace {

/// A rectangle by its four edges.
QRect rect(int left, int top, int right, int bottom) {
    return {left, top, right - left, bottom - top};
}

constexpr int chrome = 40; // title bar, frame and menu
constexpr MapShape square{.widthPerHeight = 1, .ofClientArea = true};
constexpr MapShape twoToOne{.widthPerHeight = 2, .ofClientArea = false};

TEST(WindowShape, CorrectsOneSideByTheDraggedEdge) {
    using Edge = SizingEdge;
    // The azimuthal map is square below the chrome.
    const struct {
        std::vector<Edge> edges;
        QRect azimuthal;
        QRect miller;
    } cases[] = {
        {{Edge::Left, Edge::Right, Edge::BottomLeft, Edge::BottomRight},
         rect(10, 20, 310, 360),
         rect(10, 20, 310, 170)},
        {{Edge::Top, Edge::TopRight, Edge::Bottom}, rect(10, 20, 170, 220), rect(10, 20, 410, 220)},
        {{Edge::TopLeft}, rect(150, 20, 310, 220), rect(-90, 20, 310, 220)}};
    const QRect proposed = rect(10, 20, 310, 220);
    for (const auto& c : cases) {
        for (const Edge edge : c.edges) {
            EXPECT_EQ(SizingProc(proposed, edge, square, chrome), c.azimuthal);
            EXPECT_EQ(SizingProc(proposed, edge, twoToOne, chrome), c.miller);
        }
        EXPECT_EQ(shapedWindow(proposed, c.azimuthal, square, chrome), c.azimuthal)
            << "nothing to be done";
    }
}

TEST(WindowShape, RoundsTheMillerHeightToAnEvenBottom) {
    for (const auto& [top, bottom] : {std::pair{100, 550}, {101, 552}, {-100, 350}})
        EXPECT_EQ(SizingProc(rect(0, top, 901, 700), SizingEdge::Right, twoToOne, chrome),
                  rect(0, top, 901, bottom));
}

TEST(WindowShape, TellsTheDraggedEdgeFromWhatMoved) {
    const QRect before = rect(100, 100, 500, 500);
    const std::pair<QRect, SizingEdge> cases[] = {
        {rect(90, 100, 500, 500), SizingEdge::Left},
        {rect(100, 100, 510, 500), SizingEdge::Right},
        {rect(100, 120, 500, 500), SizingEdge::Top},
        {rect(100, 100, 500, 480), SizingEdge::Bottom},
        {rect(110, 110, 500, 500), SizingEdge::TopLeft},
        {rect(100, 90, 520, 500), SizingEdge::TopRight},
        {rect(80, 100, 500, 530), SizingEdge::BottomLeft},
        {rect(100, 100, 530, 520), SizingEdge::BottomRight},
        {rect(100, 100, 500, 500), SizingEdge::BottomRight},
        {rect(130, 140, 530, 540), SizingEdge::BottomRight}, // moved, not sized
        {rect(130, 140, 540, 540), SizingEdge::Left}};       // moved and sized by a jump
    for (const auto& [after, edge] : cases)
        EXPECT_EQ(draggedEdge(before, after), edge) << static_cast<int>(edge);
}

} // namespace
} // namespace tovrel
