#include "platform/FilePath.h"

#include "platform/Unicode.h"

#include <algorithm>

namespace platform {

std::string ToFilePath(std::wstring_view fileName) {
    std::string path = ToUtf8(fileName);
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

} // namespace platform
