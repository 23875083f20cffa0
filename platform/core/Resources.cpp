#include "platform/Resources.h"

namespace platform {

namespace {
const ResourceEntry* firstEntryPtr = nullptr;
}

ResourceEntry::ResourceEntry(int number, std::string_view typeName, std::span<const unsigned char> data)
    : id(number), type(typeName), bytes(data), nextPtr(firstEntryPtr) {
    firstEntryPtr = this;
}

std::span<const unsigned char> FindResource(int id, std::string_view type) {
    for (const ResourceEntry* entryPtr = firstEntryPtr; entryPtr != nullptr; entryPtr = entryPtr->nextPtr) {
        if (entryPtr->id == id && entryPtr->type == type) return entryPtr->bytes;
    }
    return {};
}

} // namespace platform
