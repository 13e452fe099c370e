/// @file
/// Keeps the system from asking the user for a medium.
#pragma once

#include <windows.h>

namespace galdren {

/// While it lives, a drive without a medium is an error like any other to this thread, not a question to the
/// user.
class Silent_Drives {
  public:
    Silent_Drives() { SetThreadErrorMode(GetThreadErrorMode() | SEM_FAILCRITICALERRORS, &before); }
    ~Silent_Drives() { SetThreadErrorMode(before, nullptr); }
    Silent_Drives(const Silent_Drives&) = delete;
    Silent_Drives& operator=(const Silent_Drives&) = delete;

  private:
    DWORD before = 0;
};

}  // namespace galdren
