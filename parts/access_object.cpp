#include "parts/access_object.h"

#include <cstring>
#include <utility>

#include "parts/access_system.h"

namespace galdren {

namespace {

std::atomic<long> objects_alive = 0;

VARIANT Self() {
    VARIANT self;
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    return self;
}

void Clear(BSTR* out) { *out = nullptr; }
void Clear(long* out) { *out = 0; }
void Clear(IDispatch** out) { *out = nullptr; }
void Clear(VARIANT* out) { out->vt = VT_EMPTY; }

/// Hands an answer to a client.
/// @return false without memory
/// @{
bool Give(Access_Answer&& answer, BSTR* out) {
    const auto* text = std::get_if<std::wstring>(&answer);
    if (text) *out = Make_Client_Text(*text);
    return !text || *out;
}

bool Give(Access_Answer&& answer, long* out) {
    if (const auto* number = std::get_if<long>(&answer)) *out = *number;
    return true;
}

bool Give(Access_Answer&& answer, IDispatch** out) {
    if (auto* object = std::get_if<Object_Holder>(&answer)) *out = object->release();
    return true;
}

bool Give(Access_Answer&& answer, VARIANT* out) {
    if (const auto* number = std::get_if<long>(&answer)) {
        out->vt = VT_I4;
        out->lVal = *number;
    } else if (std::holds_alternative<Object_Holder>(answer)) {
        out->vt = VT_DISPATCH;
        Give(std::move(answer), &out->pdispVal);
    }
    return true;
}
/// @}

/// A question about a child of an object, to be asked on the thread of the window.
Access_Question About(unsigned object, long child, const Access_Object::Question& question) {
    return [=](Access_Link& link, Part_Window& window, Access_Answer& answer) {
        Access_Spot spot(link, window);
        const HRESULT found = spot.Find(object, child);
        return SUCCEEDED(found) ? question(spot, answer) : found;
    };
}

HRESULT Has_None(const Access_Spot&, Access_Answer&) { return DISP_E_MEMBERNOTFOUND; }

}  // namespace

Access_Object::Access_Object(std::shared_ptr<Access_Link> window_link, unsigned control)
    : link(std::move(window_link)), serial(control) {
    ++objects_alive;
}

Access_Object::~Access_Object() { --objects_alive; }

long Access_Object::Alive() { return objects_alive; }

HRESULT Access_Object::Ask(const VARIANT& child, const Question& question, Access_Answer& answer) const {
    if (child.vt != VT_I4) return E_INVALIDARG;
    return Without_Exceptions([&] {
        const std::shared_ptr<Access_Link> kept = link;
        return kept->Ask(About(serial, child.lVal, question), answer);
    });
}

template <class Action>
HRESULT Access_Object::Ask(const VARIANT& child, Action action) const {
    Access_Answer unused;
    return Ask(
        child, [action](const Access_Spot& spot, Access_Answer&) { return action(spot); }, unused);
}

template <class Out>
HRESULT Access_Object::Ask(const VARIANT& child, Out* out, const Question& question) const {
    if (!out) return E_INVALIDARG;
    Clear(out);
    Access_Answer answer;
    const HRESULT result = Ask(child, question, answer);
    if (FAILED(result)) return result;
    return Give(std::move(answer), out) ? result : E_OUTOFMEMORY;
}

STDMETHODIMP Access_Object::QueryInterface(REFIID wanted, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    IID id;  // in a call from another process it may stand where no identifier should
    std::memcpy(&id, &wanted, sizeof id);
    const bool has = id == __uuidof(IUnknown) || id == __uuidof(IDispatch) || id == __uuidof(IAccessible);
    if (!has) return E_NOINTERFACE;
    *object = static_cast<IAccessible*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) Access_Object::AddRef() { return ++uses; }

STDMETHODIMP_(ULONG) Access_Object::Release() {
    const ULONG left = link->Count_Down(*this);
    if (left == 0) delete this;
    return left;
}

STDMETHODIMP Access_Object::GetTypeInfoCount(UINT* count) {
    if (count) *count = 0;
    return E_NOTIMPL;
}

STDMETHODIMP Access_Object::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    if (info) *info = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP Access_Object::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) { return E_NOTIMPL; }

STDMETHODIMP Access_Object::Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) {
    return E_NOTIMPL;
}

STDMETHODIMP Access_Object::get_accParent(IDispatch** parent) {
    const HRESULT result = Ask(Self(), parent, [](const Access_Spot& self, Access_Answer& answer) {
        if (!self.Is_Client()) answer = self.Client_Object();
        return S_OK;
    });
    if (FAILED(result) || serial) return result;
    return Frame_Object(link->Window(), parent);
}

STDMETHODIMP Access_Object::get_accChildCount(long* count) {
    return Ask(Self(), count, [](const Access_Spot& self, Access_Answer& answer) {
        answer = long{self.Children()};
        return S_OK;
    });
}

STDMETHODIMP Access_Object::get_accChild(VARIANT child, IDispatch** object) {
    return Ask(child, object, [](const Access_Spot& spot, Access_Answer& answer) {
        answer = spot.Object();
        return std::holds_alternative<Object_Holder>(answer) ? S_OK : S_FALSE;
    });
}

STDMETHODIMP Access_Object::get_accName(VARIANT child, BSTR* name) {
    return Ask(child, name, [](const Access_Spot& spot, Access_Answer& answer) {
        std::wstring text = spot.Name();
        if (text.empty()) return S_FALSE;
        answer = std::move(text);
        return S_OK;
    });
}

STDMETHODIMP Access_Object::get_accValue(VARIANT child, BSTR* value) {
    return Ask(child, value,
               [](const Access_Spot& spot, Access_Answer& answer) { return spot.Value(answer); });
}

STDMETHODIMP Access_Object::get_accDescription(VARIANT child, BSTR* description) {
    return Ask(child, description, [](const Access_Spot& spot, Access_Answer& answer) {
        std::wstring text = spot.Description();
        if (text.empty()) return Has_None(spot, answer);
        answer = std::move(text);
        return S_OK;
    });
}

STDMETHODIMP Access_Object::get_accRole(VARIANT child, VARIANT* role) {
    return Ask(child, role, [](const Access_Spot& spot, Access_Answer& answer) {
        answer = spot.Role();
        return S_OK;
    });
}

STDMETHODIMP Access_Object::get_accState(VARIANT child, VARIANT* state) {
    return Ask(child, state, [](const Access_Spot& spot, Access_Answer& answer) {
        answer = spot.State();
        return S_OK;
    });
}

STDMETHODIMP Access_Object::get_accHelp(VARIANT child, BSTR* help) { return Ask(child, help, Has_None); }

STDMETHODIMP Access_Object::get_accHelpTopic(BSTR* file, VARIANT child, long* topic) {
    if (topic) *topic = 0;
    return Ask(child, file, Has_None);
}

STDMETHODIMP Access_Object::get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) {
    return Ask(child, shortcut, [](const Access_Spot& spot, Access_Answer& answer) -> HRESULT {
        const wchar_t key = spot.Mnemonic();
        if (!key) return DISP_E_MEMBERNOTFOUND;
        answer = std::wstring(L"Alt+") + key;
        return S_OK;
    });
}

STDMETHODIMP Access_Object::get_accFocus(VARIANT* child) {
    return Ask(Self(), child,
               [](const Access_Spot& self, Access_Answer& answer) { return self.Focus(answer); });
}

STDMETHODIMP Access_Object::get_accSelection(VARIANT* children) {
    return Ask(Self(), children,
               [](const Access_Spot& self, Access_Answer& answer) { return self.Selection(answer); });
}

STDMETHODIMP Access_Object::get_accDefaultAction(VARIANT child, BSTR* action) {
    return Ask(child, action, [](const Access_Spot& spot, Access_Answer& answer) -> HRESULT {
        const wchar_t* word = spot.Action();
        if (!word) return DISP_E_MEMBERNOTFOUND;
        answer = std::wstring(word);
        return S_OK;
    });
}

STDMETHODIMP Access_Object::accSelect(long flags, VARIANT child) {
    constexpr long known = SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION;
    if (!(flags & known) || flags & ~known) return E_INVALIDARG;
    // The child is looked for twice, for the application may change its controls when the focus comes.
    HRESULT result = S_OK;
    if (flags & SELFLAG_TAKEFOCUS)
        result = Ask(child, [](const Access_Spot& spot) { return spot.Take_Focus(); });
    if (SUCCEEDED(result) && flags & SELFLAG_TAKESELECTION)
        result = Ask(child, [](const Access_Spot& spot) { return spot.Take_Selection(); });
    return result;
}

STDMETHODIMP Access_Object::accLocation(long* left, long* top, long* width, long* height, VARIANT child) {
    if (!left || !top || !width || !height) return E_INVALIDARG;
    *left = *top = *width = *height = 0;
    Access_Answer answer;
    const auto locate = [](const Access_Spot& spot, Access_Answer& found) {
        found = spot.Location();
        return S_OK;
    };
    const HRESULT result = Ask(child, locate, answer);
    if (const RECT* place = std::get_if<RECT>(&answer)) {
        *left = place->left;
        *top = place->top;
        *width = place->right - place->left;
        *height = place->bottom - place->top;
    }
    return result;
}

STDMETHODIMP Access_Object::accNavigate(long direction, VARIANT start, VARIANT* end) {
    return Ask(start, end, [direction](const Access_Spot& spot, Access_Answer& answer) {
        return spot.Navigate(direction, answer);
    });
}

STDMETHODIMP Access_Object::accHitTest(long x, long y, VARIANT* child) {
    return Ask(Self(), child, [x, y](const Access_Spot& self, Access_Answer& answer) {
        return self.Hit({x, y}, answer);
    });
}

STDMETHODIMP Access_Object::accDoDefaultAction(VARIANT child) {
    return Ask(child, [](const Access_Spot& spot) -> HRESULT {
        if (!spot.Action()) return DISP_E_MEMBERNOTFOUND;
        const auto press = [](const Access_Spot& found, Access_Answer&) { return found.Press(); };
        return spot.Link().Do_Later(About(spot.Owner().serial, spot.Place().part + 1, press));
    });
}

STDMETHODIMP Access_Object::put_accName(VARIANT, BSTR) { return DISP_E_MEMBERNOTFOUND; }

STDMETHODIMP Access_Object::put_accValue(VARIANT child, BSTR value) {
    return Without_Exceptions([&] {
        const std::wstring text(value ? value : L"");
        return Ask(child, [text](const Access_Spot& spot) { return spot.Set_Value(text); });
    });
}

}  // namespace galdren
