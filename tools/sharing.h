/// @file
/// Use counts: what copies of a control share is freed once, by the last that lets go.
#pragma once

#include <map>
#include <new>
#include <string_view>

#include "tools/lock.h"

namespace galdren {

/// What a counted address stands for; handles and memory could be equal numbers.
enum class Thing : unsigned char { Array, Font, Region };

/// Notes more holders of `thing`. Null is ignored.
/// @param lock  of who has it already
void Share(Thing kind, const void* thing, unsigned holders = 1, const Drawing_Lock& lock = Drawing_Lock());

/// Whether `thing` has more than one holder.
bool Is_Shared(Thing kind, const void* thing);

/// Takes one holder away.
/// @param lock  of who has it already
/// @return true when it was the last, who now has to free the thing; false for null
bool Let_Go(Thing kind, const void* thing, const Drawing_Lock& lock = Drawing_Lock());

/// Whether a thing is still what it is noted as: an application may have deleted a handle that it shares.
bool Is_Alive(Thing kind, const void* thing);

/// Forgets the holders of a thing that is gone.
void Forget(Thing kind, const void* thing);

/// A copy of a text in an array of bytes of its own; null when the memory cannot be had.
char* Duplicate(std::string_view text);

/// Things made to order: whoever asks for an equal one gets the one that is already there.
///
/// A thing that cannot be noted for lack of memory is simply not shared.
template <Thing kind, class Key, class Value>
class Pool {
  public:
    /// The thing that answers `key`, which the caller then holds. `make` makes it when there is none and may
    /// fail with null.
    template <class Make>
    Value Acquire(const Key& key, Make make) {
        const Drawing_Lock lock;
        const auto found = by_key.find(key);
        if (found != by_key.end() && Is_Alive(kind, found->second)) {
            Share(kind, found->second, 1, lock);
            return found->second;
        }
        if (found != by_key.end()) Drop(found);
        const Value value = make();
        if (value) Note(key, value);
        return value;
    }

    /// What the pool's thing `value` was made for; null when it does not come from here.
    const Key* Key_Of(Value value) const {
        Drawing_Lock lock;
        const auto found = by_value.find(value);
        return found == by_value.end() ? nullptr : &found->second->first;
    }

    /// Lets go of `value`, from this pool or not.
    /// @return true when the caller has to free it
    bool Release(Value value) {
        if (!value) return false;
        const Drawing_Lock lock;
        if (!Let_Go(kind, value, lock)) return false;
        const auto found = by_value.find(value);
        if (found != by_value.end()) {
            by_key.erase(found->second);
            by_value.erase(found);
        }
        return true;
    }

  private:
    using Places = std::map<Key, Value>;

    void Drop(typename Places::iterator place) {
        Forget(kind, place->second);
        by_value.erase(place->second);
        by_key.erase(place);
    }

    void Note(const Key& key, Value value) try {
        const auto place = by_key.emplace(key, value).first;
        try {
            by_value.emplace(value, place);
        } catch (const std::bad_alloc&) {
            by_key.erase(place);
        }
    } catch (const std::bad_alloc&) {
        return;
    }

    Places by_key;
    std::map<Value, typename Places::iterator> by_value;
};

/// Assignment in terms of copy construction, for classes without virtual members whose copies share.
template <class Control>
Control& Reassign(Control& self, const Control& other) {
    if (&self != &other) {
        self.~Control();
        new (&self) Control(other);
    }
    return self;
}

}  // namespace galdren
