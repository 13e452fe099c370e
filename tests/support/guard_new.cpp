// Allocator of checked builds: every block ends at a page without access and loses its memory when it is
// deleted, so an overrun, a use after delete and a second delete stop the program where they happen. Each
// image has an operator new of its own, so this is linked into the library and into the tests.
#include <windows.h>

#include <cstdint>
#include <cstring>
#include <new>

namespace {

constexpr std::size_t Page = 4096;
constexpr std::size_t Largest_Alignment = 16;

/// The size of an object is a multiple of its alignment, so the lowest bit set in the size is alignment
/// enough, and leaves no gap between the block and its guard. Not for Clang: its code counts on 16.
std::size_t Alignment_Of(std::size_t size) {
    const std::size_t lowest = size & (~size + 1);
    return lowest < Largest_Alignment ? lowest : Largest_Alignment;
}

/// A process may have no more than some ten thousands of ranges. Blocks beyond these come from its heap.
constexpr LONG Most_Guarded = 10000;
LONG volatile Live = 0;

void* Guarded(std::size_t size) {
    if (size == 0) size = 1;
    if (InterlockedIncrement(&Live) > Most_Guarded) {
        InterlockedDecrement(&Live);
        return HeapAlloc(GetProcessHeap(), 0, size);
    }
    const std::size_t body = (size + Page - 1) / Page * Page;
    auto* base = static_cast<char*>(VirtualAlloc(nullptr, body + Page, MEM_RESERVE, PAGE_NOACCESS));
    if (!base) return nullptr;
    if (!VirtualAlloc(base, body, MEM_COMMIT, PAGE_READWRITE)) {
        VirtualFree(base, 0, MEM_RELEASE);
        return nullptr;
    }
    constexpr int Unwritten = 0xCD;  // makes a read of memory that was never written show
    std::memset(base, Unwritten, body);
    const std::size_t offset = body - size;
    return base + offset - offset % Alignment_Of(size);
}

/// Blocks deleted last. Their ranges stay reserved, so that a pointer left behind does not become valid
/// again; all of them for ever would be more ranges than a process may have.
constexpr LONG Kept = 4096;
PVOID volatile Deleted[Kept];
LONG volatile Deletions = 0;

void Drop(void* block) {
    if (!block) return;
    MEMORY_BASIC_INFORMATION region;
    VirtualQuery(block, &region, sizeof region);
    if (region.AllocationProtect != PAGE_NOACCESS && region.State == MEM_COMMIT) {
        HeapFree(GetProcessHeap(), 0, block);
        return;
    }
    InterlockedDecrement(&Live);
    if (region.State != MEM_COMMIT) *static_cast<volatile char*>(block) = 0;  // a second delete faults here
    auto* first = static_cast<char*>(region.AllocationBase);
    auto* queried = static_cast<char*>(region.BaseAddress);
    VirtualFree(first, static_cast<std::size_t>(queried - first) + region.RegionSize, MEM_DECOMMIT);
    const LONG place = (InterlockedIncrement(&Deletions) & 0x7FFFFFFF) % Kept;
    if (void* oldest = InterlockedExchangePointer(&Deleted[place], first))
        VirtualFree(oldest, 0, MEM_RELEASE);
}

}  // namespace

void* operator new(std::size_t size) {
    if (void* block = Guarded(size)) return block;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) { return operator new(size); }
void operator delete(void* block) noexcept { Drop(block); }
void operator delete[](void* block) noexcept { Drop(block); }
void operator delete(void* block, std::size_t) noexcept { Drop(block); }
void operator delete[](void* block, std::size_t) noexcept { Drop(block); }
