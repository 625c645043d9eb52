#include "base/Numbers.h"

#include "base/Failure.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace quillmark {

namespace {

constexpr std::string_view Digits = "0123456789";

/// The leading digits, with one "." and further digits. from_chars would also read "inf", "nan" and
/// exponents, which no listing or settings file means as a number.
std::string_view plainDecimalPrefix(std::string_view text) {
    std::size_t end = std::min(text.find_first_not_of(Digits), text.size());
    if (end < text.size() && text[end] == '.') {
        end = std::min(text.find_first_not_of(Digits, end + 1), text.size());
    }
    return text.substr(0, end);
}

} // namespace

double leadingNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    const std::string_view digits = plainDecimalPrefix(text);
    double number = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number,
                                      std::chars_format::fixed);
    // A number out of range is huge, or a fraction too close to 0. Only a huge one has a digit
    // other than 0 before the point.
    if (read.ec == std::errc::result_out_of_range &&
        digits.find_first_not_of("0.") < digits.find('.')) {
        number = std::numeric_limits<double>::max();
    }
    return negative ? -number : number;
}

std::int16_t toInt16(double number) {
    const double rounded = std::nearbyint(number);
    if (rounded < std::numeric_limits<std::int16_t>::min() ||
        rounded > std::numeric_limits<std::int16_t>::max()) {
        throw overflow();
    }
    return static_cast<std::int16_t>(rounded);
}

std::int32_t toInt32Held(double number) {
    return static_cast<std::int32_t>(std::clamp(std::nearbyint(number),
                                                -double{std::numeric_limits<std::int32_t>::max()},
                                                double{std::numeric_limits<std::int32_t>::max()}));
}

std::string zeroPadded(std::int64_t number, int digits) {
    std::string text = std::to_string(std::abs(number));
    if (text.size() < static_cast<std::size_t>(digits)) {
        text.insert(0, static_cast<std::size_t>(digits) - text.size(), '0');
    }
    return number < 0 ? "-" + text : text;
}

} // namespace quillmark
