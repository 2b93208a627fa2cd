#include "platform/Numbers.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace tovrel {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double largest = std::numeric_limits<double>::max();

TEST(Numbers, leadingNumberStopsWhereTheTextIsNoNumberAnyMore) {
    const std::pair<std::string, double> cases[] = {
        {".5", 0.5},     {"-.5", -0.5},   {"5.", 5.0},  {"  -12.75 E", -12.75},
        {"1.5e3", 1500}, {"1E-2x", 0.01}, {"1e+", 1.0}, {"12,5", 12.0},
        {"1.2.3", 1.2},  {"0x10", 0.0},   {"45N", 45.0}};
    for (const auto& [text, value] : cases)
        EXPECT_EQ(leadingNumber(text), value) << text;
    EXPECT_EQ(leadingNumber(std::string_view("\0005", 2)), std::nullopt);
    for (const char* none : {"", "N45", "inf", "nan", ".", "+-5", "-.e5", "e5", "\t5"}) {
        EXPECT_EQ(leadingNumber(none), std::nullopt) << none;
        EXPECT_EQ(numberValue(none), 0.0) << none;
    }
}

TEST(Numbers, PastTheirRangeAreTheLargestOrZero) {
    const std::string zeros(400, '0');
    for (const std::string& text : {std::string("1e400"), std::string("1e99999999999999999999"),
                                    "1" + zeros + ".5", "1" + zeros + "e-10"})
        EXPECT_EQ(leadingNumber(text), largest) << text;
    for (const std::string& text :
         {std::string("1e-400"), std::string("1e-99999999999999999999"),
          std::string("0e99999999999999999999"), "0." + zeros + "1", "0." + zeros + "1e10"})
        EXPECT_EQ(leadingNumber(text), 0.0) << text;
    EXPECT_EQ(leadingNumber("1" + zeros + "e-400"), 1.0);
}

TEST(Numbers, aCoordinateIsReadWithoutItsBlanks) {
    const std::pair<std::string, double> cases[] = {
        {"- 8.25", -8.25}, {"72 .72", 72.72}, {"4\t5", 4.0}, {"  ", 0.0}, {"N 45", 0.0}};
    for (const auto& [text, value] : cases)
        EXPECT_EQ(coordinateValue(text), value) << text;
}

TEST(Numbers, roundsATieToTheEvenNeighbour) {
    const std::pair<double, double> whole[] = {
        {0.5, 0},       {1.5, 2},       {2.5, 2},
        {-0.5, 0},      {-1.5, -2},     {-2.5, -2},
        {2.5000001, 3}, {1e300, 1e300}, {0.49999999999999994, 0}};
    for (const auto& [value, rounded] : whole)
        EXPECT_EQ(roundHalfEven(value), rounded) << value;

    const struct {
        double value;
        int decimals;
        double rounded;
    } cases[] = {{0.125, 2, 0.12},       {0.375, 2, 0.38}, {-0.125, 2, -0.12},     {2.5, 0, 2.0},
                 {51.47851, 4, 51.4785}, {1e18, 4, 1e18},  {infinity, 4, infinity}};
    for (const auto& c : cases)
        EXPECT_EQ(roundHalfEven(c.value, c.decimals), c.rounded) << c.value;
    EXPECT_FALSE(std::signbit(roundHalfEven(-0.00001, 4)));
    EXPECT_TRUE(std::isnan(roundHalfEven(NAN, 4)));
}

TEST(Numbers, holdsValuesWithinTheRangeOfTheType) {
    EXPECT_EQ(roundToInt(-3.5), -4);
    EXPECT_EQ(roundToInt(1e10), std::numeric_limits<int>::max());
    EXPECT_EQ(roundToInt(-infinity), std::numeric_limits<int>::min());
    EXPECT_EQ(roundToInt(NAN), 0);
    EXPECT_EQ(toSingle(0.1), 0.1F);
    EXPECT_EQ(toSingle(-infinity), std::numeric_limits<float>::lowest());
    EXPECT_EQ(toSingle(NAN), 0.0F);
}

TEST(Numbers, writesTheShortestTextThatReadsBack) {
    const std::pair<double, std::string> doubles[] = {
        {0.1, "0.1"},   {-0.0, "0"},         {8000, "8000"},
        {-0.5, "-0.5"}, {1e-7, "0.0000001"}, {1e22, "1" + std::string(22, '0')}};
    for (const auto& [value, text] : doubles)
        EXPECT_EQ(decimalText(value), text);
    for (const double value : {largest, -5e-324, 2.2250738585072014e-308, 1.0 / 3.0})
        EXPECT_EQ(numberValue(decimalText(value)), value);
    EXPECT_EQ(decimalText(0.1F), "0.1");
    EXPECT_EQ(decimalText(-0.0F), "0");
    EXPECT_EQ(decimalText(16777216.0F), "16777216");
}

TEST(Numbers, writesAtMostFifteenDigitsInGeneralFormat) {
    const std::pair<double, std::string> cases[] = {{-73.5, "-73.5"},
                                                    {-0.0, "0"},
                                                    {0.1 + 0.2, "0.3"},
                                                    {0.0001, "0.0001"},
                                                    {0.00001, "1e-05"},
                                                    {1.0 / 3.0, "0.333333333333333"},
                                                    {999999999999999.0, "999999999999999"},
                                                    {999999999999999.5, "1e+15"}};
    for (const auto& [value, text] : cases)
        EXPECT_EQ(generalText(value), text);
}

/// Plain decimals have a way of their own; it has to give the very same double.
TEST(Numbers, ReadsPlainDecimalsToTheLastBit) {
    std::mt19937 random{1};
    for (int i = 0; i < 20000; ++i) {
        std::string text = std::to_string(random()) + std::to_string(random() % 10000000);
        text.resize(1 + random() % text.size());
        text.insert(1 + random() % text.size(), 1, '.');
        ASSERT_EQ(numberValue(text), std::strtod(text.c_str(), nullptr)) << text;
    }
}

} // namespace
} // namespace tovrel
