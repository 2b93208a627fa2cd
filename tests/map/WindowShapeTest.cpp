#include "map/WindowShape.h"

#include <gtest/gtest.h>

namespace tovrel {

std::ostream& operator<<(std::ostream& out, const WindowRect& r) {
    return out << r.left << "," << r.top << "," << r.right << "," << r.bottom;
}

namespace {

constexpr int chrome = 40; // title bar, frame and menu

TEST(WindowShape, CorrectsOneSideByTheDraggedEdge) {
    // The platform's numbers of the edges. The azimuthal map is square below the chrome.
    const struct {
        int edge;
        WindowRect azimuthal;
        WindowRect miller;
    } cases[] = {
        {1, {10, 20, 310, 360}, {10, 20, 310, 170}}, {2, {10, 20, 310, 360}, {10, 20, 310, 170}},
        {3, {10, 20, 170, 220}, {10, 20, 410, 220}}, {4, {150, 20, 310, 220}, {-90, 20, 310, 220}},
        {5, {10, 20, 170, 220}, {10, 20, 410, 220}}, {6, {10, 20, 170, 220}, {10, 20, 410, 220}},
        {7, {10, 20, 310, 360}, {10, 20, 310, 170}}, {8, {10, 20, 310, 360}, {10, 20, 310, 170}}};
    const WindowRect proposed{10, 20, 310, 220};
    for (const auto& c : cases) {
        const auto edge = static_cast<SizingEdge>(c.edge);
        EXPECT_EQ(SizingProc(proposed, edge, Projection::Azimuthal, chrome), c.azimuthal);
        EXPECT_EQ(SizingProc(proposed, edge, Projection::Miller, chrome), c.miller) << c.edge;
        EXPECT_EQ(shapedWindow(proposed, c.azimuthal, Projection::Azimuthal, chrome), c.azimuthal)
            << "nothing to be done";
    }
}

TEST(WindowShape, RoundsTheMillerHeightToAnEvenBottom) {
    const struct { int top, bottom; } cases[] = {{100, 550}, {101, 552}, {-100, 350}};
    for (const auto& c : cases) {
        EXPECT_EQ(
            SizingProc({0, c.top, 901, 700}, SizingEdge::Right, Projection::Miller, chrome).bottom,
            c.bottom);
    }
}

TEST(WindowShape, TellsTheDraggedEdgeFromWhatMoved) {
    const WindowRect before{100, 100, 500, 500};
    const struct {
        WindowRect after;
        SizingEdge edge;
    } cases[] = {{{90, 100, 500, 500}, SizingEdge::Left},
                 {{100, 100, 510, 500}, SizingEdge::Right},
                 {{100, 120, 500, 500}, SizingEdge::Top},
                 {{100, 100, 500, 480}, SizingEdge::Bottom},
                 {{110, 110, 500, 500}, SizingEdge::TopLeft},
                 {{100, 90, 520, 500}, SizingEdge::TopRight},
                 {{80, 100, 500, 530}, SizingEdge::BottomLeft},
                 {{100, 100, 530, 520}, SizingEdge::BottomRight},
                 {{100, 100, 500, 500}, SizingEdge::BottomRight},
                 {{130, 140, 530, 540}, SizingEdge::BottomRight}, // moved, not sized
                 {{130, 140, 540, 540}, SizingEdge::Left}};       // moved and sized by a jump
    for (const auto& c : cases)
        EXPECT_EQ(draggedEdge(before, c.after), c.edge) << c.after;
}

} // namespace
} // namespace tovrel
