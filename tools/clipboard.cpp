#include "tools/clipboard.h"

#include <cstring>
#include <memory>
#include <new>
#include <type_traits>

#include "util/wide.h"

namespace galdren {

namespace {

/// The clipboard, open for a scope; or not, when another window has it.
class Clipboard {
  public:
    explicit Clipboard(HWND window) : opened(OpenClipboard(window) != 0) {}
    ~Clipboard() {
        if (opened) CloseClipboard();
    }
    Clipboard(const Clipboard&) = delete;
    Clipboard& operator=(const Clipboard&) = delete;
    explicit operator bool() const { return opened; }

  private:
    bool opened;
};

/// Memory of the system, locked for a scope.
class Locked {
  public:
    explicit Locked(HGLOBAL memory) : block(memory), bytes(block ? GlobalLock(block) : nullptr) {}
    ~Locked() {
        if (bytes) GlobalUnlock(block);
    }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    template <class Unit>
    Unit* As() const {
        return static_cast<Unit*>(bytes);
    }

  private:
    HGLOBAL block;
    void* bytes;
};

struct Free_Block {
    void operator()(HGLOBAL block) const { GlobalFree(block); }
};
using Block = std::unique_ptr<std::remove_pointer_t<HGLOBAL>, Free_Block>;

/// A text with a zero at its end in memory for the clipboard; null without memory.
template <class Unit>
Block Block_Of(std::basic_string_view<Unit> text) {
    Block block(GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(Unit)));
    const Locked locked(block.get());
    if (auto* const units = locked.As<Unit>()) units[text.copy(units, text.size())] = Unit{};
    return block;
}

/// Gives the clipboard a block.
bool Give(UINT format, Block& block) {
    if (!SetClipboardData(format, block.get())) return false;
    static_cast<void>(block.release());  // it belongs to the clipboard now
    return true;
}

}  // namespace

std::string Clipboard_Text(HWND window) try {
    if (!Has_Clipboard_Text()) return {};
    const Clipboard clipboard(window);
    const HGLOBAL block = clipboard ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    const Locked locked(block);
    const auto* const units = locked.As<const wchar_t>();
    // It may be the block that ends, and not the text.
    return units ? From_Wide({units, wcsnlen(units, GlobalSize(block) / sizeof *units)}) : std::string();
} catch (const std::bad_alloc&) {
    return {};
}

bool Has_Clipboard_Text() { return IsClipboardFormatAvailable(CF_UNICODETEXT) != 0; }

bool Set_Clipboard_Text(HWND window, std::string_view text) try {
    const std::wstring wide = To_Wide(text);
    Block as_wide = Block_Of(std::wstring_view(wide));
    Block as_bytes = Block_Of(text);
    if (!as_wide || !as_bytes) return false;
    const Clipboard clipboard(window);
    if (!clipboard || !EmptyClipboard()) return false;
    // The system takes bytes for those of its own page, and makes them itself where ours is another.
    if (Text_Code_Page() == GetACP()) Give(CF_TEXT, as_bytes);
    return Give(CF_UNICODETEXT, as_wide);
} catch (const std::bad_alloc&) {
    return false;
}

}  // namespace galdren
