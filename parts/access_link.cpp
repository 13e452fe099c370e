#include "parts/access_link.h"

#include <utility>

namespace galdren {

namespace {

constexpr UINT Patience = 2000;  // milliseconds that a question waits for a window that is busy

UINT Carrying_Message() {
    static const UINT message = RegisterWindowMessageA("Galdren_Access_Call");
    return message;
}

}  // namespace

/// A question on its way. Whoever asked reads the answer once it is done, or leaves.
struct Access_Link::Call {
    explicit Call(Access_Question asked) : question(std::move(asked)) {}

    Access_Question question;
    Access_Answer answer{};
    HRESULT result = E_FAIL;
    std::atomic<bool> done = false;
};

Access_Link::Access_Link(Part_Window& window_served)
    : served(&window_served), window(window_served.Window()), thread(GetCurrentThreadId()) {}

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

}  // namespace galdren
