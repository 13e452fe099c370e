#include "layout/layout.h"

#include <algorithm>
#include <cstdio>

#include "Galdren_Util.h"

namespace {

void Report_Version(const char* version, std::size_t count, std::size_t own_count) {
    Error_Fct(hwnd, ERROR_LEVEL_FAILURE,
              "Galdren_Tools: the program was compiled with headers of version %s and %u classes, and runs "
              "with %s and %u classes",
              version, static_cast<unsigned>(count), Get_Version_Tools(nullptr),
              static_cast<unsigned>(own_count));
}

}  // namespace

bool Compare_Tools_Layout(const char* version, const Class_Size* classes, std::size_t count) {
    constexpr const auto& own = galdren::Class_Sizes;
    if (!Get_Version_Tools(version) || count != own.size()) {
        Report_Version(version, count, own.size());
        return false;
    }
    char differences[1024] = "";
    std::size_t used = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (classes[i].size == own[i].size) continue;
        const int length = std::snprintf(
            differences + used, sizeof differences - used, "%s%s %u / %u", used ? ", " : "", own[i].name,
            static_cast<unsigned>(classes[i].size), static_cast<unsigned>(own[i].size));
        used = std::min(used + static_cast<std::size_t>(std::max(length, 0)), sizeof differences - 1);
    }
    if (used == 0) return true;
    Error_Fct(hwnd, ERROR_LEVEL_FAILURE,
              "Galdren_Tools: program and library were compiled with different headers, or with another "
              "packing of structures; bytes in the program / in the library: %s",
              differences);
    return false;
}
