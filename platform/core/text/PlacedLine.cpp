#include "platform/core/text/PlacedLine.h"

#include <algorithm>

namespace platform {

int PlacedLine::ByteAt(std::size_t place) const { return places[std::min(place, End())].byte; }

std::size_t PlacedLine::PlaceOf(int byte) const {
    const auto found = std::lower_bound(places.begin(), places.end(), byte,
                                        [](const Place& place, int wanted) { return place.byte < wanted; });
    return static_cast<std::size_t>(found - places.begin());
}

std::size_t PlacedLine::PlaceAfter(std::size_t place) const {
    return After(place, [](const Place& candidate) { return candidate.isCaretStop; });
}

std::size_t PlacedLine::PlaceBefore(std::size_t place) const {
    return Before(place, [](const Place& candidate) { return candidate.isCaretStop; });
}

std::size_t PlacedLine::WordAfter(std::size_t place) const {
    return After(place, [](const Place& candidate) { return candidate.isWordStart; });
}

std::size_t PlacedLine::WordBefore(std::size_t place) const {
    return Before(place, [](const Place& candidate) { return candidate.isWordStart; });
}

TextLine::Range PlacedLine::WordAround(std::size_t place) const {
    const auto isEdge = [](const Place& candidate) { return candidate.isWordStart || candidate.isWordEnd; };
    const std::size_t begin = Before(std::min(place + 1, End()), isEdge);
    return {begin, After(begin, isEdge)};
}

template <class Predicate>
std::size_t PlacedLine::After(std::size_t place, Predicate isWanted) const {
    std::size_t candidate = place + 1;
    while (candidate < End() && !isWanted(places[candidate])) ++candidate;
    return std::min(candidate, End());
}

template <class Predicate>
std::size_t PlacedLine::Before(std::size_t place, Predicate isWanted) const {
    std::size_t candidate = std::min(place, End());
    while (candidate > 0) {
        --candidate;
        if (isWanted(places[candidate])) break;
    }
    return candidate;
}

} // namespace platform
