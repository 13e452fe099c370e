#include "tools/library.h"

#include <cstdio>
#include <cstring>

#include "tools/cleanup.h"

namespace {

constexpr char Revision[] = "a";

/// Newest first; each entry stands in the unit that asks for it.
galdren::Cleanup* First_Cleanup = nullptr;

}  // namespace

namespace galdren {

Cleanup::Cleanup(void (*action)()) : release(action), next(First_Cleanup) { First_Cleanup = this; }

}  // namespace galdren

char* Get_Version_Tools(const char* wanted) {
    if (wanted && std::strcmp(wanted, Tools_Version()) != 0) return nullptr;
    static char text[256];
    std::snprintf(text, sizeof text, "Galdren_Tools.dll %s (rev-%s)", Tools_Version(), Revision);
    return text;
}

void Tools_Lib_Cleanup() {
    for (const galdren::Cleanup* entry = First_Cleanup; entry; entry = entry->next)
        entry->release();
}
