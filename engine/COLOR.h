#pragma once

/// A colour of four 8-bit channels; alpha 0 is transparent, 255 opaque.
struct COLOR {
    unsigned char red;
    unsigned char green;
    unsigned char blue;
    unsigned char alpha;
    constexpr COLOR(unsigned char redPart, unsigned char greenPart, unsigned char bluePart, unsigned char alphaPart)
        : red(redPart), green(greenPart), blue(bluePart), alpha(alphaPart) {}
    friend constexpr bool operator==(COLOR, COLOR) = default;
};
