#include "tools/lock.h"

#include <windows.h>

#include "tools/globals.h"

namespace galdren {

namespace {

BOOL CALLBACK Make_Lock(INIT_ONCE*, void*, void**) {
    InitializeCriticalSection(&Critical);
    Critical_Flag = 1;
    return TRUE;
}

}  // namespace

void Enter_Lock() {
    static INIT_ONCE once = INIT_ONCE_STATIC_INIT;
    if (!Critical_Flag) InitOnceExecuteOnce(&once, Make_Lock, nullptr, nullptr);
    EnterCriticalSection(&Critical);
}

void Leave_Lock() { LeaveCriticalSection(&Critical); }

bool Holds_Lock() {
    return Critical_Flag &&
           Critical.OwningThread == reinterpret_cast<HANDLE>(ULONG_PTR{GetCurrentThreadId()});
}

}  // namespace galdren
