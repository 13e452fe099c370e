#include "parts/access_system.h"

#include "util/late.h"

namespace galdren {

namespace {

/// A function of a library of the system.
template <class Function>
Function* Find(const char* library, const char* name) {
    // It is never freed, for clients may hold objects as long as the process runs.
    const HMODULE module = LoadLibraryExA(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    Function* found = nullptr;
    Find_Function(module, name, found);
    return found;
}

/// Our own code has to stay for the same reason.
void Stay_Loaded() {
    static const char inside = 0;
    HMODULE self = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN, &inside,
                       &self);
}

/// Starts COM on this thread, whose application does without. It is not ended: the call that ends the last
/// window may come from a client.
bool Start_Com() {
    static const auto start = Find<decltype(CoInitializeEx)>("ole32.dll", "CoInitializeEx");
    return start && SUCCEEDED(start(nullptr, COINIT_APARTMENTTHREADED));
}

}  // namespace

LRESULT Hand_Out(WPARAM wparam, IUnknown* object) {
    static const auto make = Find<decltype(LresultFromObject)>("oleacc.dll", "LresultFromObject");
    if (!make) return 0;
    static const bool stays = (Stay_Loaded(), true);
    static_cast<void>(stays);
    LRESULT result = make(__uuidof(IAccessible), wparam, object);
    if (result == CO_E_NOTINITIALIZED && Start_Com()) result = make(__uuidof(IAccessible), wparam, object);
    return result > 0 ? result : 0;
}

HRESULT Frame_Object(HWND window, IDispatch** object) {
    static const auto find =
        Find<decltype(AccessibleObjectFromWindow)>("oleacc.dll", "AccessibleObjectFromWindow");
    if (!find) return E_FAIL;
    void* frame = nullptr;
    const HRESULT result = find(window, static_cast<DWORD>(OBJID_WINDOW), __uuidof(IAccessible), &frame);
    *object = static_cast<IAccessible*>(frame);
    return result;
}

void Disconnect_Clients(IUnknown* object) {
    static const auto disconnect = Find<decltype(CoDisconnectObject)>("ole32.dll", "CoDisconnectObject");
    if (disconnect) disconnect(object, 0);
}

BSTR Make_Client_Text(const std::wstring& text) {
    static const auto make = Find<decltype(SysAllocStringLen)>("oleaut32.dll", "SysAllocStringLen");
    return make ? make(text.c_str(), static_cast<UINT>(text.size())) : nullptr;
}

}  // namespace galdren
