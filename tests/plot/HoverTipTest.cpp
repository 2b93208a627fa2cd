#include "plot/HoverTip.h"
#include "plot/PlotTables.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace tovrel {
namespace {

constexpr TipParts allParts{.latLong = true, .country = true, .call = true};
constexpr TipParts callsOnly{.latLong = false, .country = false, .call = true};

class HoverTipTest : public testing::Test {
protected:
    void add(const std::string& call, double mapY, double mapX) {
        tables.plotTable.add({{46.5, -72.25}}, QsoStatus::Worked, call, "Country of " + call);
        place(mapY, mapX);
        tables.HoverTable.begin(tables.plotTable.size());
        for (const PlotRow& row : tables.plotTable.rows())
            tables.HoverTable.add(row.mapY, row.mapX);
        tables.HoverTable.finish();
    }
    /// Where the row that was added last was drawn.
    void place(double mapY, double mapX) {
        tables.plotTable.rows().back().mapY = mapY;
        tables.plotTable.rows().back().mapX = mapX;
    }

    /// The tip as a look at every row finds it.
    std::string scan(double mapY, double mapX) const {
        const auto step = [](float units) { return std::nearbyint(units / 100.0F); };
        std::string tip;
        for (const PlotRow& row : tables.plotTable.rows()) {
            const auto near = [&](double pointer, double place) {
                return std::abs(step(static_cast<float>(pointer)) -
                                step(static_cast<float>(std::nearbyint(place)))) < 5.0F;
            };
            if (near(mapY, row.mapY) && near(mapX, row.mapX)) {
                tip.append(row.call).append("  ");
            }
        }
        return tip;
    }

    PlotTables tables;
};

TEST_F(HoverTipTest, TellsThePartsThatAreSelected) {
    add("K1AA", 1000.0, 1000.0);
    add("K2BB", 1100.0, 1000.0);
    const std::string place = "[46.5, -72.25] ";
    EXPECT_EQ(tipText(tables, allParts, 1000.0, 1000.0), place + "Country of K1AA: K1AA  K2BB  ");
    EXPECT_EQ(tipText(tables, callsOnly, 1000.0, 1000.0), "K1AA  K2BB  ");
    EXPECT_EQ(tipText(tables, {.latLong = true, .country = true}, 1000.0, 1000.0),
              place + "Country of K1AA: ");
    EXPECT_EQ(tipText(tables, {}, 1000.0, 1000.0), "");
    EXPECT_EQ(tipText(tables, allParts, -9000.0, 1000.0), "");
}

TEST_F(HoverTipTest, FindsWhatAScanOfAllRowsFinds) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> anywhere(-22000.0, 22000.0);
    std::uniform_real_distribution<double> cluster(-1200.0, 1200.0);
    for (int i = 0; i < 3000; ++i) {
        const bool clustered = i % 3 == 0;
        tables.plotTable.add({{1.0, 1.0}}, QsoStatus::Worked, "C" + std::to_string(i), "");
        const double y = clustered ? cluster(random) : anywhere(random);
        place(y, clustered ? cluster(random) : anywhere(random));
    }
    // Halves go to the even step, and places off the map may be asked for by a script.
    add("HALF", 250.0, 350.0);
    add("FAR", 1.0e9, -3.0e7);
    add("EDGE", 22450.0, -22550.0);
    for (int i = 0; i < 2000; ++i) {
        const double y = i % 2 == 0 ? cluster(random) : anywhere(random);
        const double x = i % 2 == 0 ? cluster(random) : anywhere(random);
        ASSERT_EQ(tipText(tables, callsOnly, y, x), scan(y, x)) << y << ", " << x;
    }
    for (const auto& [y, x] : {std::pair{650.0, 750.0},
                               {750.0, 350.0},
                               {-150.0, -50.0},
                               {1.0e9, -3.0e7},
                               {22000.0, -22000.0},
                               {22900.0, -22950.0}}) {
        EXPECT_EQ(tipText(tables, callsOnly, y, x), scan(y, x)) << y << ", " << x;
    }
}

TEST_F(HoverTipTest, NeverFindsARowWithoutAPlace) {
    const double nowhere = std::numeric_limits<double>::quiet_NaN();
    add("GONE", nowhere, nowhere);
    EXPECT_EQ(tipText(tables, callsOnly, 0.0, 0.0), "");
    add("K1AA", 0.0, 0.0);
    EXPECT_EQ(tipText(tables, callsOnly, 0.0, 0.0), "K1AA  ");
    tables.HoverTable.clear();
    EXPECT_EQ(tipText(tables, callsOnly, 0.0, 0.0), "");
}

TEST_F(HoverTipTest, ALongTipEndsWithTheNumberOfFurtherStations) {
    for (int i = 0; i < 100; ++i) {
        add("K1AA", 0.0, 0.0);
    }
    EXPECT_EQ(tipText(tables, callsOnly, 0.0, 0.0).size(), 600U);
    EXPECT_EQ(tipText(tables, callsOnly, 0.0, 0.0, 11), "K1AA  K1AA  ... and 98 more");
}

} // namespace
} // namespace tovrel
