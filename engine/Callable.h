#pragma once

class Caller;

/// Whoever wants to be told when something happens to a Caller.
class Callable {
public:
    virtual ~Callable() = default;
    virtual void CallAction(Caller* callerPtr) = 0;
};
