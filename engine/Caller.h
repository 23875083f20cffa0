#pragma once

#include <vector>

class Callable;

/// What Caller::GetType answers.
enum CallerType : int { callerTextBox = 0, callerButton = 1, callerTimer = 2, callerAudio = 3 };

/// Something that tells its listeners when its event happens. Listeners are not owned: one that goes away must have
/// been removed.
class Caller {
public:
    virtual ~Caller() = default;
    virtual int GetType() const = 0;
    /// False if it listens already; it is then still called once per event.
    virtual bool AddActionListener(Callable* targetPtr);
    /// False if it does not listen.
    virtual bool RemoveActionListener(Callable* targetPtr);
    /// Calls every listener in the order of adding, and returns whether there is any. Listeners may be added and
    /// removed meanwhile: who was removed is not called any more, who was added is called the next time.
    virtual bool CallListeners();

private:
    bool IsListening(Callable const* targetPtr) const;

    std::vector<Callable*> actionListenerPtrs;
};
