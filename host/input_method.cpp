#include "host/input_method.h"

#include <imm.h>

#include "util/late.h"

namespace galdren {

namespace {

/// The functions of the system's library, as far as there is one.
struct Library {
    Library() {
        const HMODULE module = LoadLibraryA("imm32.dll");
        Find_Function(module, "ImmGetContext", get_context);
        Find_Function(module, "ImmReleaseContext", release_context);
        Find_Function(module, "ImmSetCompositionWindow", set_window);
        Find_Function(module, "ImmSetCompositionFontW", set_font);
        Find_Function(module, "ImmGetCompositionStringW", get_string);
        Find_Function(module, "ImmNotifyIME", notify);
    }

    bool Is_There() const {
        return get_context && release_context && set_window && set_font && get_string && notify;
    }

    decltype(ImmGetContext)* get_context = nullptr;
    decltype(ImmReleaseContext)* release_context = nullptr;
    decltype(ImmSetCompositionWindow)* set_window = nullptr;
    decltype(ImmSetCompositionFontW)* set_font = nullptr;
    decltype(ImmGetCompositionStringW)* get_string = nullptr;
    decltype(ImmNotifyIME)* notify = nullptr;
};

const Library& Imm() {
    static const Library library;
    return library;
}

/// The input context of a window, for a scope.
class Input_Context {
  public:
    explicit Input_Context(HWND owner)
        : window(owner), context(Imm().Is_There() ? Imm().get_context(owner) : nullptr) {}
    ~Input_Context() {
        if (context) Imm().release_context(window, context);
    }
    Input_Context(const Input_Context&) = delete;
    Input_Context& operator=(const Input_Context&) = delete;
    HIMC Get() const { return context; }

  private:
    HWND window;
    HIMC context;
};

}  // namespace

void Place_Composition(HWND window, POINT place, HFONT font) {
    const Input_Context context(window);
    if (!context.Get()) return;
    COMPOSITIONFORM form{};
    form.dwStyle = CFS_POINT;
    form.ptCurrentPos = place;
    Imm().set_window(context.Get(), &form);
    LOGFONTW words{};
    if (font && GetObjectW(font, sizeof words, &words)) Imm().set_font(context.Get(), &words);
}

std::wstring Composed_Text(HWND window) {
    const Input_Context context(window);
    if (!context.Get()) return {};
    const LONG bytes = Imm().get_string(context.Get(), GCS_RESULTSTR, nullptr, 0);
    if (bytes <= 0) return {};
    std::wstring text(static_cast<std::size_t>(bytes) / sizeof(wchar_t), L'\0');
    Imm().get_string(context.Get(), GCS_RESULTSTR, text.data(), static_cast<DWORD>(bytes));
    return text;
}

void Finish_Composition(HWND window) {
    const Input_Context context(window);
    if (context.Get()) Imm().notify(context.Get(), NI_COMPOSITIONSTR, CPS_COMPLETE, 0);
}

}  // namespace galdren
