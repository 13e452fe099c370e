#include "tests/support/reader.h"

#include <cstdio>
#include <map>
#include <utility>

namespace galdren_test {

namespace {

/// "(none)" for no text, an error as its number.
std::string Text(HRESULT result, BSTR text) {
    char bytes[512] = "(none)";
    if (FAILED(result))
        std::snprintf(bytes, sizeof bytes, "%08lX", static_cast<unsigned long>(result));
    else if (text)
        WideCharToMultiByte(CP_UTF8, 0, text, -1, bytes, sizeof bytes, nullptr, nullptr);
    SysFreeString(text);
    return bytes;
}

template <class... Arguments>
std::string Ask(IAccessible& object, HRESULT (STDMETHODCALLTYPE IAccessible::*question)(VARIANT, BSTR*),
                VARIANT child) {
    BSTR text = nullptr;
    const HRESULT result = (object.*question)(child, &text);
    return Text(result, text);
}

std::shared_ptr<IAccessible> Share(IAccessible* object) {
    return {object, [](IAccessible* shared) {
                if (shared) shared->Release();
            }};
}

std::shared_ptr<IAccessible> Share(IDispatch* object) {
    IAccessible* wanted = nullptr;
    object->QueryInterface(__uuidof(IAccessible), reinterpret_cast<void**>(&wanted));
    object->Release();
    return Share(wanted);
}

std::string States(long state) {
    std::string text;
    for (unsigned bit = 1; bit <= STATE_SYSTEM_PROTECTED; bit <<= 1) {
        if (!(static_cast<unsigned long>(state) & bit)) continue;
        char name[64] = "";
        GetStateTextA(bit, name, sizeof name);
        text += std::string(", ") + name;
    }
    return text;
}

std::string heard;

const std::map<DWORD, std::string> Names_Of_Events = {{EVENT_OBJECT_FOCUS, "focus"},
                                                      {EVENT_OBJECT_VALUECHANGE, "value"},
                                                      {EVENT_OBJECT_STATECHANGE, "state"},
                                                      {EVENT_OBJECT_SELECTION, "chosen"},
                                                      {EVENT_OBJECT_SHOW, "shown"},
                                                      {EVENT_OBJECT_HIDE, "hidden"},
                                                      {EVENT_OBJECT_TEXTSELECTIONCHANGED, "caret"}};

void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD, DWORD) {
    const auto name = Names_Of_Events.find(event);
    if (name == Names_Of_Events.end() || (object != OBJID_CLIENT && object <= 0)) return;
    IAccessible* found = nullptr;
    VARIANT number;
    AccessibleObjectFromEvent(window, static_cast<DWORD>(object), static_cast<DWORD>(child), &found, &number);
    const Spoken part(Share(found), number.lVal);
    heard += (heard.empty() ? "" : ", ") + name->second + ' ' + (found ? part.Name() : "?");
}

}  // namespace

Listener::Listener()
    : hook_(SetWinEventHook(EVENT_MIN, EVENT_MAX, GetModuleHandleA(nullptr), Hear, GetCurrentProcessId(), 0,
                            WINEVENT_INCONTEXT)) {
    heard.clear();
}

Listener::~Listener() { UnhookWinEvent(hook_); }

std::string Listener::Take() { return std::exchange(heard, {}); }

VARIANT Number(long number) {
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_I4;
    variant.lVal = number;
    return variant;
}

Spoken::Spoken(HWND window, LONG id) {
    void* object = nullptr;
    AccessibleObjectFromWindow(window, static_cast<DWORD>(id), __uuidof(IAccessible), &object);
    if (object) object_ = Share(static_cast<IAccessible*>(object));
}

long Spoken::Count() const {
    long count = 0;
    if (child_ == CHILDID_SELF) object_->get_accChildCount(&count);
    return count;
}

Spoken Spoken::Child(long number) const {
    IDispatch* child = nullptr;
    object_->get_accChild(Number(number), &child);
    if (child) return {Share(child), CHILDID_SELF};
    return {object_, number};
}

Spoken Spoken::Named(VARIANT answer) const {
    if (answer.vt == VT_DISPATCH) return {Share(answer.pdispVal), CHILDID_SELF};
    if (answer.vt == VT_I4) return {object_, answer.lVal};
    return {};
}

Spoken Spoken::At(POINT point) const {
    VARIANT answer;
    VariantInit(&answer);
    object_->accHitTest(point.x, point.y, &answer);
    return answer.vt == VT_DISPATCH ? Named(answer).At(point) : Named(answer);
}

POINT Spoken::Middle() const {
    const RECT place = Place();
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

std::string Spoken::Name() const { return Ask(*object_, &IAccessible::get_accName, Id()); }
std::string Spoken::Value() const { return Ask(*object_, &IAccessible::get_accValue, Id()); }
std::string Spoken::Action() const { return Ask(*object_, &IAccessible::get_accDefaultAction, Id()); }
std::string Spoken::Shortcut() const { return Ask(*object_, &IAccessible::get_accKeyboardShortcut, Id()); }
std::string Spoken::Description() const { return Ask(*object_, &IAccessible::get_accDescription, Id()); }

long Spoken::Role() const {
    VARIANT role = Number(0);
    object_->get_accRole(Id(), &role);
    return role.lVal;
}

long Spoken::State() const {
    VARIANT state = Number(0);
    object_->get_accState(Id(), &state);
    return state.lVal;
}

RECT Spoken::Place() const {
    long left = 0, top = 0, width = 0, height = 0;
    object_->accLocation(&left, &top, &width, &height, Id());
    return {left, top, left + width, top + height};
}

std::string Spoken::Line() const {
    constexpr char Not_Supported[] = "80020003";
    char role[64] = "";
    GetRoleTextA(static_cast<DWORD>(Role()), role, sizeof role);
    std::string line = Name() + ": " + role + States(State());
    if (Value() != Not_Supported) line += " = " + Value();
    if (Action() != Not_Supported) line += " (" + Action() + ")";
    return line;
}

HRESULT Spoken::Set_Value(const wchar_t* value) const {
    const std::unique_ptr<OLECHAR, decltype(&SysFreeString)> text(SysAllocString(value), &SysFreeString);
    return object_->put_accValue(Id(), text.get());
}

std::string Read_Aloud(const Spoken& root, const std::string& indent) {
    std::string lines = indent + root.Line() + '\n';
    for (long number = 1; number <= root.Count(); ++number)
        lines += Read_Aloud(root.Child(number), indent + "  ");
    return lines;
}

}  // namespace galdren_test
