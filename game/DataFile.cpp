#include "game/DataFile.h"

#include "engine/GameEngine.h"

#include <cerrno>
#include <climits>
#include <cstdlib>

namespace {
constexpr std::size_t labelLength = 15; // characters

/// Reads the number at the start of `text`; false if there is none or it does not fit. Whatever follows the digits is
/// ignored, also the carriage return of a line that ends with one.
bool ParseInt(char const* text, int& value) {
    char* endPtr = nullptr;
    errno = 0;
    const long number = std::strtol(text, &endPtr, 10);
    if (endPtr == text || errno == ERANGE || number < INT_MIN || number > INT_MAX) return false;
    value = static_cast<int>(number);
    return true;
}
} // namespace

// A folder opens like a file; only reading from it fails.
DataFile::DataFile(char const* path) : file(path), isReadable(file.is_open() && (file.peek(), !file.bad())) {
    if (isReadable) return;
    std::string name = path;
    name.erase(0, name.rfind('/') + 1);
    GameEngine::GetSingleton()->MessageBox(("File <" + name + "> Could not be found!").c_str());
}

bool DataFile::ReadRecord(std::string_view closingLabel, DataRecord& record) {
    while (ReadField()) {
        if (label == "PositionX:     ") pendingX = value;
        if (label == "PositionY:     ") pendingY = value;
        if (label != closingLabel || pendingX == 0 || pendingY == 0) continue;
        record = {pendingX, pendingY, value};
        pendingX = pendingY = 0;
        return true;
    }
    return false;
}

bool DataFile::ReadField() {
    while (isReadable && std::getline(file, text)) {
        if (text.size() < labelLength || !ParseInt(text.c_str() + labelLength, value)) continue;
        label = std::string_view(text).substr(0, labelLength);
        return true;
    }
    return false;
}
