/// @file
/// The process-wide drawing lock as a scope.
#pragma once

#include <new>
#include <utility>

namespace galdren {

/// Holds `Critical`, which it makes on first use. Re-entrant on its thread.
class Drawing_Lock {
  public:
    Drawing_Lock();
    ~Drawing_Lock();
    Drawing_Lock(const Drawing_Lock&) = delete;
    Drawing_Lock& operator=(const Drawing_Lock&) = delete;
};

/// An object that lives as long as the process. Controls in static storage may outlive the library's other
/// static objects, and still have to let go of what they share.
template <class Object>
class Immortal {
  public:
    Immortal() { new (storage) Object; }
    Immortal(const Immortal&) = delete;
    Immortal& operator=(const Immortal&) = delete;
    Object& operator*() { return *std::launder(reinterpret_cast<Object*>(storage)); }
    Object* operator->() { return &**this; }

  private:
    alignas(Object) unsigned char storage[sizeof(Object)];
};

}  // namespace galdren
