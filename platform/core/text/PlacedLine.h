#pragma once

#include "platform/Text.h"

#include <cstddef>
#include <vector>

namespace platform {

/// A line that knows all its places, and so where words begin and where a caret may stand; what is left to a library is
/// to say where on the screen they are.
class PlacedLine : public TextLine {
public:
    std::size_t PlaceAfter(std::size_t place) const override;
    std::size_t PlaceBefore(std::size_t place) const override;
    std::size_t WordAfter(std::size_t place) const override;
    std::size_t WordBefore(std::size_t place) const override;
    Range WordAround(std::size_t place) const override;

protected:
    struct Place {
        int byte = 0; // in the text as UTF-8
        bool isCaretStop = false;
        bool isWordStart = false;
        bool isWordEnd = false;
    };

    std::size_t End() const { return places.size() - 1; }
    int ByteAt(std::size_t place) const;
    /// The first place at `byte` or after it.
    std::size_t PlaceOf(int byte) const;

    std::vector<Place> places; // one for every index of the text, and the end

private:
    template <class Predicate>
    std::size_t After(std::size_t place, Predicate isWanted) const;
    template <class Predicate>
    std::size_t Before(std::size_t place, Predicate isWanted) const;
};

} // namespace platform
