#include "tools/sharing.h"

#include <windows.h>

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <utility>

namespace galdren {

namespace {

/// Room for the next entry of the table, asked for beforehand: nobody who copies a control can be told that
/// there is no memory, and an exception that is thrown needs some too.
void* Prepared = nullptr;
constexpr std::size_t Room_For_Entry = 64;

bool Prepare() {
    if (!Prepared) Prepared = std::malloc(Room_For_Entry);
    return Prepared != nullptr;
}

template <class Entry>
struct Prepared_Allocator {
    using value_type = Entry;
    Prepared_Allocator() = default;
    template <class Other>
    Prepared_Allocator(const Prepared_Allocator<Other>&) {}
    Entry* allocate(std::size_t) {
        static_assert(sizeof(Entry) <= Room_For_Entry);
        if (!Prepare()) throw std::bad_alloc();
        return static_cast<Entry*>(std::exchange(Prepared, nullptr));
    }
    void deallocate(Entry* entry, std::size_t) { std::free(entry); }
    bool operator==(const Prepared_Allocator&) const = default;
};

/// Holders of each thing that has more than one; a thing that is not listed has one.
using Address = std::pair<Thing, const void*>;
using Holders =
    std::map<Address, unsigned, std::less<>, Prepared_Allocator<std::pair<const Address, unsigned>>>;

/// Things with a holder that could not be listed, by the places of their addresses. They are never freed: to
/// lose memory is better than to free what another control still paints. The set needs no memory itself, at
/// the price that a thing which happens to share such a place is not freed either.
constexpr int Bits_Of_Place = 16;
std::bitset<std::size_t{1} << Bits_Of_Place> Never_Freed;

/// Mixed more than once: blocks that lie in rows would else meet by rows.
std::size_t Place_Of(Thing kind, const void* thing) {
    constexpr std::uint64_t Spread = 0x9E3779B97F4A7C15;
    std::uint64_t mixed = reinterpret_cast<std::uintptr_t>(thing) + static_cast<unsigned char>(kind);
    for (int round = 0; round < 3; ++round)
        mixed = (mixed ^ mixed >> 32) * Spread;
    return static_cast<std::size_t>(mixed >> (64 - Bits_Of_Place));
}

bool Is_Lost(Thing kind, const void* thing) { return Never_Freed[Place_Of(kind, thing)]; }

}  // namespace

void Share(Thing kind, const void* thing, unsigned holders, const Drawing_Lock&) {
    if (!thing || holders == 0) return;
    const auto entry = The<Holders>().find({kind, thing});
    if (entry != The<Holders>().end()) {
        entry->second += holders;
    } else if (Prepare()) {
        The<Holders>().try_emplace({kind, thing}, 1 + holders);
        Prepare();  // for the next one, should there be no memory just then
    } else {
        Never_Freed.set(Place_Of(kind, thing));
    }
}

bool Is_Shared(Thing kind, const void* thing) {
    Drawing_Lock lock;
    return Is_Lost(kind, thing) || The<Holders>().contains({kind, thing});
}

bool Let_Go(Thing kind, const void* thing, const Drawing_Lock&) {
    if (!thing || Is_Lost(kind, thing)) return false;
    const auto entry = The<Holders>().find({kind, thing});
    if (entry == The<Holders>().end()) return true;
    if (--entry->second == 1) The<Holders>().erase(entry);
    return false;
}

bool Is_Alive(Thing kind, const void* thing) {
    const auto handle = static_cast<HGDIOBJ>(const_cast<void*>(thing));
    if (kind == Thing::Font) return GetObjectType(handle) == OBJ_FONT;
    return kind != Thing::Region || GetObjectType(handle) == OBJ_REGION;
}

void Forget(Thing kind, const void* thing) {
    Drawing_Lock lock;
    The<Holders>().erase({kind, thing});
}

char* Duplicate(std::string_view text) {
    char* copy = new (std::nothrow) char[text.size() + 1];
    if (!copy) return nullptr;
    std::memcpy(copy, text.data(), text.size());
    copy[text.size()] = '\0';
    return copy;
}

}  // namespace galdren
