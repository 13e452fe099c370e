/// @file
/// What ties the objects that screen readers hold to the window that they tell of: it knows when the window
/// is gone, and carries questions to the window's thread.
#pragma once

#include <windows.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

#include "parts/part_window.h"

namespace galdren {

class Access_Link;
class Access_Object;

/// Gives one use of an object back.
struct Release_Object {
    void operator()(Access_Object* object) const;
};
using Object_Holder = std::unique_ptr<Access_Object, Release_Object>;

/// What a question is answered with: nothing, a number, a text, a place on the screen or an object.
using Access_Answer = std::variant<std::monostate, long, std::wstring, RECT, Object_Holder>;

/// A question to a window. It may run when whoever asked waits no longer, so it holds all that it needs by
/// value.
using Access_Question = std::function<HRESULT(Access_Link&, Part_Window&, Access_Answer&)>;

/// Runs a function that no exception may leave.
template <class Function>
HRESULT Without_Exceptions(Function function) {
    try {
        return function();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

/// Shared by a window's server and by all objects that clients hold of it, and lives as long as the last.
/// Members may be called on every thread where nothing else is said.
class Access_Link : public std::enable_shared_from_this<Access_Link> {
  public:
    /// For the thread that runs the window.
    explicit Access_Link(Part_Window& window_served);
    Access_Link(const Access_Link&) = delete;
    Access_Link& operator=(const Access_Link&) = delete;

    /// The window is no longer served: from now on every question is answered with CO_E_OBJNOTCONNECTED. For
    /// the thread that runs the window.
    void Cut();

    /// The window; null when it is served no longer.
    HWND Window() const { return window; }

    /// Asks the window on its thread, and waits for the answer a limited time.
    HRESULT Ask(const Access_Question& question, Access_Answer& answer);
    /// Has something done on the window's thread after the messages that it has already.
    HRESULT Do_Later(Access_Question work);
    /// Takes a message of the window: answers the question that waits for it. For the thread that runs the
    /// window.
    /// @return false when it is no such message
    bool Take(UINT message, WPARAM number);

    /// The object of a control, or that of the window's client area with 0; there is one at most.
    Object_Holder Object(unsigned serial);
    /// Counts a use of an object less. After the last one the object is no longer known here.
    ULONG Count_Down(Access_Object& object);

  private:
    struct Call;
    // Holds a lock for a scope.
    class Locked {
      public:
        explicit Locked(SRWLOCK& taken) : lock(taken) { AcquireSRWLockExclusive(&lock); }
        ~Locked() { ReleaseSRWLockExclusive(&lock); }
        Locked(const Locked&) = delete;
        Locked& operator=(const Locked&) = delete;

      private:
        SRWLOCK& lock;
    };

    HRESULT Answer_Here(const Access_Question& question, Access_Answer& answer);
    WPARAM Park(std::shared_ptr<Call> call);
    std::shared_ptr<Call> Withdraw(WPARAM number);
    std::vector<Object_Holder> Held_Objects();

    Part_Window* served;  // null when cut
    std::atomic<HWND> window;
    const DWORD thread;
    SRWLOCK lock = SRWLOCK_INIT;  // for what follows
    std::unordered_map<unsigned, Access_Object*> objects;
    std::unordered_map<WPARAM, std::shared_ptr<Call>> calls;  // that wait for the window's thread
    WPARAM last_call = 0;
};

}  // namespace galdren
