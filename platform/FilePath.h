#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The path, in UTF-8, of a file that the program names with a wide text. Backslashes separate folders as slashes do.
std::string ToFilePath(std::wstring_view fileName);

} // namespace platform
