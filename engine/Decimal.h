#pragma once

#include <charconv>
#include <string_view>

/// Reads the decimal number (sign, digits, point, exponent) at the start of `text`, in every locale alike: as
/// std::from_chars does, but with a plus sign as well and without words such as "inf".
std::from_chars_result ReadDecimal(std::string_view text, double& value);
