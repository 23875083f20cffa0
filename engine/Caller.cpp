#include "engine/Caller.h"

#include "engine/Callable.h"

#include <algorithm>
#include <utility>

Caller::~Caller() {
    if (isGonePtr != nullptr) *isGonePtr = true;
}

bool Caller::AddActionListener(Callable* targetPtr) {
    if (targetPtr == nullptr || IsListening(targetPtr)) return false;
    actionListenerPtrs.push_back(targetPtr);
    return true;
}

bool Caller::RemoveActionListener(Callable* targetPtr) { return std::erase(actionListenerPtrs, targetPtr) > 0; }

bool Caller::CallListeners() {
    const std::vector<Callable*> calledPtrs = actionListenerPtrs;
    bool isGone = false;
    bool* const outerPtr = std::exchange(isGonePtr, &isGone); // a listener may cause the event again
    for (Callable* const targetPtr : calledPtrs) {
        if (IsListening(targetPtr)) targetPtr->CallAction(this);
        if (!isGone) continue;
        if (outerPtr != nullptr) *outerPtr = true;
        return true;
    }
    isGonePtr = outerPtr;
    return !actionListenerPtrs.empty();
}

bool Caller::IsListening(Callable const* targetPtr) const {
    return std::find(actionListenerPtrs.begin(), actionListenerPtrs.end(), targetPtr) != actionListenerPtrs.end();
}
