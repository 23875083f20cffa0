#include "tools/level_check/Findings.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

void Findings::Add(const std::string& text, RECT2 place) { findings.push_back({text, place}); }

void Findings::Print() const {
    for (const Finding& finding : findings) {
        if (HasBox(finding.place)) {
            std::printf("(%g, %g): %s\n", finding.place.left, finding.place.top, finding.text.c_str());
        } else {
            std::printf("%s\n", finding.text.c_str());
        }
    }
}

bool Findings::SavePicture(platform::Picture level, const std::string& path) const {
    constexpr std::uint32_t red = 0xffff0000U;
    constexpr int distance = 4; // between a place and its frame
    for (const Finding& finding : findings) {
        if (!HasBox(finding.place)) continue;
        const int left = std::clamp(static_cast<int>(std::floor(finding.place.left)) - distance, 0, level.width - 1);
        const int top = std::clamp(static_cast<int>(std::floor(finding.place.top)) - distance, 0, level.height - 1);
        const int right = std::clamp(static_cast<int>(std::ceil(finding.place.right)) + distance, 0, level.width - 1);
        const int bottom =
            std::clamp(static_cast<int>(std::ceil(finding.place.bottom)) + distance, 0, level.height - 1);
        for (int x = left; x <= right; ++x) level.At(x, top) = level.At(x, bottom) = red;
        for (int y = top; y <= bottom; ++y) level.At(left, y) = level.At(right, y) = red;
    }
    return platform::SavePng(path, level);
}
