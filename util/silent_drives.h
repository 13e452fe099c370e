/// @file
/// Keeps the system from asking the user for a medium.
#pragma once

#include <windows.h>

namespace galdren {

/// While it lives, a drive without a medium is an error like any other, not a question to the user.
class Silent_Drives {
  public:
    Silent_Drives() : before(GetErrorMode()) { SetErrorMode(before | SEM_FAILCRITICALERRORS); }
    ~Silent_Drives() { SetErrorMode(before); }
    Silent_Drives(const Silent_Drives&) = delete;
    Silent_Drives& operator=(const Silent_Drives&) = delete;

  private:
    UINT before;
};

}  // namespace galdren
