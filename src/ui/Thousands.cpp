#include "ui/Thousands.h"

#include <cmath>
#include <locale>
#include <stdexcept>

namespace quillmark {

namespace {

constexpr char UsualSeparator = ',';

} // namespace

std::string groupedThousands(double number, char separator) {
    std::string digits = std::to_string(std::llround(number));
    if (digits == "0") {
        return {};
    }
    for (std::size_t place = digits.size(); place > 3;) {
        place -= 3;
        digits.insert(place, 1, separator);
    }
    return digits;
}

char userThousandsSeparator() {
    try {
        const std::locale user("");
        const auto& numbers = std::use_facet<std::numpunct<char>>(user);
        return numbers.grouping().empty() ? UsualSeparator : numbers.thousands_sep();
    } catch (const std::runtime_error&) {
        // The environment names a locale that is not installed.
        return UsualSeparator;
    }
}

} // namespace quillmark
