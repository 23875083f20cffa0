#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The 64-bit FNV-1a hash of bytes; the same on every machine.
class Hash {
public:
    void Add(std::string_view text) {
        for (const char byte : text) AddByte(static_cast<unsigned char>(byte));
    }
    /// Lowest byte first.
    void Add(std::uint32_t number) {
        for (int shift = 0; shift < 32; shift += 8) AddByte(static_cast<unsigned char>(number >> shift));
    }
    /// 16 hexadecimal digits.
    std::string Text() const {
        std::string text;
        for (int shift = 60; shift >= 0; shift -= 4) text += "0123456789abcdef"[value >> shift & 15];
        return text;
    }

private:
    void AddByte(unsigned char byte) { value = (value ^ byte) * 0x100000001B3U; }

    std::uint64_t value = 0xCBF29CE484222325U;
};
