#pragma once

#include <vector>

class Callable;

/// What Caller::GetType answers.
enum CallerType : int { callerTextBox = 0, callerButton = 1, callerTimer = 2, callerAudio = 3 };

/// Something that tells its listeners when its event happens. Listeners are not owned: one that goes away must have
/// been removed.
class Caller {
public:
    Caller() = default;
    virtual ~Caller();
    Caller(Caller const&) = delete;
    Caller& operator=(Caller const&) = delete;
    virtual int GetType() const = 0;
    /// False if it listens already, and is then still called once per event, or is null.
    virtual bool AddActionListener(Callable* targetPtr);
    /// False if it does not listen.
    virtual bool RemoveActionListener(Callable* targetPtr);
    /// Calls every listener in the order of adding, and returns whether there is any. Listeners may be added and
    /// removed meanwhile: who was removed is not called any more, who was added is called the next time. A listener may
    /// even delete the caller; nobody else is called then.
    virtual bool CallListeners();

private:
    bool IsListening(Callable const* targetPtr) const;

    std::vector<Callable*> actionListenerPtrs;
    bool* isGonePtr = nullptr; // set to true at the end, for the running CallListeners
};
