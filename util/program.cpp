#include "util/program.h"

#include <cstring>

namespace {

/// Path of the file that `module` was loaded from; null stands for the program itself. Empty when it is
/// longer than a path can be.
struct Module_Path {
    char text[MAX_PATH];
    explicit Module_Path(HMODULE module) {
        const DWORD length = GetModuleFileNameA(module, text, MAX_PATH);
        if (length == 0 || length >= MAX_PATH) text[0] = '\0';
    }
};

/// The module that holds this code: the DLL, or the program when linked statically.
HMODULE This_Module() {
    HMODULE module = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const char*>(&This_Module), &module);
    return module;
}

const char* Directory_Of_Library() {
    static Module_Path path(This_Module());
    if (char* last = std::strrchr(path.text, '\\')) last[1] = '\0';
    return path.text;
}

const char* Name_Of_Program() {
    static Module_Path path(nullptr);
    char* last = std::strrchr(path.text, '\\');
    char* name = last ? last + 1 : path.text;
    if (char* extension = std::strrchr(name, '.')) *extension = '\0';
    return name;
}

}  // namespace

HWND hwnd = nullptr;
const char* Inst_Path = Directory_Of_Library();
const char* Prog_Name = Name_Of_Program();
