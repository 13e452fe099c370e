#include "util/program.h"

#include <string_view>

#include "util/code_page.h"
#include "util/program_name.h"

namespace {

constexpr int Longest = 4 * MAX_PATH;  // bytes

/// Path of the file that `module` was loaded from; null stands for the program itself. Empty when it is
/// longer than a path can be.
class Module_Path {
  public:
    explicit Module_Path(HMODULE module) {
        const DWORD length = GetModuleFileNameW(module, units, MAX_PATH);
        if (length < MAX_PATH) whole = {units, length};
    }
    /// With a backslash at its end.
    std::wstring_view Directory() const { return whole.substr(0, whole.rfind(L'\\') + 1); }
    /// Without directory and extension.
    std::wstring_view Name() const {
        const std::wstring_view file = whole.substr(Directory().size());
        return file.substr(0, file.rfind(L'.'));
    }

  private:
    wchar_t units[MAX_PATH];
    std::wstring_view whole;
};

/// The module that holds this code: the DLL, or the program when linked statically.
HMODULE This_Module() {
    HMODULE module = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const char*>(&This_Module), &module);
    return module;
}

const char* Write(std::wstring_view wide, char (&text)[Longest]) {
    text[Text_From_Wide(wide.data(), static_cast<int>(wide.size()), text, Longest - 1)] = '\0';
    return text;
}

const char* Directory_Of_Library() {
    static char text[Longest];
    return Write(Module_Path(This_Module()).Directory(), text);
}

const char* Name_Of_Program() {
    static char text[Longest];
    return Write(Module_Path(nullptr).Name(), text);
}

}  // namespace

void galdren::Name_Program() {
    Directory_Of_Library();
    Name_Of_Program();
}

HWND hwnd = nullptr;
const char* Inst_Path = Directory_Of_Library();
const char* Prog_Name = Name_Of_Program();
