#include "tests/support/spy.h"

#include <gtest/gtest.h>
#include <malloc.h>
#include <winternl.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <utility>

#include "Galdren_Util.h"

namespace galdren_test {

namespace {

constexpr std::size_t Code_Size = 65536;
constexpr std::size_t Stub_Size = 48;
constexpr long long Never = -1;
constexpr const char* Guarded_Allocator = "VirtualAlloc";  // of checked builds
constexpr const char* Plain_Allocator = "malloc";

bool Is_Among(std::initializer_list<const char*> names, const char* name) {
    return std::ranges::any_of(names, [&](const char* one) { return _stricmp(one, name) == 0; });
}

/// Whether to lead a function through the spy. Other libraries export data too, which must stay as it is.
bool Wanted(const char* library, const char* function, bool all) {
    return Is_Among({"gdi32.dll", "user32.dll"}, library) ||
           (all ? Is_Among({"kernel32.dll", "msvcrt.dll"}, library)
                : Is_Among({Guarded_Allocator, Plain_Allocator, "GlobalAlloc"}, function));
}

void Write_Slot(ULONGLONG* slot, ULONGLONG value) {
    DWORD protection;
    VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
    *slot = value;
    VirtualProtect(slot, sizeof *slot, protection, &protection);
}

std::string Caught;

}  // namespace

Call_Spy::Call_Spy(const char* library_name, bool all)
    : code_(static_cast<BYTE*>(
          VirtualAlloc(nullptr, Code_Size, MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE))),
      free_code_(code_) {
    auto* base = reinterpret_cast<BYTE*>(GetModuleHandleA(library_name));
    auto* file = reinterpret_cast<IMAGE_DOS_HEADER*>(base);
    auto* header = reinterpret_cast<IMAGE_NT_HEADERS64*>(base + file->e_lfanew);
    const auto& imports = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    auto* library = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
    for (; library->Name; ++library) {
        const char* name = reinterpret_cast<const char*>(base + library->Name);
        auto* import = reinterpret_cast<IMAGE_THUNK_DATA64*>(base + library->OriginalFirstThunk);
        auto* slot = reinterpret_cast<IMAGE_THUNK_DATA64*>(base + library->FirstThunk);
        for (; import->u1.AddressOfData; ++import, ++slot) {
            if (IMAGE_SNAP_BY_ORDINAL64(import->u1.Ordinal)) continue;
            const auto* by_name = reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(base + import->u1.AddressOfData);
            const auto* function = reinterpret_cast<const char*>(by_name->Name);
            if (Wanted(name, function, all)) Lead_Through(function, &slot->u1.Function);
        }
    }
}

Call_Spy::~Call_Spy() {
    for (auto& [name, entry] : entries_)
        Write_Slot(entry.slot, entry.real);
    VirtualFree(code_, 0, MEM_RELEASE);
}

void Call_Spy::Lead_Through(const char* function, ULONGLONG* slot) {
    // mov r10, entry; mov eax, 1; lock xadd [r10], rax; cmp rax, [r10 + 8]; jne +5; mov rax, [r10 + 24]; ret;
    // jmp [r10 + 16]. The calling convention leaves r10 and rax free at the entry of a function.
    static constexpr BYTE Stub[] = {0x49, 0xBA, 0,    0,    0,    0,    0,    0,    0,    0,    0xB8, 1,
                                    0,    0,    0,    0xF0, 0x49, 0x0F, 0xC1, 0x02, 0x49, 0x3B, 0x42, 0x08,
                                    0x75, 0x05, 0x49, 0x8B, 0x42, 0x18, 0xC3, 0x41, 0xFF, 0x62, 0x10};
    const auto [place, is_new] = entries_.try_emplace(function, Entry{0, Never, *slot, 0, slot});
    if (!is_new) return;  // one is imported twice
    const auto address = reinterpret_cast<ULONGLONG>(&place->second);
    std::memcpy(free_code_, Stub, sizeof Stub);
    std::memcpy(free_code_ + 2, &address, sizeof address);
    Write_Slot(slot, reinterpret_cast<ULONGLONG>(free_code_));
    free_code_ += Stub_Size;
}

long long Call_Spy::Count(const char* function) const {
    const auto found = entries_.find(function);
    return found == entries_.end() ? 0 : found->second.count;
}

std::map<std::string, long long> Call_Spy::Called() const {
    std::map<std::string, long long> called;
    for (const auto& [name, entry] : entries_)
        if (entry.count > 0) called[name] = entry.count;
    return called;
}

void Call_Spy::Reset() {
    for (auto& [name, entry] : entries_)
        entry.count = 0, entry.failing = Never;
}

void Call_Spy::Fail(const char* function, int passed) {
    const auto found = entries_.find(function);
    ASSERT_NE(found, entries_.end()) << function << " is not imported";
    found->second.failing = found->second.count + passed;
}

void Call_Spy::Fail_Allocation(int passed) {
    // A guarded block takes two calls: one reserves the range, one makes it usable.
    if (entries_.contains(Guarded_Allocator)) return Fail(Guarded_Allocator, 2 * passed);
    Fail(Plain_Allocator, passed);
}

void Call_Spy::Fail_Every(const char* function) {
    void* (*const none)() = [] { return static_cast<void*>(nullptr); };
    Write_Slot(entries_.at(function).slot, reinterpret_cast<ULONGLONG>(none));
}

void Call_Spy::Fail_Every_Allocation() {
    for (const char* allocator : {Plain_Allocator, Guarded_Allocator})
        if (entries_.contains(allocator)) Fail_Every(allocator);
}

int Gdi_Objects() {
    if (const DWORD count = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))
        return static_cast<int>(count);
    // The call may not be implemented; the process's handle table always is.
    struct Handle {
        void* object;
        USHORT owner, count, unique;
        BYTE type, flags;
        void* user;
    };
    constexpr int Table_Size = 0x4000;
    constexpr std::size_t Table_Offset = 0xF8;
    PROCESS_BASIC_INFORMATION information{};
    NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &information, sizeof information,
                              nullptr);
    const auto* process = reinterpret_cast<const BYTE*>(information.PebBaseAddress);
    const Handle* table = *reinterpret_cast<const Handle* const*>(process + Table_Offset);
    int live = 0;
    for (int i = 0; i < Table_Size; ++i)
        live += table[i].type != 0;
    return live;
}

Report_Catcher::Report_Catcher() {
    Caught.clear();
    Error_Set_Level(ERROR_LEVEL_TRACE);
    Error_Set_Handler([](HWND, int level, const char* text) {
        if (!Caught.empty()) Caught += '|';
        Caught += std::to_string(level) + ':' + text;
    });
}

Report_Catcher::~Report_Catcher() {
    Error_Set_Handler(nullptr);
    Error_Set_Level(ERROR_LEVEL_WARNING);
}

std::string Report_Catcher::Take() { return std::exchange(Caught, {}); }

namespace {

/// Blocks of the allocator of checked builds, which are ranges without access but for the block.
int Guarded_Blocks() {
    int count = 0;
    ULONG_PTR address = 0;
    for (MEMORY_BASIC_INFORMATION range;
         VirtualQuery(reinterpret_cast<void*>(address), &range, sizeof range) == sizeof range;
         address = reinterpret_cast<ULONG_PTR>(range.BaseAddress) + range.RegionSize)
        count += range.State == MEM_COMMIT && range.AllocationProtect == PAGE_NOACCESS &&
                 range.Type == MEM_PRIVATE;
    return count;
}

}  // namespace

int Live_Blocks() {
    // The last freed blocks, which the checked heap still watches, count too: it has as many each time.
    constexpr int Most_Watched = 2000;
    for (int i = 0; i < Most_Watched; ++i) {
        void* volatile block = std::malloc(1);
        std::free(block);
    }
    int count = Guarded_Blocks();
    for (_HEAPINFO block{}; _heapwalk(&block) == _HEAPOK;)
        count += block._useflag == _USEDENTRY;
    return count;
}

}  // namespace galdren_test
