#pragma once

#include "engine/DOUBLE2.h"
#include "engine/RECT2.h"

/// Takes what an object of the game remembers, field by field, for a trace of a play. A class names its fields once, in
/// its Report; one that is made of parts lets each part report too, all under names that differ. The order does not
/// count.
class StateReport {
public:
    virtual ~StateReport() = default;
    virtual void Add(char const* name, bool claim) = 0;
    virtual void Add(char const* name, int number) = 0;
    virtual void Add(char const* name, double number) = 0;
    virtual void Add(char const* name, DOUBLE2 point) = 0;
    virtual void Add(char const* name, RECT2 box) = 0;
};
