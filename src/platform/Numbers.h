#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace tovrel {

/// Nearest single-precision value. Sizes past the range give the largest single, NaN gives 0.
inline float toSingle(double value) {
    constexpr double largest = std::numeric_limits<float>::max();
    return value != value ? 0.0F : static_cast<float>(std::clamp(value, -largest, largest));
}

/// Nearest whole number, a tie going to the even neighbour. NaN and infinities come back unchanged,
/// a zero without its sign.
inline double roundHalfEven(double value) {
    // 1.5 times 2^52: a sum with it has no room for a fraction and is rounded as the rule says.
    // Every dot of a plot comes here, and the library's function is a call.
    constexpr double shift = 6755399441055744.0;
    constexpr double roomBelow = 2251799813685248.0; // 2^51
    return std::abs(value) < roomBelow ? (value + shift) - shift : std::nearbyint(value);
}

/// The same at `decimals` (0 to 9) places after the point; never gives a negative zero.
double roundHalfEven(double value, int decimals);

/// Nearest whole number, a tie going to the even neighbour, held within the range of int; NaN is 0.
inline int roundToInt(double value) {
    constexpr double least = std::numeric_limits<int>::min();
    constexpr double most = std::numeric_limits<int>::max();
    return value != value ? 0 : static_cast<int>(std::clamp(roundHalfEven(value), least, most));
}

/// Number that `text` begins with, blanks in front skipped, the point as decimal mark and an
/// exponent ("1.5e3") taken along. Reading stops at the first character that can't belong to it.
/// @return nothing when there is none; never a NaN; at most 1.8e308 in size
std::optional<double> leadingNumber(std::string_view text);

/// Value of leadingNumber(), 0 when there is none.
double numberValue(std::string_view text);

/// Whether a text is a plain decimal number and nothing else: a sign or none, digits with a point
/// before, among or behind them or without one ("-8.25", ".5", "7."); no blank and no exponent.
bool isPlainDecimal(std::string_view text);

/// Value of a coordinate of a log: the number that `text` begins with when its blanks are left out,
/// wherever they stand ("- 8.25" is -8.25); 0 when there is none.
double coordinateValue(std::string_view text);

/// Shortest plain decimal text ("-0.5", never an exponent) that reads back as the same double.
std::string decimalText(double value);

/// Shortest plain decimal text that reads back as the same single.
std::string decimalText(float value);

/// Plain decimal text of a number with at most `places` (0 to 17) places after the point, no zeros
/// at its end ("-0.5", "12"), "0" for what rounds to zero.
std::string fixedText(double value, int places);

/// Text of a number in general format: at most 15 significant digits, no zeros at the end, the
/// point as decimal mark in every locale ("-73.5", "0.5"). Plain decimal from 0.0001 to below 1e15
/// in size, else with an exponent of at least two digits ("1e-05", "1e+15"); zero is "0".
std::string generalText(double value);

} // namespace tovrel
