#pragma once

#include <memory>

/// Keeps the one object of a class. The first Get makes it, Destroy deletes it, and the next Get makes another one. The
/// class has a private constructor, befriends Singleton<itself> and offers Get as its own static GetSingleton.
template <typename Object>
class Singleton {
public:
    static Object* Get() {
        if (!objectPtr) objectPtr.reset(new Object);
        return objectPtr.get();
    }
    static void Destroy() { objectPtr.reset(); }

private:
    inline static std::unique_ptr<Object> objectPtr;
};
