/// @file
/// The process-wide drawing lock as a scope, and objects that live as long as the process.
#pragma once

#include <new>

namespace galdren {

/// Enters `Critical`, which the first call makes. Re-entrant on its thread.
void Enter_Lock();
void Leave_Lock();

/// Whether this thread is inside the lock, so that a call that only ends something cannot end another's.
bool Holds_Lock();

/// Holds the lock for a scope.
class Drawing_Lock {
  public:
    Drawing_Lock() { Enter_Lock(); }
    ~Drawing_Lock() { Leave_Lock(); }
    Drawing_Lock(const Drawing_Lock&) = delete;
    Drawing_Lock& operator=(const Drawing_Lock&) = delete;
};

/// The one object of a type, which lives as long as the process. Controls in static storage may outlive the
/// library's other static objects, and still have to let go of what they share.
template <class Object>
Object& The() {
    alignas(Object) static unsigned char storage[sizeof(Object)];
    static Object* const object = new (storage) Object;
    return *object;
}

}  // namespace galdren
