#pragma once

#include <iosfwd>
#include <string>

/// The first difference of two traces, tick and field with both values; "" if they are the same.
std::string FirstDifference(std::istream& old, std::istream& changed);
