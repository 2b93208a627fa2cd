#include "stats/StationModel.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

QString shown(const QAbstractItemModel& model, int row) {
    return model.data(model.index(row, 0), Qt::DisplayRole).toString();
}

TEST(StationModel, ShowsTheListAsOfTheLastRefreshInOrder) {
    StationList list;
    StationModel model(list);
    int resets = 0;
    QObject::connect(&model, &QAbstractItemModel::modelReset, [&] { ++resets; });
    model.refresh();
    EXPECT_EQ(resets, 0) << "nothing has changed";
    list.add({{"W1AW", 1.0, 2.0}}, nullptr);
    list.add({{"DL\xE4", 3.0, 4.0}}, nullptr);
    EXPECT_EQ(model.rowCount(), 0);
    model.refresh();
    model.refresh();
    EXPECT_EQ(resets, 1);
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_TRUE(shown(model, 0).startsWith(QStringLiteral("DL\u00E4  "))) << "Windows-1252";
    EXPECT_TRUE(shown(model, 1).endsWith(QStringLiteral(" |1|2")));
    EXPECT_EQ(model.item(1)->call, "W1AW");
    EXPECT_EQ(model.item(-1), nullptr);
    list.clear(); // a click may come before the view hears of it
    EXPECT_EQ(shown(model, 1), QString());
    EXPECT_EQ(model.item(1), nullptr);
}

TEST(StationModel, LinesKeepTheirOrderAndShowANewSummaryOfTheSameLength) {
    std::vector<std::string> lines = {"b", "a"};
    LineModel model(lines);
    model.refresh();
    lines[0] = "c";
    EXPECT_EQ(shown(model, 0), QStringLiteral("b"));
    model.refresh();
    EXPECT_EQ(shown(model, 0), QStringLiteral("c"));
    EXPECT_EQ(model.rowCount(), 2);
}

} // namespace
} // namespace tovrel
