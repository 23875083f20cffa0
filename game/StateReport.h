#pragma once

#include "engine/DOUBLE2.h"
#include "engine/RECT2.h"

/// Takes the fields of the game's objects, for the trace of a play. A class adds its fields in its Report and then
/// calls the Report of its parts; no two fields of an object have the same name. Their order does not matter.
class StateReport {
public:
    virtual ~StateReport() = default;
    virtual void Add(char const* name, bool claim) = 0;
    virtual void Add(char const* name, int number) = 0;
    virtual void Add(char const* name, double number) = 0;
    virtual void Add(char const* name, DOUBLE2 point) = 0;
    virtual void Add(char const* name, RECT2 box) = 0;
};
