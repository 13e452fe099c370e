/// @file
/// What the library asks of the system: calls, handles, reports.
#pragma once

#include <windows.h>

#include <map>
#include <string>

namespace galdren_test {

/// While it lives, counts the calls that Galdren_Tools makes to GDI, to USER and for memory, and lets one
/// fail. The import table of the loaded library leads through it; the tests' own calls are not seen.
class Call_Spy {
  public:
    /// @param library  whose calls to watch
    /// @param all      of every function, and not of those to GDI, to USER and for memory alone
    explicit Call_Spy(const char* library = "Galdren_Tools.dll", bool all = false);
    ~Call_Spy();
    Call_Spy(const Call_Spy&) = delete;
    Call_Spy& operator=(const Call_Spy&) = delete;

    /// Calls of `function` since the spy came or was reset; 0 when the library does not import it.
    long long Count(const char* function) const;
    /// Contexts of windows taken since then.
    long long Contexts() const { return Count("GetDC") + Count("GetDCEx"); }
    void Reset();
    /// Makes the call of `function` that comes after `passed` more answer 0 instead of doing its work.
    void Fail(const char* function, int passed = 0);
    /// Makes it answer `answer` when it fails.
    void Set_Answer(const char* function, long long answer) { entries_.at(function).answer = answer; }
    /// The functions that have been called, with the number of calls.
    std::map<std::string, long long> Called() const;
    /// Makes the allocation that comes after `passed` more fail.
    void Fail_Allocation(int passed = 0);
    /// Makes every call of `function` answer 0 from now on, until the spy goes.
    void Fail_Every(const char* function);
    /// The same for every allocation.
    void Fail_Every_Allocation();

  private:
    /// Laid out for the machine code in front of each function.
    struct Entry {
        volatile long long count;
        long long failing;
        ULONGLONG real;
        long long answer;
        ULONGLONG* slot;
    };
    void Lead_Through(const char* function, ULONGLONG* slot);

    std::map<std::string, Entry, std::less<>> entries_;
    BYTE* code_;
    BYTE* free_code_;
};

/// Number of live GDI objects of this process.
int Gdi_Objects();
/// Blocks that the C runtime's heap holds, and those of the allocator of checked builds.
int Live_Blocks();

/// While it lives, takes the reports of both libraries, of every level.
class Report_Catcher {
  public:
    Report_Catcher();
    ~Report_Catcher();
    Report_Catcher(const Report_Catcher&) = delete;
    Report_Catcher& operator=(const Report_Catcher&) = delete;

    /// The texts caught since the last call, joined by '|', each as "level:text".
    std::string Take();
};

}  // namespace galdren_test
