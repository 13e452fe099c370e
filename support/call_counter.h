/// @file
/// Counts the calls of a loaded library that paint or take a device context.
#pragma once

#include <windows.h>

#include <vector>

namespace support {

/// For its lifetime every call that `module` makes to gdi32, and those to user32 that give a device context
/// or paint, is counted on its way. 64-bit Intel code only.
class Call_Counter {
  public:
    explicit Call_Counter(HMODULE module);
    ~Call_Counter();
    Call_Counter(const Call_Counter&) = delete;
    Call_Counter& operator=(const Call_Counter&) = delete;

    /// Number of functions that are counted.
    int Functions() const { return static_cast<int>(hooks.size()); }
    /// Calls since the counter was made or reset.
    long long Calls() const { return contexts + others; }
    /// Those among them that took the device context of a window.
    long long Contexts() const { return contexts; }
    void Reset() {
        contexts = 0;
        others = 0;
    }

  private:
    struct Hook {
        void** slot;
        void* original;
    };

    void Hook_Imports_From(BYTE* module, const IMAGE_IMPORT_DESCRIPTOR& imports);
    void* Make_Stub(void* target, const volatile LONG64& count);
    static void Set_Slot(void** slot, void* function);

    volatile LONG64 contexts = 0;
    volatile LONG64 others = 0;
    BYTE* code = nullptr;
    std::size_t code_used = 0;
    std::vector<Hook> hooks;
};

}  // namespace support
