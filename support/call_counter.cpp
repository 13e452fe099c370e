#include "support/call_counter.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace support {

namespace {

constexpr std::size_t Code_Size = 0x10000;

/// Functions of user32 that give the device context of a window.
constexpr const char* context_functions[] = {"BeginPaint", "GetDC", "GetDCEx", "GetWindowDC"};
/// Others of user32 that paint, or have something painted.
constexpr const char* painting_functions[] = {"DrawTextA",    "DrawTextW",      "FillRect",
                                              "FrameRect",    "InvertRect",     "InvalidateRect",
                                              "RedrawWindow", "TabbedTextOutA", "TabbedTextOutW"};

bool Is_Among(const auto& functions, const char* function) {
    return std::any_of(std::begin(functions), std::end(functions),
                       [&](const char* name) { return std::strcmp(name, function) == 0; });
}

}  // namespace

Call_Counter::Call_Counter(HMODULE module)
    : code(static_cast<BYTE*>(
          VirtualAlloc(nullptr, Code_Size, MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE))) {
    BYTE* base = reinterpret_cast<BYTE*>(module);
    if (!base || !code) return;
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (!directory.VirtualAddress) return;
    const auto* imports = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
    for (; imports->Name; ++imports)
        Hook_Imports_From(base, *imports);
}

Call_Counter::~Call_Counter() {
    for (const Hook& hook : hooks)
        Set_Slot(hook.slot, hook.original);
    if (code) VirtualFree(code, 0, MEM_RELEASE);
}

void Call_Counter::Hook_Imports_From(BYTE* module, const IMAGE_IMPORT_DESCRIPTOR& imports) {
    const char* library = reinterpret_cast<const char*>(module + imports.Name);
    const bool is_gdi = _stricmp(library, "gdi32.dll") == 0;
    if (!is_gdi && _stricmp(library, "user32.dll") != 0) return;
    const auto* name = reinterpret_cast<const IMAGE_THUNK_DATA*>(module + imports.OriginalFirstThunk);
    auto* address = reinterpret_cast<IMAGE_THUNK_DATA*>(module + imports.FirstThunk);
    for (; name->u1.AddressOfData; ++name, ++address) {
        if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
        const auto* by_name = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(module + name->u1.AddressOfData);
        const char* function = reinterpret_cast<const char*>(by_name->Name);
        const bool gives_context = !is_gdi && Is_Among(context_functions, function);
        if (!is_gdi && !gives_context && !Is_Among(painting_functions, function)) continue;
        void** slot = reinterpret_cast<void**>(&address->u1.Function);
        hooks.push_back({slot, *slot});
        Set_Slot(slot, Make_Stub(*slot, gives_context ? contexts : others));
    }
}

/// A few bytes of machine code that count and go on to `target`, whatever its parameters are; rax and r10
/// carry none in the calling convention.
void* Call_Counter::Make_Stub(void* target, const volatile LONG64& count) {
    BYTE stub[] = {0x49, 0xBA, 0,    0,    0, 0, 0, 0, 0, 0,  // mov r10, &count
                   0xF0, 0x49, 0xFF, 0x02,                    // lock inc qword [r10]
                   0x48, 0xB8, 0,    0,    0, 0, 0, 0, 0, 0,  // mov rax, target
                   0xFF, 0xE0};                               // jmp rax
    const volatile LONG64* counter = &count;
    std::memcpy(stub + 2, &counter, sizeof counter);
    std::memcpy(stub + 16, &target, sizeof target);
    if (code_used + sizeof stub > Code_Size) return target;
    BYTE* place = code + code_used;
    std::memcpy(place, stub, sizeof stub);
    code_used += sizeof stub;
    return place;
}

void Call_Counter::Set_Slot(void** slot, void* function) {
    DWORD protection = 0;
    VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
    *slot = function;
    VirtualProtect(slot, sizeof *slot, protection, &protection);
}

}  // namespace support
