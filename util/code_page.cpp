#include "util/code_page.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <iterator>
#include <memory>
#include <mutex>
#include <new>

#include "util/page_in_use.h"

namespace {

constexpr unsigned Broken = 0xFFFD;

unsigned Byte_At(const char* text, int at) { return static_cast<unsigned char>(text[at]); }

/// What the bytes of a code page mean, asked of the system once. Pages are never freed: any thread may be
/// reading with one.
class Code_Page {
  public:
    /// @param wanted  a page that `Is_Usable`
    /// @param more    the page that was read before
    Code_Page(unsigned wanted, const Code_Page* more) : number(wanted), next(more) {
        if (Is_UTF8()) return;
        CPINFO info{};
        GetCPInfo(number, &info);
        if (info.MaxCharSize == 2) pairs.reset(new (std::nothrow) wchar_t[std::size_t{Bytes} * Bytes]());
        for (unsigned byte = 0; byte < Bytes; ++byte) {
            leads[byte] = pairs && IsDBCSLeadByteEx(number, static_cast<BYTE>(byte)) != 0;
            if (leads[byte]) Read_Pairs(byte);
            singles[byte] = leads[byte] ? Broken : Read(0, {static_cast<char>(byte)}, 1, Broken);
        }
    }

    static bool Is_Usable(unsigned page) {
        constexpr unsigned First_Page = 37;  // below are words such as CP_OEMCP
        CPINFO info{};
        if (page < First_Page) return false;
        return page == CP_UTF8 || (GetCPInfo(page, &info) && info.MaxCharSize <= 2);
    }

    bool Is_UTF8() const { return number == CP_UTF8; }

    int Decode(const char* text, int length, unsigned& code) const {
        if (Is_UTF8()) return Decode_UTF8(text, length, code);
        const unsigned first = Byte_At(text, 0);
        code = singles[first];
        if (!leads[first] || length < 2) return 1;
        const wchar_t pair = pairs[first * Bytes + Byte_At(text, 1)];
        if (!pair) return 1;
        code = pair;
        return 2;
    }

    /// Writes a character of one or two units; 4 bytes are enough.
    /// @return its bytes
    int Encode(const wchar_t* units, int count, char* text) const {
        // Of a pair that the page lacks the system makes two default characters.
        const int bytes = WideCharToMultiByte(number, 0, units, count, text, 4, nullptr, nullptr);
        return count == 2 && !Is_UTF8() ? std::min(bytes, 1) : bytes;
    }

    const unsigned number;
    const Code_Page* const next;

  private:
    static constexpr unsigned Bytes = 256;
    static int Decode_UTF8(const char* text, int length, unsigned& code);

    unsigned Read(DWORD flags, const char (&text)[2], int length, unsigned otherwise) const {
        wchar_t wide[2];
        const int units = MultiByteToWideChar(number, flags, text, length, wide, 2);
        return units == 1 ? wide[0] : otherwise;
    }

    void Read_Pairs(unsigned lead) {
        for (unsigned trail = 1; trail < Bytes; ++trail) {
            const char pair[2] = {static_cast<char>(lead), static_cast<char>(trail)};
            pairs[lead * Bytes + trail] = static_cast<wchar_t>(Read(MB_ERR_INVALID_CHARS, pair, 2, 0));
        }
    }

    bool leads[Bytes]{};
    unsigned singles[Bytes]{};
    std::unique_ptr<wchar_t[]> pairs;
};

/// Only the shortest form of a character counts, and no half of a surrogate pair does.
int Code_Page::Decode_UTF8(const char* text, int length, unsigned& code) {
    struct Form {
        unsigned mask, lead, least;
    };
    constexpr Form Forms[] = {{0x80, 0, 0}, {0xE0, 0xC0, 0x80}, {0xF0, 0xE0, 0x800}, {0xF8, 0xF0, 0x10000}};
    const unsigned first = Byte_At(text, 0);
    const auto form = std::find_if(std::begin(Forms), std::end(Forms),
                                   [=](const Form& each) { return (first & each.mask) == each.lead; });
    code = Broken;
    const auto bytes = static_cast<int>(form - std::begin(Forms)) + 1;
    if (form == std::end(Forms) || bytes > length) return 1;
    unsigned number = first & ~form->mask;
    for (int i = 1; i < bytes; ++i) {
        if ((Byte_At(text, i) & 0xC0) != 0x80) return 1;
        number = number << 6 | (Byte_At(text, i) & 0x3F);
    }
    if (number < form->least || number > 0x10FFFF || (number & ~0x7FFU) == 0xD800) return 1;
    code = number;
    return bytes;
}

std::atomic<const Code_Page*> Page_In_Use{nullptr};

/// A page that has been read, or is read now; null without memory.
const Code_Page* Read_Page(unsigned number) {
    static std::mutex mutex;
    static const Code_Page* first = nullptr;
    const std::lock_guard<std::mutex> lock(mutex);
    for (const Code_Page* page = first; page; page = page->next) {
        if (page->number == number) return page;
    }
    const auto* const page = new (std::nothrow) Code_Page(number, first);
    if (page) first = page;
    return page;
}

const Code_Page& System_Page() {
    alignas(Code_Page) static unsigned char storage[sizeof(Code_Page)];
    static const Code_Page* const page = new (storage) Code_Page(GetACP(), nullptr);
    return *page;
}

const Code_Page& Page() {
    const Code_Page* page = Page_In_Use.load(std::memory_order_acquire);
    return page ? *page : System_Page();
}

}  // namespace

galdren::Page_Choice galdren::Use_Page(unsigned number) {
    if (number == 0 || number == GetACP()) {
        Page_In_Use = nullptr;
    } else if (!Code_Page::Is_Usable(number)) {
        return Page_Choice::Unknown;
    } else if (const Code_Page* const page = Read_Page(number)) {
        Page_In_Use = page;
    } else {
        return Page_Choice::No_Memory;
    }
    return Page_Choice::Used;
}

unsigned Text_Code_Page() { return Page().number; }

int Text_Decode(const char* text, int length, unsigned* code) {
    unsigned ignored = 0;
    return length < 1 ? 0 : Page().Decode(text, length, code ? *code : ignored);
}

int Text_To_Wide(const char* text, int length, wchar_t* wide, int room) {
    const Code_Page& page = Page();
    int units = 0;
    unsigned code = 0;
    for (int at = 0; at < length;) {
        at += page.Decode(text + at, length - at, code);
        const bool pair = code > 0xFFFF;
        if (units + (pair ? 2 : 1) > room) break;
        if (pair) wide[units++] = static_cast<wchar_t>(0xD7C0 + (code >> 10));
        wide[units++] = static_cast<wchar_t>(pair ? 0xDC00 + (code & 0x3FF) : code);
    }
    return units;
}

int Text_From_Wide(const wchar_t* wide, int length, char* text, int room) {
    constexpr wchar_t Replacement = Broken;
    const Code_Page& page = Page();
    int bytes = 0;
    for (int at = 0; at < length;) {
        const bool pair = at + 1 < length && IS_SURROGATE_PAIR(wide[at], wide[at + 1]);
        const bool broken = !pair && (wide[at] & ~0x7FF) == 0xD800;
        char character[4];
        const int size = page.Encode(broken ? &Replacement : wide + at, pair ? 2 : 1, character);
        if (bytes + size > room) break;
        std::copy_n(character, size, text + bytes);
        bytes += size;
        at += pair ? 2 : 1;
    }
    return bytes;
}
