#include "parts/access_link.h"

#include <utility>

#include "parts/access_object.h"
#include "parts/access_system.h"

namespace galdren {

namespace {

constexpr UINT Patience = 2000;  // milliseconds that a question waits for a window that is busy

UINT Carrying_Message() {
    static const UINT message = RegisterWindowMessageA("Galdren_Access_Call");
    return message;
}

/// Holds a lock for a scope.
class Locked {
  public:
    explicit Locked(SRWLOCK& taken) : lock(taken) { AcquireSRWLockExclusive(&lock); }
    ~Locked() { ReleaseSRWLockExclusive(&lock); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;

  private:
    SRWLOCK& lock;
};

}  // namespace

/// A question on its way. Whoever asked reads the answer once it is done, or leaves.
struct Access_Link::Call {
    explicit Call(Access_Question asked) : question(std::move(asked)) {}

    Access_Question question;
    Access_Answer answer{};
    HRESULT result = E_FAIL;
    std::atomic<bool> done = false;
};

void Release_Object::operator()(Access_Object* object) const { object->Release(); }

Access_Link::Access_Link(Part_Window& window_served)
    : served(&window_served), window(window_served.Window()), thread(GetCurrentThreadId()) {}

void Access_Link::Cut() {
    served = nullptr;
    window = nullptr;
    // Without memory for the list, clients of other processes keep their objects, which answer with errors.
    Without_Exceptions([this] {
        for (const Object_Holder& object : Held_Objects())
            Disconnect_Clients(object.get());
        return S_OK;
    });
}

std::vector<Object_Holder> Access_Link::Held_Objects() {
    const Locked locked(lock);
    std::vector<Object_Holder> held;
    held.reserve(objects.size());
    for (const auto& [serial, object] : objects) {
        object->AddRef();
        held.emplace_back(object);
    }
    return held;
}

HRESULT Access_Link::Ask(const Access_Question& question, Access_Answer& answer) {
    if (GetCurrentThreadId() == thread) return Answer_Here(question, answer);
    const HWND target = window;
    if (!target) return CO_E_OBJNOTCONNECTED;
    const auto call = std::make_shared<Call>(question);
    const WPARAM number = Park(call);
    DWORD_PTR ignored = 0;
    SendMessageTimeoutA(target, Carrying_Message(), number, 0, SMTO_ABORTIFHUNG, Patience, &ignored);
    Withdraw(number);
    if (!call->done) return window ? HRESULT_FROM_WIN32(ERROR_TIMEOUT) : CO_E_OBJNOTCONNECTED;
    answer = std::move(call->answer);
    return call->result;
}

HRESULT Access_Link::Do_Later(Access_Question work) {
    const HWND target = window;
    if (!target) return CO_E_OBJNOTCONNECTED;
    const WPARAM number = Park(std::make_shared<Call>(std::move(work)));
    if (PostMessageA(target, Carrying_Message(), number, 0)) return S_OK;
    Withdraw(number);
    return E_FAIL;
}

bool Access_Link::Take(UINT message, WPARAM number) {
    if (message != Carrying_Message()) return false;
    const std::shared_ptr<Call> call = Withdraw(number);
    if (!call) return false;
    call->result = Answer_Here(call->question, call->answer);
    call->done = true;
    return true;
}

HRESULT Access_Link::Answer_Here(const Access_Question& question, Access_Answer& answer) {
    if (!served || !served->Window()) return CO_E_OBJNOTCONNECTED;
    return Without_Exceptions([&] { return question(*this, *served, answer); });
}

WPARAM Access_Link::Park(std::shared_ptr<Call> call) {
    const Locked locked(lock);
    calls.emplace(++last_call, std::move(call));
    return last_call;
}

std::shared_ptr<Access_Link::Call> Access_Link::Withdraw(WPARAM number) {
    const Locked locked(lock);
    const auto found = calls.find(number);
    if (found == calls.end()) return nullptr;
    std::shared_ptr<Call> call = std::move(found->second);
    calls.erase(found);
    return call;
}

Object_Holder Access_Link::Object(unsigned serial) {
    const Locked locked(lock);
    const auto known = objects.find(serial);
    if (known != objects.end()) {
        known->second->AddRef();
        return Object_Holder(known->second);
    }
    auto object = std::make_unique<Access_Object>(shared_from_this(), serial);
    objects.emplace(serial, object.get());
    return Object_Holder(object.release());
}

ULONG Access_Link::Count_Down(Access_Object& object) {
    // Within the lock, so that nobody gets an object whose last use has just ended.
    const Locked locked(lock);
    const ULONG left = --object.uses;
    if (left == 0) objects.erase(object.serial);
    return left;
}

}  // namespace galdren
