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

/// Memory for the entries of the table. Some is there before it is needed: nobody who copies a control can be
/// told that there is none. Without exceptions, for one that is thrown needs memory too.
class Entry_Room {
  public:
    union Block {
        Block* next;
        std::byte room[64];
    };

    /// @return whether there is room for one more entry
    bool Prepare() {
        if (!prepared) prepared = static_cast<Block*>(std::malloc(sizeof(Block)));
        if (!prepared) prepared = From_Reserve();
        return prepared != nullptr;
    }
    void* Take() {
        if (!Prepare()) throw std::bad_alloc();
        return std::exchange(prepared, nullptr);
    }
    void Give_Back(void* room) {
        const std::less<> before;
        if (before(room, reserve) || !before(room, reserve + Most_Reserved)) return std::free(room);
        auto* block = static_cast<Block*>(room);
        block->next = std::exchange(returned, block);
    }

  private:
    Block* From_Reserve() {
        if (returned) return std::exchange(returned, returned->next);
        return used < Most_Reserved ? &reserve[used++] : nullptr;
    }

    static constexpr std::size_t Most_Reserved = 1024;
    Block reserve[Most_Reserved];
    Block* returned;
    Block* prepared;
    std::size_t used;
};

Entry_Room Room;

template <class Entry>
struct Room_Allocator {
    using value_type = Entry;
    Room_Allocator() = default;
    template <class Other>
    Room_Allocator(const Room_Allocator<Other>&) {}
    Entry* allocate(std::size_t) {
        static_assert(sizeof(Entry) <= sizeof(Entry_Room::Block));
        return static_cast<Entry*>(Room.Take());
    }
    void deallocate(Entry* entry, std::size_t) { Room.Give_Back(entry); }
    bool operator==(const Room_Allocator&) const = default;
};

/// Holders of each thing that has more than one; a thing that is not listed has one.
using Address = std::pair<Thing, const void*>;
using Holders =
    std::map<Address, unsigned, std::less<Address>, Room_Allocator<std::pair<const Address, unsigned>>>;

Holders& All_Holders() {
    static Immortal<Holders> holders;
    return *holders;
}

/// Things with a holder that could not be listed, by the places of their addresses. They are never freed: to
/// lose memory is better than to free what another control still paints. The set needs no memory itself, at
/// the price that a thing which happens to share such a place is not freed either.
constexpr int Bits_Of_Place = 16;
std::bitset<std::size_t{1} << Bits_Of_Place> Never_Freed;

std::size_t Place_Of(Thing kind, const void* thing) {
    constexpr std::uint64_t Spread = 0x9E3779B97F4A7C15;
    const std::uint64_t address = reinterpret_cast<std::uintptr_t>(thing);
    return static_cast<std::size_t>((address + static_cast<unsigned char>(kind)) * Spread >>
                                    (64 - Bits_Of_Place));
}

bool Is_Lost(Thing kind, const void* thing) { return Never_Freed[Place_Of(kind, thing)]; }

}  // namespace

void Share(Thing kind, const void* thing, unsigned holders) {
    if (thing) Share(Drawing_Lock(), kind, thing, holders);
}

void Share(const Drawing_Lock&, Thing kind, const void* thing, unsigned holders) {
    if (!thing || holders == 0) return;
    const auto entry = All_Holders().find({kind, thing});
    if (entry != All_Holders().end()) {
        entry->second += holders;
    } else if (Room.Prepare()) {
        All_Holders().try_emplace({kind, thing}, 1 + holders);
    } else {
        Never_Freed.set(Place_Of(kind, thing));
    }
}

bool Is_Shared(Thing kind, const void* thing) {
    Drawing_Lock lock;
    return Is_Lost(kind, thing) || All_Holders().count({kind, thing}) != 0;
}

bool Let_Go(Thing kind, const void* thing) { return thing && Let_Go(Drawing_Lock(), kind, thing); }

bool Let_Go(const Drawing_Lock&, Thing kind, const void* thing) {
    if (!thing) return false;
    if (Is_Lost(kind, thing)) return false;
    const auto entry = All_Holders().find({kind, thing});
    if (entry == All_Holders().end()) return true;
    if (--entry->second == 1) All_Holders().erase(entry);
    return false;
}

bool Is_Alive(Thing kind, const void* thing) {
    const auto handle = static_cast<HGDIOBJ>(const_cast<void*>(thing));
    if (kind == Thing::Font) return GetObjectType(handle) == OBJ_FONT;
    return kind != Thing::Region || GetObjectType(handle) == OBJ_REGION;
}

void Forget(Thing kind, const void* thing) {
    Drawing_Lock lock;
    All_Holders().erase({kind, thing});
}

char* Duplicate(std::string_view text) {
    char* copy = new (std::nothrow) char[text.size() + 1];
    if (!copy) return nullptr;
    std::memcpy(copy, text.data(), text.size());
    copy[text.size()] = '\0';
    return copy;
}

}  // namespace galdren
