#pragma once

#include "engine/Bitmap.h"
#include "engine/DOUBLE2.h"
#include "engine/MATRIX3X2.h"
#include "engine/RECT2.h"

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

class StateReport;

/// Things of the level in numbered slots. A number belongs to the same thing for the whole game; a deleted thing leaves
/// its slot empty. Operations on an empty slot, or on a number after the last one, do nothing.
template <typename Thing>
class SlotList {
public:
    SlotList(const SlotList&) = delete;
    SlotList& operator=(const SlotList&) = delete;

    void Paint(MATRIX3X2 matView) {
        ForEach([&](Thing& thing) { thing.Paint(matView); });
    }
    void PaintDebug(MATRIX3X2 matView) {
        ForEach([&](Thing& thing) { thing.PaintDebug(matView); });
    }

    // By number, from 0

    void Move(int index, DOUBLE2 delta) {
        if (Thing* const thingPtr = At(index)) thingPtr->Move(delta);
    }
    void ResetVelocity(int index, bool horizontal, bool vertical) {
        if (Thing* const thingPtr = At(index)) thingPtr->ResetVelocity(horizontal, vertical);
    }
    /// All zero for an empty slot.
    RECT2 GetHitRect(int index) const { return At(index) ? At(index)->GetHitRect() : RECT2(); }
    /// (0, 0) for an empty slot.
    DOUBLE2 GetPosition(int index) const { return At(index) ? At(index)->GetPosition() : DOUBLE2(); }
    /// -1 for an empty slot.
    int GetType(int index) const { return At(index) ? At(index)->GetType() : -1; }
    void Report(int index, StateReport& report) const {
        if (const Thing* const thingPtr = At(index)) thingPtr->Report(report);
    }

protected:
    explicit SlotList(std::size_t expectedCount) { slots.reserve(expectedCount); }
    ~SlotList() = default;

    /// Null for an empty slot.
    Thing* At(int index) const {
        const auto slot = static_cast<std::size_t>(index);
        return slot < slots.size() ? slots[slot].get() : nullptr;
    }
    int CountSlots() const { return static_cast<int>(slots.size()); }
    void Add(std::unique_ptr<Thing> thingPtr) { slots.push_back(std::move(thingPtr)); }
    /// In the order of the slots.
    template <typename Order>
    void ForEach(Order order) {
        for (const auto& thingPtr : slots)
            if (thingPtr) order(*thingPtr);
    }
    /// Deletes the things for which `condition` is true, in the order of the slots.
    template <typename Condition>
    void DeleteWhere(Condition condition) {
        for (auto& thingPtr : slots)
            if (thingPtr && condition(*thingPtr)) thingPtr.reset();
    }

    std::vector<std::unique_ptr<Bitmap>> sheets; // lent to the things below, so declared above them

private:
    std::vector<std::unique_ptr<Thing>> slots;
};
