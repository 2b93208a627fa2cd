#include "platform/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace tovrel {

namespace {

constexpr std::array<double, 16> powersOfTen = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

bool isDigit(char c) { return c >= '0' && c <= '9'; }

template <typename Real>
std::string shortestFixed(Real value) {
    // The smallest double needs 324 places after the point and 17 digits more.
    std::array<char, 400> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::fixed);
    return {buffer.data(), end.ptr};
}

/// Whether a number past the range of double is so near 0, or so far from it; from_chars does not
/// say which end was passed.
/// @param digits a number other than 0, without sign
bool belowOne(std::string_view digits) {
    const std::size_t mark = std::min(digits.find_first_of("eE"), digits.size());
    const std::size_t point = std::min(digits.find('.'), mark);
    const std::size_t first = digits.find_first_of("123456789");
    const double places = static_cast<double>(point) - static_cast<double>(first);

    const bool negative =
        digits.substr(mark).starts_with("e-") || digits.substr(mark).starts_with("E-");
    double power = 0.0;
    for (const char c : digits.substr(mark)) {
        if (isDigit(c))
            power = std::min(power * 10.0 + (c - '0'), 1e300);
    }
    return places + (negative ? -power : power) < 0.0;
}

/// Value of a text that is all digits with a point among them, as a log's coordinates are; nothing
/// for any other number. Digits and power of ten are both exact, so their quotient is the nearest
/// double, as from_chars gives it in several times the time.
std::optional<double> plainDecimal(std::string_view text) {
    constexpr std::size_t longest = 16; // 15 digits and a point
    if (text.size() > longest)
        return std::nullopt;
    std::int64_t digits = 0;
    std::size_t point = text.size();
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isDigit(text[i])) {
            digits = digits * 10 + (text[i] - '0');
        } else if (text[i] == '.' && point == text.size()) {
            point = i;
        } else {
            return std::nullopt;
        }
    }
    const std::size_t places = point == text.size() ? 0 : text.size() - point - 1;
    return static_cast<double>(digits) / powersOfTen[places];
}

} // namespace

double roundHalfEven(double value, int decimals) {
    constexpr double wholeBeyond = 9007199254740992.0; // 2^53: no fraction left to round
    if (!(std::abs(value) < wholeBeyond))
        return value;
    const double scale = powersOfTen[static_cast<std::size_t>(decimals)];
    return roundHalfEven(value * scale) / scale + 0.0;
}

std::optional<double> leadingNumber(std::string_view text) {
    const std::size_t start = text.find_first_not_of(' ');
    if (start == std::string_view::npos)
        return std::nullopt;
    text.remove_prefix(start);
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+')
        text.remove_prefix(1);

    // Only digits and a point may begin it: from_chars alone would take "inf" and "nan" too.
    const bool begins = !text.empty() && (isDigit(text[0]) ||
                                          (text[0] == '.' && text.size() > 1 && isDigit(text[1])));
    if (!begins)
        return std::nullopt;

    if (const std::optional<double> plain = plainDecimal(text))
        return negative ? -*plain : *plain;
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) {
        const std::string_view digits(text.data(), static_cast<std::size_t>(end - text.data()));
        value = belowOne(digits) ? 0.0 : std::numeric_limits<double>::max();
    }
    return negative ? -value : value;
}

double numberValue(std::string_view text) { return leadingNumber(text).value_or(0.0); }

double coordinateValue(std::string_view text) {
    if (text.find(' ') == std::string_view::npos)
        return numberValue(text);
    std::string closed(text);
    std::erase(closed, ' ');
    return numberValue(closed);
}

bool isPlainDecimal(std::string_view text) {
    if (!text.empty() && (text.front() == '-' || text.front() == '+'))
        text.remove_prefix(1);
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::string_view whole = text.substr(0, point);
    const std::string_view fraction = text.substr(std::min(point + 1, text.size()));
    return !(whole.empty() && fraction.empty()) &&
           std::all_of(whole.begin(), whole.end(), isDigit) &&
           std::all_of(fraction.begin(), fraction.end(), isDigit);
}

std::string decimalText(double value) { return shortestFixed(value + 0.0); }

std::string decimalText(float value) { return shortestFixed(value + 0.0F); }

std::string fixedText(double value, int places) {
    std::array<char, 400> buffer; // the largest double has 309 digits
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::fixed, places);
    std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
    if (text.find('.') != std::string_view::npos) {
        text = text.substr(0, text.find_last_not_of('0') + 1);
        text.remove_suffix(text.ends_with('.') ? 1 : 0);
    }
    return std::string(text == "-0" ? "0" : text);
}

std::string generalText(double value) {
    constexpr int significantDigits = 15;
    std::array<char, 32> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value + 0.0,
                                   std::chars_format::general, significantDigits);
    return {buffer.data(), end.ptr};
}

} // namespace tovrel
