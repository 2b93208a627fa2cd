#include "run/WindowPlaces.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

const QRect screen(0, 0, 1280, 960);
const QRect available(0, 30, 1280, 900); // a panel above, one below

TEST(WindowPlaces, KeepsTheTitleBarOfACentredWindowOnTheScreen) {
    EXPECT_EQ(centred(screen, available, {480, 500}), QPoint(400, 230));
    EXPECT_EQ(centred(screen, available, {480, 955}), QPoint(400, 30));
    EXPECT_EQ(centred(screen, available, {2000, 955}), QPoint(0, 30));
}

TEST(WindowPlaces, PutsTheStatisticsBesideTheMapAndOnTheScreen) {
    const struct {
        const char* what;
        QRect main;
        bool free;
        QPoint mainAfter;
        QRect stats;
    } cases[] = {
        {"room", {400, 200, 480, 500}, true, {333, 200}, {813, 200, 134, 500}},
        {"hardly any on the left", {20, 200, 480, 500}, true, {0, 200}, {480, 200, 134, 500}},
        {"at the left edge", {0, 200, 480, 500}, true, {0, 200}, {480, 200, 134, 500}},
        {"none on the right", {790, 200, 480, 500}, true, {723, 200}, {1146, 200, 134, 500}},
        {"maximized", {0, 30, 1280, 900}, false, {0, 30}, {1146, 30, 134, 900}},
        {"partly above and below", {400, -10, 480, 1200}, true, {333, -10}, {813, 30, 134, 900}}};
    for (const auto& c : cases) {
        const PairPlaces places = sideBySide(c.main, 134, available, c.free);
        EXPECT_EQ(places.main, c.mainAfter) << c.what;
        EXPECT_EQ(places.stats, c.stats) << c.what;
        EXPECT_TRUE(available.contains(places.stats)) << c.what;
    }
}

} // namespace
} // namespace tovrel
