#include "engine/Decimal.h"

std::from_chars_result ReadDecimal(std::string_view text, double& value) {
    const bool hasPlus = text.starts_with('+'); // from_chars knows only the other sign
    const std::string_view number = text.substr(hasPlus ? 1 : 0);
    const std::string_view digits = number.substr(!hasPlus && number.starts_with('-') ? 1 : 0);
    const bool isNumber = digits.find_first_of("0123456789.") == 0;
    if (!isNumber) return {text.data(), std::errc::invalid_argument};
    return std::from_chars(number.data(), number.data() + number.size(), value);
}
