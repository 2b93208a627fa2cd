#include "run/MapFrame.h"

#include "map/WindowShape.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gtest/gtest.h>
#include <optional>

namespace tovrel {
namespace {

/// A window whose manager answers as a test says.
struct PretendedWindow : FramedWindow {
    bool isFree() const override { return free; }
    QRect outer() const override { return rect; }
    void request(const QRect& wanted) override {
        asked.push_back(wanted);
        rect = wanted; // as Qt has it until the manager answers
        if (answers)
            answer = answers(wanted);
        frame->changed();
    }
    /// The manager's answer arrives.
    void deliver() {
        if (const std::optional<QRect> now = std::exchange(answer, std::nullopt)) {
            rect = *now;
            frame->changed();
        }
    }

    bool free = true;
    QRect rect{100, 100, 300, 340};
    std::function<QRect(QRect)> answers; ///< none: as it was asked
    std::optional<QRect> answer;
    std::vector<QRect> asked;
    MapFrame* frame = nullptr;
};

struct MapFrameTest : testing::Test {
    MapFrameTest() {
        window.frame = &frame;
        frame.watch(true);
    }
    /// The user drags an edge, pauses, and lets the manager answer until nothing changes any more.
    void drag(const QRect& to, int rounds = 10) {
        window.rect = to;
        frame.changed();
        for (int i = 0; i < rounds; ++i) {
            frame.settle();
            window.deliver();
        }
    }

    PretendedWindow window;
    static constexpr MapShape square{.widthPerHeight = 1, .ofClientArea = true};
    static constexpr MapShape twoToOne{.widthPerHeight = 2, .ofClientArea = false};
    MapShape shape = square;
    MapFrame frame{window, [this](const QRect& before, const QRect& after) {
                       return shapedWindow(before, after, shape, 40);
                   }};
};

TEST_F(MapFrameTest, AsksOnceForTheShapeWhenTheUserHasPaused) {
    window.rect.setWidth(320);
    frame.changed();
    EXPECT_TRUE(window.asked.empty()) << "not while the edge moves";
    const QDeadlineTimer patience(5000);
    while (window.asked.empty() && !patience.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(window.rect, QRect(100, 100, 320, 360));
    drag({80, 90, 340, 370}); // the top left corner
    EXPECT_EQ(window.rect, QRect(90, 90, 330, 370));
    EXPECT_EQ(window.asked.size(), 2U);
    shape = twoToOne;
    drag({90, 90, 401, 370});
    EXPECT_EQ(window.rect, QRect(90, 90, 401, 200));
}

TEST_F(MapFrameTest, TakesWhatAManagerInsistsOn) {
    window.answers = [this](QRect /*wanted*/) { return QRect(0, 0, 640, 960); };
    drag({0, 0, 640, 960}, 20);
    EXPECT_EQ(window.rect, QRect(0, 0, 640, 960));
    EXPECT_EQ(window.asked.size(), 6U) << "an edge may have been held";
    EXPECT_EQ(frame.size(), QSize(640, 960));
    frame.settle(true);
    window.deliver();
    frame.settle(true);
    EXPECT_EQ(window.asked.size(), 7U) << "one more when the pointer is back, and no other";
    window.answers = nullptr;
    drag({0, 0, 500, 960});
    EXPECT_EQ(window.rect, QRect(0, 0, 500, 540)) << "the next drag is asked for again";
}

TEST_F(MapFrameTest, ShapesWhenAHeldEdgeIsLetGo) {
    bool held = true;
    window.answers = [&held](QRect wanted) { return held ? QRect(100, 100, 320, 340) : wanted; };
    drag({100, 100, 320, 340}, 2);
    held = false;
    drag({100, 100, 320, 340}, 2);
    EXPECT_EQ(window.rect, QRect(100, 100, 320, 360));
}

TEST_F(MapFrameTest, KeepsTheFreeSizeWhileTheWindowIsMaximized) {
    frame.settle();
    window.free = false;
    drag({0, 0, 1280, 960});
    EXPECT_TRUE(window.asked.empty());
    EXPECT_EQ(frame.size(), QSize(300, 340));
    frame.ask({400, 200}); // the other map's
    EXPECT_TRUE(window.asked.empty());
    EXPECT_EQ(frame.size(), QSize(400, 200));
    shape = twoToOne;
    window.free = true;
    drag({100, 100, 300, 340}); // restored
    EXPECT_EQ(window.rect, QRect(100, 100, 400, 200));
    window.free = false;
    drag({0, 0, 1280, 960});
    window.free = true;
    drag({100, 100, 400, 200});
    EXPECT_EQ(window.asked.size(), 1U) << "restored to its size, nothing is asked for";
    frame.watch(false);
    drag({100, 100, 900, 200});
    EXPECT_EQ(window.asked.size(), 1U);
}

} // namespace
} // namespace tovrel
