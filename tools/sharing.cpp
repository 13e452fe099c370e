#include "tools/sharing.h"

#include <windows.h>

#include <cstring>
#include <utility>

namespace galdren {

namespace {

/// Holders of each thing that has more than one; a thing that is not listed has one.
using Holders = std::map<std::pair<Thing, const void*>, unsigned>;

Holders& All_Holders() {
    static Immortal<Holders> holders;
    return *holders;
}

/// Set when a holder could not be noted. From then on nothing is freed: to lose memory is better than to
/// free what another control still paints.
bool Count_Lost = false;

}  // namespace

void Share(Thing kind, const void* thing) {
    if (!thing) return;
    Drawing_Lock lock;
    try {
        ++All_Holders().try_emplace({kind, thing}, 1U).first->second;
    } catch (const std::bad_alloc&) {
        Count_Lost = true;
    }
}

bool Is_Shared(Thing kind, const void* thing) {
    Drawing_Lock lock;
    return Count_Lost || All_Holders().count({kind, thing}) != 0;
}

bool Let_Go(Thing kind, const void* thing) {
    if (!thing) return false;
    Drawing_Lock lock;
    if (Count_Lost) return false;
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
