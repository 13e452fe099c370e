#include "footprint.h"

#include <windows.h>

#include <vector>

namespace bench {

namespace {

/// An entry of the table of GDI handles that the system maps into every 64-bit process.
struct Gdi_Entry {
    ULONG64 object;
    USHORT owner;
    USHORT count;
    USHORT unique;
    UCHAR type;  ///< 0 while the entry is free
    UCHAR flags;
    ULONG64 user;
};

constexpr int Gdi_Entries = 0x4000;
constexpr int Table_Offset = 0xF8;  // of the table's address in the process environment block

const Gdi_Entry* Gdi_Table() {
    BYTE* environment = nullptr;
#if defined(_MSC_VER)
    environment = reinterpret_cast<BYTE*>(__readgsqword(0x60));
#else
    __asm__("movq %%gs:0x60, %0" : "=r"(environment));
#endif
    return *reinterpret_cast<const Gdi_Entry**>(environment + Table_Offset);
}

double Busy_Bytes(HANDLE heap) {
    double bytes = 0;
    HeapLock(heap);
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heap, &entry)) {
        if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) bytes += static_cast<double>(entry.cbData);
    }
    HeapUnlock(heap);
    return bytes;
}

}  // namespace

int Count_Gdi_Objects() {
    // Wine answers 0 here and keeps the table.
    const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    if (counted > 0) return static_cast<int>(counted);
    const Gdi_Entry* table = Gdi_Table();
    int live = 0;
    for (int i = 0; i < Gdi_Entries; ++i)
        live += table[i].type != 0;
    return live;
}

double Heap_Bytes() {
    std::vector<HANDLE> heaps(64);
    const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    heaps.resize(count < heaps.size() ? count : heaps.size());
    double bytes = 0;
    for (HANDLE heap : heaps)
        bytes += Busy_Bytes(heap);
    return bytes;
}

}  // namespace bench
