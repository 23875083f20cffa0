#include "engine/Caller.h"

#include "engine/Callable.h"

#include <algorithm>

bool Caller::AddActionListener(Callable* targetPtr) {
    if (IsListening(targetPtr)) return false;
    actionListenerPtrs.push_back(targetPtr);
    return true;
}

bool Caller::RemoveActionListener(Callable* targetPtr) { return std::erase(actionListenerPtrs, targetPtr) > 0; }

bool Caller::CallListeners() {
    const std::vector<Callable*> calledPtrs = actionListenerPtrs;
    for (Callable* const targetPtr : calledPtrs) {
        if (IsListening(targetPtr)) targetPtr->CallAction(this);
    }
    return !actionListenerPtrs.empty();
}

bool Caller::IsListening(Callable const* targetPtr) const {
    return std::find(actionListenerPtrs.begin(), actionListenerPtrs.end(), targetPtr) != actionListenerPtrs.end();
}
